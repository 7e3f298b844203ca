#include "host/ppd/queue/read_back.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <memory>

namespace driver_feature::ppd {
namespace {

const std::vector<std::string> kLines = {"*cupsFilter: \"a/b 0 f\"",
                                         "*DriverFeatureDescription: \"/a b.xml\"",
                                         "*RequiresPageRegion All: False"};
const std::string kHead =
    "*PPD-Adobe: \"4.3\"\n*cupsFilter: \"a/b 0 f\"\n*DriverFeatureDescription: \"/a b.xml\"\n"
    "*RequiresPageRegion All: False\n";
const std::string kOption =
    "*OpenUI *Tray: PickOne\n*OrderDependency: 10 AnySetup *Tray\n*DefaultTray: A\n"
    "*Tray A: \"code\"\n*CloseUI: *Tray\n";
const std::string kJcl = "*JCLBegin: \"b\"\n*JCLToPSInterpreter: \"p\"\n*JCLEnd: \"e\"\n";

std::string problemOf(const std::string& text, const std::string& printer = "") {
  using Ppd = std::unique_ptr<ppd_file_t, void (*)(ppd_file_t*)>;
  Ppd original(nullptr, &ppdClose);
  if (!printer.empty()) {
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::tmpfile(), &std::fclose);
    std::fputs(printer.c_str(), file.get());
    std::rewind(file.get());
    original.reset(ppdOpen(file.get()));
  }
  const auto unusable = readBack(text, kLines, original.get());
  if (!unusable) return "";
  return std::to_string(unusable->line) + ": " + unusable->reason;
}

TEST(ReadBack, GoodPpd_HasNoProblem) {
  EXPECT_EQ(problemOf(kHead), "");
  EXPECT_EQ(problemOf(kHead + kOption + kJcl, "*PPD-Adobe: \"4.3\"\n" + kOption + kJcl), "");
}

TEST(ReadBack, TextThatLibcupsCannotRead_HasItsLineAndReason) {
  // In the language of the user, as everything that libcups says.
  EXPECT_EQ(problemOf(kHead + "another-filter\"\n"),
            std::string("5: ") + ppdErrorString(PPD_MISSING_ASTERISK));
}

TEST(ReadBack, LostLine_IsNamed) {
  const std::string line = "*DriverFeatureDescription: \"/a b.xml\"";
  std::string text = kHead;
  text.replace(text.find("/a b"), 4, "/c d");
  EXPECT_EQ(problemOf(text), "0: it does not find the line " + line);
  text = kHead;
  text.replace(text.find(" All"), 4, " Big");
  EXPECT_EQ(problemOf(text), "0: it does not find the line *RequiresPageRegion All: False");
}

TEST(ReadBack, FurtherFilter_IsAProblem) {
  EXPECT_EQ(problemOf(kHead + "*cupsFilter: \"c/d 0 g\"\n"),
            "0: it finds filters that are not the queue's");
}

TEST(ReadBack, OtherOptionsThanThePrinters_AreAProblem) {
  const std::string printer = "*PPD-Adobe: \"4.3\"\n" + kOption + kJcl;
  for (const std::string part :
       {"Tray A", "code", "DefaultTray: A", "10 AnySetup", "\"b\"", "\"p\"", "\"e\""}) {
    std::string text = kHead + kOption + kJcl;
    const std::string other = part == "10 AnySetup" ? "10 Prolog" : part + "B";
    text.replace(text.find(part), part.size(), part == "code" ? "edoc" : other);
    EXPECT_EQ(problemOf(text, printer), "0: it finds other options than in the printer's PPD")
        << part;
  }
  EXPECT_EQ(problemOf(kHead + kJcl, printer),
            "0: it finds other options than in the printer's PPD");
  EXPECT_EQ(problemOf(kHead + kOption + kJcl + "*PaperDimension A4: \"595 842\"\n", printer),
            "0: it finds other options than in the printer's PPD");
}

}  // namespace
}  // namespace driver_feature::ppd
