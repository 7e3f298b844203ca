// Choices "Custom" with the values that the user gives.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ppd/ppd_test.h"

namespace {

using ::testing::HasSubstr;

class CustomTest : public PpdTest {
 protected:
  CustomTest() { errors_ = import("custom"); }

  std::string anySetup(const Settings& settings) const {
    return section(postScript("custom", settings), "AnySetup");
  }

  std::string errors_;
  MarkedPpd ppd_{sourceFile("custom")};
};

TEST_F(CustomTest, Import_WhatFeaturesCannotHold_IsNamed) {
  const std::string begin = "driver-feature: custom.ppd: not carried over: ";
  EXPECT_EQ(errors_,
            begin + "*ParamCustomPageSize WidthOffset: libcups always writes 0\n" + begin +
                "*ParamCustomPageSize HeightOffset: libcups always writes 0\n" + begin +
                "*ParamCustomPageSize Orientation: libcups always writes 2\n" + begin +
                "choice *PageRegion Custom: libcups writes *PageSize Custom in its place\n" +
                begin + "the least length 1 of *ParamCustomMark Text\n" + begin +
                "2 more parts of options, 1 other keyword; --verbose names each\n");
  EXPECT_THAT(run({"import", "custom.ppd", "--output", "custom.xml", "-v"}).errors,
              testing::EndsWith(begin + "the least length 4 of *ParamCustomMark Code\n" + begin +
                                "the least length 1 of *ParamCustomJCLPin User\n" + begin +
                                "keywords: *NickName\n"));
}

// With an order dependency of its own, in the order of the file's numbers.
TEST_F(CustomTest, PageSize_WidthAndHeight_AreWhatLibcupsWrites) {
  ppd_.mark("PageSize", "Custom.300.5x400");
  const std::string text =
      anySetup({{"PageSize", "Custom"}, {"PageSize.Width", "300.5"}, {"PageSize.Height", "400"}});
  EXPECT_THAT(text, testing::StartsWith("[{\n%%BeginFeature: *CustomPageSize True\n"
                                        "400\n300.5\n0\n0\n2\n"
                                        "pop pop pop\n<</PageSize[5 -2 roll]>>setpagedevice\n"
                                        "%%EndFeature\n} stopped cleartomark\n"
                                        "[{\n%%BeginFeature: *Mark None\n"));
  EXPECT_EQ(text, ppd_.text(PPD_ORDER_ANY));
}

TEST_F(CustomTest, PageSize_OtherChoice_WritesNoCustomText) {
  EXPECT_EQ(anySetup({{"PageSize.Width", "300"}}), ppd_.text(PPD_ORDER_ANY));
}

TEST_F(CustomTest, PageSize_OutOfLimits_IsRefused) {
  const RunResult result = run({"emit", "custom.xml", "--to", "ps", "-o", "PageSize.Width=701"});
  EXPECT_EQ(result.status, 2);
  EXPECT_THAT(result.errors, HasSubstr("701 is out of range; give a decimal number, from 100 to "
                                       "700.5 (custom.xml:"));
}

TEST_F(CustomTest, Parameters_OfEveryType_AreWhatLibcupsWrites) {
  ppd_.mark("Mark",
            "{Text=A(B)c Angle=-45 Grey=0.5 Size=12 Code=0123 Word=x%s Gamma=2 "
            "Inverse=0.25}");
  const std::string text = anySetup({{"Mark", "Custom"},
                                     {"Mark.Text", "A(B)c"},
                                     {"Mark.Angle", "-45"},
                                     {"Mark.Grey", "0.5"},
                                     {"Mark.Size", "12"},
                                     {"Mark.Code", "0123"},
                                     {"Mark.Word", "x%s"},
                                     {"Mark.Gamma", "2"},
                                     {"Mark.Inverse", "0.25"}});
  EXPECT_THAT(text, HasSubstr("[{\n%%BeginFeature: *CustomMark True\n"
                              "-45\n0.5\n(A\\050B\\051c)\n12\n(0123)\n(x%s)\n2\n0.25\n"
                              "/mark 8 array astore def\n"
                              "%%EndFeature\n} stopped cleartomark\n"));
  EXPECT_EQ(text, ppd_.text(PPD_ORDER_ANY));
}

TEST_F(CustomTest, Parameters_Features_HaveTheFilesLimits) {
  const RunResult result = run({"show", "custom.xml"});
  EXPECT_THAT(result.output, HasSubstr("\nMark.Angle          IntEntry     0        available"
                                       "          from -90 to 90\n"));
  EXPECT_THAT(result.output, HasSubstr("\nMark.Size           FloatEntry   6        available"
                                       "          from 6 to 72\n"));
  EXPECT_THAT(result.output, HasSubstr("\nMark.Code           TextEntry    \"\"       available"
                                       "          at most 8 characters, only 0-9, encrypted\n"));
  EXPECT_THAT(result.output, HasSubstr("\nMark.Text           TextEntry    \"\"       available"
                                       "          at most 20 characters, only A-Z a-z 0-9 and "
                                       "\" !\"#$%&'()*+,-./:;<=>?@[]^_`{|}~\"\n"));
  EXPECT_THAT(result.output, HasSubstr("\nJCLPin.User         TextEntry    \"\"       available"
                                       "          at most 16 characters, only A-Z a-z 0-9 and "
                                       "\" !#$%&'()*+,-./:;<=>?@[\\]^_`{|}~\"\n"));
}

TEST_F(CustomTest, Text_BackslashInPostScript_IsRefused) {
  const RunResult result = run({"emit", "custom.xml", "--to", "ps", "-o", "Mark.Text=a\\"});
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(result.output, "");
}

TEST_F(CustomTest, Choice_WithoutParameters_NeedsNoRoutine) {
  ppd_.mark("Plain", "Custom");
  const std::string text = anySetup({{"Plain", "Custom"}});
  EXPECT_THAT(text, HasSubstr("[{\n%%BeginFeature: *CustomPlain True\n/plain true def\n"
                              "%%EndFeature\n} stopped cleartomark\n"));
  EXPECT_EQ(text, ppd_.text(PPD_ORDER_ANY));
}

TEST_F(CustomTest, PickMany_CustomWithOthers_IsWhatLibcupsWrites) {
  ppd_.mark("Many", "{Number=7}");
  const std::string text =
      section(postScript("custom", {{"Many.Custom", "True"}, {"Many.Number", "7"}}), "PageSetup");
  EXPECT_EQ(text,
            "[{\n%%BeginFeature: *Many One\n/one true def\n"
            "%%EndFeature\n} stopped cleartomark\n"
            "[{\n%%BeginFeature: *CustomMany True\n7\n/many exch def\n"
            "%%EndFeature\n} stopped cleartomark\n");
  EXPECT_EQ(text, ppd_.text(PPD_ORDER_PAGE));
}

TEST_F(CustomTest, Pjl_NumbersAfterBackslashes_AreReplaced) {
  ppd_.mark("JCLPin", "{Pin=12 User=ada}");
  const std::string text =
      pjl("custom", {{"JCLPin", "Custom"}, {"JCLPin.Pin", "12"}, {"JCLPin.User", "ada"}});
  EXPECT_EQ(text,
            "\x1B%-12345X@PJL SET USER=\"ada\"\n@PJL SET PIN=12 \\ \n"
            "@PJL ENTER LANGUAGE=POSTSCRIPT\n");
  EXPECT_EQ(text, ppd_.jobStart());
}

TEST_F(CustomTest, Pjl_QuotationMarkInAText_IsRefused) {
  const RunResult result = run({"emit", "custom.xml", "--to", "pjl", "-o", "JCLPin.User=a\"b"});
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(result.output, "");
}

TEST_F(CustomTest, Check_Description_HasNoErrors) {
  const RunResult result = run({"check", "custom.xml"});
  EXPECT_EQ(result.status, 0) << result.output;
  EXPECT_THAT(result.output, HasSubstr("\n1 file checked: 0 errors, "));
}

}  // namespace
