#include "host/ppd/queue/plain_stamp.h"

#include <gmock/gmock.h>

#include <string>

#include "host/ppd/plain/plain_text.h"

namespace driver_feature::ppd {
namespace {

using testing::StartsWith;

const std::string kPlainHead =
    "*PPD-Adobe: \"4.3\"\n*cupsFilter: \"application/postscript 0 driver-feature-filter\"\n";
const std::string kPlainSizes =
    "*OpenUI *PageSize: PickOne\n*OrderDependency: 10 AnySetup *PageSize\n*DefaultPageSize: A4\n"
    "*PageSize A4: \"4\"\n*PageSize A5: \"5\"\n*CloseUI: *PageSize\n"
    "*PaperDimension A4: \"595 842\"\n*PaperDimension A5: \"420 595\"\n";

bool isStamped(const std::string& lines) {
  return !plainStampLine(kPlainHead + lines).empty();
}

std::string optionLines(const std::string& keyword, const std::string& section,
                        const std::string& choice) {
  return "*OpenUI *" + keyword + ": PickOne\n*OrderDependency: 10 " + section + " *" + keyword +
         "\n*Default" + keyword + ": True\n*" + keyword + " True: \"" + choice + "\"\n*CloseUI: *" +
         keyword + "\n";
}

TEST(PlainStamp, PpdReadAlike_GetsTheStampOfItsText) {
  EXPECT_EQ(plainStampLine(kPlainHead + kPlainSizes),
            "*DriverFeaturePlain: \"" + readPlainText(kPlainHead + kPlainSizes)->stamp + "\"");
}

TEST(PlainStamp, CustomChoices_AreLeftOut) {
  EXPECT_TRUE(isStamped(kPlainSizes + "*CustomPageSize True: \"pop\"\n"
                                      "*ParamCustomPageSize Width: 1 points 100 1000\n"));
}

TEST(PlainStamp, WhatOnlyLibcupsCarriesOut_IsNotStamped) {
  EXPECT_FALSE(isStamped(kPlainSizes + "*cupsEvenDuplex: True\n"));
  EXPECT_FALSE(isStamped(kPlainSizes + "*cupsMaxCopies: \"3\"\n"));
  EXPECT_FALSE(isStamped(kPlainSizes + "*cupsPJLDisplay: \"job\"\n"));
  EXPECT_FALSE(isStamped(kPlainSizes + "*PageStackOrder Upper: Reverse\n"));
  EXPECT_FALSE(isStamped(kPlainSizes + "*JobPatchFile 1: \"patch\"\n"));
  EXPECT_FALSE(isStamped(kPlainSizes + optionLines("MirrorPrint", "AnySetup", "mirror")));
  EXPECT_FALSE(isStamped(kPlainSizes + optionLines("Exit", "ExitServer", "exit")));
}

TEST(PlainStamp, JobControlLikePostScript_IsNotStamped) {
  EXPECT_TRUE(isStamped(kPlainSizes + optionLines("JCLToner", "JCLSetup", "toner")));
  EXPECT_FALSE(isStamped(kPlainSizes + optionLines("JCLToner", "JCLSetup", "%!toner")));
  const std::string change = "*JCLToPSInterpreter: \"ps<0A>\"\n";
  EXPECT_TRUE(isStamped(kPlainSizes + "*JCLBegin: \"begin<0A>\"\n" + change));
  EXPECT_FALSE(isStamped(kPlainSizes + "*JCLBegin: \"%!begin<0A>\"\n" + change));
}

TEST(PlainStamp, TextReadInAnotherWay_IsNotStamped) {
  // libcups changes such a name.
  const std::string small = "*PageSize A5: \"5\"\n";
  std::string lines = kPlainSizes;
  lines.replace(lines.find(small), small.size(), "*PageSize Custom.A5: \"5\"\n");
  EXPECT_FALSE(isStamped(lines));
}

TEST(PlainStamp, TextThatIsNoPpd_IsNotStamped) {
  EXPECT_EQ(plainStampLine("text"), "");
}

}  // namespace
}  // namespace driver_feature::ppd
