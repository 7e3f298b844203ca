#include "host/ppd/custom/custom_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace driver_feature::ppd {

namespace {

TEST(CustomTextTest, Plan_WrittenAndRead_IsTheSame) {
  const CustomPlan plan{"PageSize", "Custom", {{2, "PageSize.Width", false}, {10, "-1", true}}};
  EXPECT_EQ(planText(plan), "PageSize=Custom 2=PageSize.Width 10=#-1");
  const auto read = readPlan("PageSize=Custom 2=PageSize.Width 10=#-1");
  ASSERT_TRUE(read.has_value());
  EXPECT_EQ(planText(*read), planText(plan));
  EXPECT_EQ(read->feature, "PageSize");
  EXPECT_EQ(read->option, "Custom");
  ASSERT_EQ(read->values.size(), 2U);
  EXPECT_EQ(read->values[0].order, 2);
  EXPECT_FALSE(read->values[0].isNumber);
  EXPECT_EQ(read->values[1].text, "-1");
  EXPECT_TRUE(read->values[1].isNumber);
}

TEST(CustomTextTest, Plan_EqualsSignsInNames_AreOfTheNames) {
  const auto plan = readPlan("A=b=Custom 1=A=b.c=d");
  ASSERT_TRUE(plan.has_value());
  EXPECT_EQ(plan->feature, "A=b");
  EXPECT_EQ(plan->option, "Custom");
  EXPECT_EQ(plan->values.at(0).text, "A=b.c=d");
}

TEST(CustomTextTest, Plan_NoneOrBroken_IsRefused) {
  for (const char* text : {"", " ", "PageSize", "A=B C", "A=B x=C", "A=B 1x=C", "A=B 1="}) {
    EXPECT_FALSE(readPlan(text).has_value()) << text;
  }
  EXPECT_TRUE(readPlan("A=B").has_value());
}

TEST(CustomTextTest, PostScript_Values_FollowTheSecondLine) {
  EXPECT_EQ(postScriptWithValues("[{\n%%BeginFeature: x\ncode\n", {"1", "(a)"}),
            "[{\n%%BeginFeature: x\n1\n(a)\ncode\n");
  EXPECT_EQ(postScriptWithValues("[{\n%%BeginFeature: x\ncode\n", {}),
            "[{\n%%BeginFeature: x\ncode\n");
  EXPECT_EQ(postScriptWithValues("one line", {"1"}), "one line1\n");
}

TEST(CustomTextTest, Pjl_Numbers_AreReplacedByTheirValues) {
  const std::vector<NumberedValue> values = {{1, "one"}, {12, "twelve"}, {1, "never"}};
  EXPECT_EQ(pjlWithValues("a\\1b\\12c\\2d", values), "aonebtwelvecd");
  EXPECT_EQ(pjlWithValues("\\\\1 \\x \\\"", values), "\\1 x \"");
  EXPECT_EQ(pjlWithValues("end\\", values), "end");
  EXPECT_EQ(pjlWithValues("\\99999999999999999999!", values), "!");
}

TEST(CustomTextTest, Number_HasAtMostTwelveDecimalsAndNoTrailingZeros) {
  EXPECT_EQ(customNumber(0), "0");
  EXPECT_EQ(customNumber(100), "100");
  EXPECT_EQ(customNumber(-0.5), "-0.5");
  EXPECT_EQ(customNumber(static_cast<double>(0.1F)), "0.10000000149");
  EXPECT_EQ(customNumber(1e-13), "0");
  EXPECT_EQ(customNumber(595.276), "595.276");
  EXPECT_EQ(customNumber(static_cast<double>(std::numeric_limits<float>::max())),
            "340282346638528859811704183484516925440");
}

TEST(CustomTextTest, String_NoTextEndsIt) {
  EXPECT_EQ(customString(""), "()");
  EXPECT_EQ(customString("a b~%"), "(a b~%)");
  EXPECT_EQ(customString("(\\)"), "(\\050\\134\\051)");
  EXPECT_EQ(customString("\n\x7F\xE4"), "(\\012\\177\\344)");
}

TEST(CustomTextTest, PjlText_NoTextEndsItsCommand) {
  EXPECT_EQ(customPjlText("a b~%\\"), "a b~%\\");
  EXPECT_EQ(customPjlText("\"\r\n\x1B%-12345X\xE4\x7F"), "'???%-12345X??");
}

}  // namespace

}  // namespace driver_feature::ppd
