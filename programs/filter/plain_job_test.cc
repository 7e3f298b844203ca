#include "programs/filter/plain_job.h"

#include <gmock/gmock.h>
#include <stdlib.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

#include "host/ppd/plain/plain_text.h"
#include "programs/filter/option_text.h"

namespace driver_feature::filter {
namespace {

const std::string kPpd =
    "*PPD-Adobe: \"4.3\"\n*OpenUI *Tray: PickOne\n*DefaultTray: Upper\n*Tray Upper: \"1\"\n"
    "*Tray Lower: \"2\"\n*CloseUI: *Tray\n";

class PlainJobTest : public testing::Test {
 protected:
  PlainJobTest() { useQueue(""); }
  ~PlainJobTest() override {
    for (const char* name : {"PPD", "CLASSIFICATION"}) ::unsetenv(name);
    std::filesystem::remove(file_);
  }

  void useQueue(const std::string& lines) {
    const std::string text = kPpd + lines;
    std::ofstream(file_) << text << "*DriverFeaturePlain: \"" << ppd::readPlainText(text)->stamp
                         << "\"\n";
    ::setenv("PPD", file_.c_str(), 1);
  }

  static bool isPlain(const std::string& options, const std::string& copies = "1",
                      const std::string& title = "title") {
    const std::array<const char*, 6> words{
        "filter", "7", "jane", title.c_str(), copies.c_str(), options.c_str()};
    return plainJobOf(6, words.data()).has_value();
  }

  std::filesystem::path file_ = std::filesystem::temp_directory_path() /
                                ("driver-feature-plain-job-" + std::to_string(::getpid()));
};

TEST_F(PlainJobTest, ChoicesAndUnknownOptions_ArePlain) {
  EXPECT_TRUE(isPlain(""));
  EXPECT_TRUE(isPlain("Tray=lower job-uuid=urn:uuid:1 job-originating-host-name=localhost"));
  EXPECT_TRUE(isPlain("number-up=1"));
}

TEST_F(PlainJobTest, ValuesThatAreNoChoices_AreNotPlain) {
  EXPECT_FALSE(isPlain("Tray=Middle"));
  EXPECT_FALSE(isPlain("Tray=Custom.5"));
  EXPECT_FALSE(isPlain("Tray='Lower'"));
  EXPECT_FALSE(isPlain("Tray"));
}

TEST_F(PlainJobTest, OptionsForLibcups_AreNotPlain) {
  for (const char* option : {"media", "Sides", "output-bin", "print-quality", "finishings",
                             "mirror", "resolution", "print-color-mode"}) {
    EXPECT_FALSE(isPlain(std::string(option) + "=3")) << option;
  }
}

TEST_F(PlainJobTest, WorkOnPages_IsNotPlain) {
  EXPECT_FALSE(isPlain("number-up=2"));
  EXPECT_FALSE(isPlain("collate=true"));
  EXPECT_FALSE(isPlain("scaling=50"));
  EXPECT_FALSE(isPlain("", "2"));
  ::setenv("CLASSIFICATION", "secret", 1);
  EXPECT_FALSE(isPlain(""));
  ::setenv("CLASSIFICATION", "none", 1);
  EXPECT_TRUE(isPlain(""));
}

TEST_F(PlainJobTest, NamesThatLibcupsChanges_MatterInJobControlOnly) {
  EXPECT_TRUE(isPlain("", "1", "gr\xc3\xbc\xc3\x9f"));
  useQueue("*JCLBegin: \"<1B>%-12345X@PJL<0A>\"\n");
  EXPECT_TRUE(isPlain("", "1", "greetings"));
  EXPECT_FALSE(isPlain("", "1", "gr\xc3\xbc\xc3\x9f"));
  EXPECT_FALSE(isPlain("", "1", "smbprn.0001 title"));
}

TEST_F(PlainJobTest, WrongArgumentsAndNoPpd_AreNotPlain) {
  EXPECT_FALSE(isPlain("", "none"));
  ::setenv("PPD", "", 1);
  EXPECT_FALSE(isPlain(""));
  const std::array<const char*, 2> words{"filter", "7"};
  EXPECT_FALSE(plainJobOf(2, words.data()));
}

TEST(PlainOptions, Texts_AreCutAsLibcupsCutsThem) {
  using Options = std::vector<std::pair<std::string, std::string>>;
  const auto pairsOf = [](const std::vector<host::Setting>& options) {
    Options pairs;
    for (const host::Setting& option : options) pairs.emplace_back(option.name, option.value);
    return pairs;
  };
  for (const char* text : {"", "  ", "a=b", " b=2  A=1\ta=3 ", "time=1 date= next=2", "a=b=c d=,e",
                           "Page_1=x-y Page.1=z", "b=1 a=2 C=3 B=4 c=5"}) {
    const auto options = plainOptions(text);
    ASSERT_TRUE(options) << text;
    EXPECT_EQ(pairsOf(*options), pairsOf(parseOptions(text))) << text;
  }
  EXPECT_EQ(pairsOf(*plainOptions("b=1 a=2 B=3")), (Options{{"a", "2"}, {"b", "3"}}));
}

TEST(PlainOptions, OtherTexts_AreNotPlain) {
  for (const char* text : {"a", "noA", "a='b'", "a=\"b\"", "a={b=c}", "a=b\\ c", "=b", "a =b"}) {
    EXPECT_FALSE(plainOptions(text)) << text;
  }
}

}  // namespace
}  // namespace driver_feature::filter
