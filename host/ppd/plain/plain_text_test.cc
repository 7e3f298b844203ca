#include "host/ppd/plain/plain_text.h"

#include <gmock/gmock.h>

#include <string>

namespace driver_feature::ppd {
namespace {

using testing::ElementsAre;
using testing::Pair;

const std::string kPpd =
    "*PPD-Adobe: \"4.3\"\n"
    "*DriverFeatureDescription: \"a b.xml\"\n"
    "*% *OpenUI *Comment: PickOne\n"
    "*JCLBegin: \"<1B>%-12345X@PJL<0A>\n@PJL<0A>\"\n*End\n"
    "*OpenGroup: First/The first\n"
    "*OpenUI *PageSize/Media Size: PickOne\n"
    "*DefaultPageSize: A5/Small\n"
    "*PageSize A4/A 4: \"<</PageSize[595 842]>>\n*PageSize A3: setpagedevice\"\n*End\n"
    "*PageSize A5: \"\"\n"
    "*CloseUI: *PageSize\n"
    "*CloseGroup: First\n"
    "*JCLOpenUI *JCLToner: Boolean\n"
    "*JCLToner True: \"on\"\n"
    "*JCLCloseUI: *JCLToner\n"
    "*OpenGroup: First\n"
    "*OpenUI *InputSlot: PickOne\n"
    "*InputSlot Upper: \"1\"\n"
    "*CloseUI: *InputSlot\n"
    "*CloseGroup: First\n"
    "*DefaultInputSlot: Upper\n"
    "*DefaultOutputOrder: Reverse\n"
    "*RequiresPageRegion All: False\n";

TEST(PlainText, Options_ComeGroupByGroupWithTheirChoices) {
  const auto text = readPlainText(kPpd);
  ASSERT_TRUE(text);
  ASSERT_EQ(text->options.size(), 3U);
  const PlainOption& size = text->options[0];
  EXPECT_EQ(size.keyword, "PageSize");
  EXPECT_EQ(size.defaultName, "A5");
  ASSERT_EQ(size.choices.size(), 2U);
  EXPECT_EQ(size.choices[0].name, "A4");
  EXPECT_FALSE(size.choices[0].isBare);
  EXPECT_EQ(size.choices[1].name, "A5");
  EXPECT_TRUE(size.choices[1].isBare);
  EXPECT_EQ(text->options[1].keyword, "InputSlot");
  EXPECT_EQ(text->options[1].defaultName, "Upper");
  EXPECT_EQ(text->options[2].keyword, "JCLToner");
  EXPECT_EQ(text->options[2].defaultName, "");
}

TEST(PlainText, Choice_IsFoundInEitherCase) {
  const auto text = readPlainText(kPpd);
  ASSERT_TRUE(text);
  EXPECT_EQ(text->options[0].find("a5"), 1U);
  EXPECT_EQ(text->options[0].find("A3"), std::nullopt);
}

TEST(PlainText, Attributes_AreThoseOfTheQueueAndOfJobs) {
  const auto text = readPlainText(kPpd);
  ASSERT_TRUE(text);
  EXPECT_THAT(text->attributes, ElementsAre(Pair("DriverFeatureDescription", "a b.xml"),
                                            Pair("JCLBegin", "<1B>%-12345X@PJL<0A>\n@PJL<0A>"),
                                            Pair("RequiresPageRegion All", "False"),
                                            Pair("DefaultOutputOrder", "Reverse")));
  EXPECT_EQ(text->attribute("JCLEnd"), std::nullopt);
}

std::string changed(const std::string& from, const std::string& to) {
  std::string text = kPpd;
  text.replace(text.find(from), from.size(), to);
  return text;
}

TEST(PlainText, Stamp_ChangesWithEachLineButDefaults) {
  const std::string stamp = readPlainText(kPpd)->stamp;
  EXPECT_EQ(readPlainText(changed("*DefaultPageSize: A5", "*DefaultPageSize: A4"))->stamp, stamp);
  EXPECT_EQ(readPlainText(changed("*JCLOpenUI", "*DriverFeaturePlain: \"1\"\n*JCLOpenUI"))->stamp,
            stamp);
  EXPECT_EQ(readPlainText(changed("*CloseGroup: First\n", "*CloseGroup: First\r\n"))->stamp, stamp);
  EXPECT_NE(readPlainText(changed("\"1\"", "\"2\""))->stamp, stamp);
  EXPECT_NE(readPlainText(changed("setpagedevice", "setpagedevicf"))->stamp, stamp);
  EXPECT_NE(readPlainText(changed("*End\n", "*End\n\n"))->stamp, stamp);
  EXPECT_NE(readPlainText(changed("*CloseGroup: First\n", "*CloseGroup: \nFirst\n"))->stamp, stamp);
}

TEST(PlainText, OtherTexts_AreRefused) {
  EXPECT_FALSE(readPlainText(""));
  EXPECT_FALSE(readPlainText("\x1f\x8b"));
  EXPECT_FALSE(readPlainText(changed("PickOne\n*InputSlot", "PickMany\n*InputSlot")));
}

}  // namespace
}  // namespace driver_feature::ppd
