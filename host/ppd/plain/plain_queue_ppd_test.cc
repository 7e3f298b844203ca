#include "host/ppd/plain/plain_queue_ppd.h"

#include <gmock/gmock.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace driver_feature::ppd {
namespace {

using testing::ElementsAre;

std::string option(const std::string& keyword, const std::string& rest) {
  return "*OpenUI *" + keyword + ": PickOne\n" + rest + "*CloseUI: *" + keyword + "\n";
}

const std::string kSizes =
    option("PageSize", "*DefaultPageSize: A4\n*PageSize A4: \"4\"\n*PageSize A5: \"5\"\n") +
    option("PageRegion", "*DefaultPageRegion: A4\n*PageRegion A4: \"4\"\n*PageRegion A5: \"5\"\n");
const std::string kTrays = option(
    "InputSlot", "*DefaultInputSlot: Auto\n*InputSlot Auto: \"\"\n*InputSlot Upper: \"1\"\n");
const std::string kManual =
    option("ManualFeed",
           "*DefaultManualFeed: False\n*ManualFeed True: \"on\"\n*ManualFeed False: \"off\"\n");

// What is marked: "A4 not-set Upper".
std::string marked(const std::string& lines, const std::vector<host::Setting>& options) {
  const auto ppd = PlainQueuePpd::of("q.ppd", "*PPD-Adobe: \"4.3\"\n" + lines);
  ppd->mark(options);
  std::string text;
  for (const host::Setting& setting : ppd->marked()) {
    text += (text.empty() ? "" : " ") + (setting.value == "not set" ? "-" : setting.value);
  }
  return text;
}

TEST(PlainQueuePpd, Defaults_AreMarked) {
  EXPECT_EQ(marked(kSizes, {}), "A4 -");
}

TEST(PlainQueuePpd, Choices_AreMarkedInEitherCase) {
  EXPECT_EQ(marked(kSizes, {{"pagesize", "a5"}}), "A5 -");
  EXPECT_EQ(marked(kSizes, {{"PageSize", "B5"}, {"Other", "A5"}}), "A4 -");
  // The size is settled after all marks.
  EXPECT_EQ(marked(kSizes, {{"PageRegion", "A5"}}), "A5 -");
}

TEST(PlainQueuePpd, Options_AreMarkedByTheirNamesAndTheLastOfOneHasEffect) {
  EXPECT_EQ(marked(kSizes, {{"PageSize", "A5"}, {"PageRegion", "A4"}}), "A5 -");
  EXPECT_EQ(marked(kSizes, {{"PageSize", "A5"}, {"PAGESIZE", "A4"}}), "A4 -");
}

TEST(PlainQueuePpd, TrayAndManualFeed_TakeEachOtherAway) {
  const std::string lines = kTrays + kManual;
  EXPECT_EQ(marked(lines, {}), "Auto False");
  EXPECT_EQ(marked(lines, {{"ManualFeed", "True"}}), "- True");
  EXPECT_EQ(marked(lines, {{"InputSlot", "Upper"}}), "Upper -");
}

TEST(PlainQueuePpd, TrayWithoutRule_LeavesThePageSize) {
  EXPECT_EQ(marked(kSizes + kTrays, {{"InputSlot", "Upper"}}), "A4 - Upper");
}

TEST(PlainQueuePpd, RuleForTheTray_MakesThePageSizeARegionOrNothing) {
  const std::string lines =
      kSizes + kTrays + "*RequiresPageRegion All: False\n*RequiresPageRegion Upper: True\n";
  EXPECT_EQ(marked(lines, {{"InputSlot", "Upper"}, {"PageSize", "A5"}}), "- A5 Upper");
  EXPECT_EQ(marked(lines, {}), "- - Auto");
}

TEST(PlainQueuePpd, NoManualFeed_KeepsThePageSizeWithABareTray) {
  // A tray marked before takes the choice of ManualFeed away.
  const std::string lines = kSizes + kManual + "*RequiresPageRegion All: False\n";
  EXPECT_EQ(marked(lines, {}), "A4 - False");
  EXPECT_EQ(marked(lines, {{"ManualFeed", "True"}}), "- - True");
}

TEST(PlainQueuePpd, ForeignNames_AreThoseOfTheDescription) {
  const std::string lines =
      option("Duplex", "*DefaultDuplex: None\n*Duplex None: \"\"\n*Duplex DuplexTumble: \"\"\n") +
      "*DriverFeatureChoice: \"Duplex DuplexTumble Short edge\"\n";
  EXPECT_EQ(marked(lines, {{"Duplex", "short edge"}}), "Short edge");
  const auto ppd = PlainQueuePpd::of("", "*PPD-Adobe: \"4.3\"\n" + lines);
  EXPECT_TRUE(ppd->hasChoice("duplex", "Short edge"));
  EXPECT_TRUE(ppd->knows({"Duplex", "none"}));
  EXPECT_FALSE(ppd->knows({"Duplex", "Sideways"}));
  EXPECT_TRUE(ppd->knows({"Other", "Sideways"}));
  EXPECT_EQ(ppd->keywordOf("DUPLEX"), "Duplex");
  EXPECT_EQ(ppd->keywordOf("Other"), std::nullopt);
  EXPECT_THAT(ppd->choicesOf("Duplex"), ElementsAre("None", "DuplexTumble"));
  ppd->mark({{"Duplex", "Short edge"}});
  EXPECT_TRUE(ppd->isMarked("Duplex", "DuplexTumble"));
  EXPECT_FALSE(ppd->isMarked("Duplex", "None"));
}

TEST(PlainQueuePpd, JobEnd_IsThePpdsOrTheEndOfFile) {
  const auto of = [](const std::string& lines) {
    return PlainQueuePpd::of("", "*PPD-Adobe: \"4.3\"\n" + lines)->jobEnd();
  };
  EXPECT_EQ(of(""), "");
  EXPECT_EQ(of("*DriverFeatureEndOfFile: \"true\"\n"), "\x04");
  EXPECT_EQ(of("*DriverFeatureEndOfFile: \"true\"\n*JCLEnd: \"bye<0A>\"\n"), "bye\n");
}

TEST(PlainQueuePpd, JobBegin_NeedsTheChangeToPostScript) {
  const auto of = [](const std::string& lines) {
    return PlainQueuePpd::of("", "*PPD-Adobe: \"4.3\"\n" + lines)->jobBegin(1, "u", "t");
  };
  EXPECT_EQ(of("*JCLBegin: \"begin<0A>\"\n"), "");
  EXPECT_EQ(of("*JCLBegin: \"begin<0A>\"\n*JCLToPSInterpreter: \"ps\"\n"), "begin\n");
}

class PlainQueuePpdFileTest : public testing::Test {
 protected:
  ~PlainQueuePpdFileTest() override { std::filesystem::remove(file_); }

  // Whether a file with these lines and the stamp can be used.
  bool opens(const std::string& lines, const std::string& stamp) {
    std::ofstream(file_) << "*PPD-Adobe: \"4.3\"\n*DriverFeaturePlain: \"" << stamp << "\"\n"
                         << lines;
    return PlainQueuePpd::open(file_) != nullptr;
  }
  static std::string stampOf(const std::string& lines) {
    return readPlainText("*PPD-Adobe: \"4.3\"\n" + lines)->stamp;
  }

  std::filesystem::path file_ = std::filesystem::temp_directory_path() /
                                ("driver-feature-plain-ppd-" + std::to_string(::getpid()));
};

TEST_F(PlainQueuePpdFileTest, Stamp_MustBeThatOfTheText) {
  EXPECT_TRUE(opens(kSizes, stampOf(kSizes)));
  EXPECT_FALSE(opens(kSizes, stampOf(kTrays)));
  EXPECT_EQ(PlainQueuePpd::open("/nowhere/q.ppd"), nullptr);
}

TEST_F(PlainQueuePpdFileTest, DefaultThatIsNoChoice_NeedsLibcups) {
  std::string lines = kSizes;
  lines.replace(lines.find("PageSize: A4"), 12, "PageSize: B5");
  EXPECT_FALSE(opens(lines, stampOf(lines)));
}

TEST_F(PlainQueuePpdFileTest, LastPageFirst_NeedsLibcups) {
  const std::string lines = kSizes + "*DefaultOutputOrder: Reverse\n";
  EXPECT_FALSE(opens(lines, stampOf(lines)));
}

}  // namespace
}  // namespace driver_feature::ppd
