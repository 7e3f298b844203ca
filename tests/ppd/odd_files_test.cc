// PPD files with what libcups accepts and hardly any file has.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ppd/ppd_test.h"

namespace {

using ::testing::HasSubstr;
using ::testing::Not;

class OddFilesTest : public PpdTest {};

// The lines of an option with the choice A and a custom one, whose parameter P
// has a type and limits such as "int 0 9".
std::string customOption(const std::string& name, const std::string& usual,
                         const std::string& parameter) {
  return "*OpenUI *" + name + ": PickOne\n*Default" + name + ": " + usual + "\n*" + name +
         " A: \"\"\n*CloseUI: *" + name + "\n*Custom" + name + " True: \"c\"\n*ParamCustom" + name +
         " P: 1 " + parameter + "\n";
}

TEST_F(OddFilesTest, CustomSizeWithoutPageSize_HasLibcupsOwnCode) {
  importLines(
      "*OpenUI *PageRegion: PickOne\n*DefaultPageRegion: A4\n*PageRegion A4: \"a4\"\n"
      "*CloseUI: *PageRegion\n*CustomPageSize True: \"never\"\n"
      "*ParamCustomPageSize Width: 2 points 1 900\n*ParamCustomPageSize Height: 9 points 1 900\n");
  EXPECT_EQ(section(postScript("odd", {{"PageRegion", "Custom"},
                                       {"PageRegion.Width", "300"},
                                       {"PageRegion.Height", "400"}}),
                    "AnySetup"),
            "[{\n%%BeginFeature: *CustomPageSize True\n0\n400\n0\n0\n1\n"
            "pop pop pop\n<</PageSize[5 -2 roll]/ImagingBBox null>>setpagedevice\n"
            "%%EndFeature\n} stopped cleartomark\n");
}

TEST_F(OddFilesTest, OptionInTwoGroups_SecondIsNamed) {
  const std::string errors = importLines(
      "*OpenGroup: One\n*OpenUI *Tray: PickOne\n*DefaultTray: A\n*Tray A: \"a\"\n*CloseUI: *Tray\n"
      "*CloseGroup: One\n*OpenGroup: Two\n*OpenUI *TRAY: PickOne\n*TRAY B: \"b\"\n"
      "*CloseUI: *TRAY\n*CloseGroup: Two\n");
  EXPECT_THAT(errors, HasSubstr("not carried over: option *TRAY: libcups takes another option of "
                                "the file for it\n"));
  MarkedPpd ppd = odd();
  EXPECT_EQ(section(postScript("odd"), "AnySetup"), ppd.text(PPD_ORDER_ANY));
}

TEST_F(OddFilesTest, NamesOfTheJobsFrame_AreNotTakenTwice) {
  const std::string errors =
      importLines("*OpenUI *Section.JCL: PickOne\n*Section.JCL A: \"a\"\n*CloseUI: *Section.JCL\n");
  EXPECT_THAT(errors, HasSubstr("not carried over: option *Section.JCL: the name is in use\n"));
  EXPECT_EQ(run({"check", "odd.xml"}).status, 0);
}

TEST_F(OddFilesTest, OptionWithoutChoices_IsNotSet) {
  importLines("*OpenUI *None: PickOne\n*CloseUI: *None\n");
  EXPECT_EQ(section(postScript("odd"), "AnySetup"), "");
  EXPECT_THAT(run({"show", "odd.xml"}).output,
              HasSubstr("\nNone  MultiSelect  not set  available     not set\n"));
}

TEST_F(OddFilesTest, CustomTextInExitServer_IsTheBareCode) {
  const std::string errors = importLines(
      "*OpenUI *Password: PickOne\n*OrderDependency: 10 ExitServer *Password\n"
      "*DefaultPassword: None\n*Password None: \"\"\n*CloseUI: *Password\n"
      "*CustomPassword True: \"serverdict begin\"\n*ParamCustomPassword Code: 1 int 0 9\n");
  MarkedPpd ppd = odd();
  ppd.mark("Password", "Custom.7");
  const std::string text = section(postScript("odd", {{"Password", "Custom"}}), "ExitServer");
  EXPECT_EQ(text, "serverdict begin");
  EXPECT_THAT(errors, HasSubstr("not carried over: *ParamCustomPassword Code: libcups writes no "
                                "values into ExitServer\n"));
  EXPECT_EQ(text, ppd.text(PPD_ORDER_EXIT));
}

TEST_F(OddFilesTest, CustomTextInAnotherSection_StaysThere) {
  importLines(
      "*OpenUI *Mark: PickOne\n*OrderDependency: 10 AnySetup *Mark\n*DefaultMark: None\n"
      "*Mark None: \"none\"\n*CloseUI: *Mark\n*CustomMark True: \"custom\"\n"
      "*NonUIOrderDependency: 10 PageSetup *CustomMark True\n");
  MarkedPpd ppd = odd();
  ppd.mark("Mark", "Custom");
  const std::string text = postScript("odd", {{"Mark", "Custom"}});
  EXPECT_EQ(section(text, "AnySetup"), "");
  EXPECT_EQ(section(text, "PageSetup"),
            "[{\n%%BeginFeature: *CustomMark True\ncustom\n%%EndFeature\n} stopped cleartomark\n");
  EXPECT_EQ(section(text, "AnySetup"), ppd.text(PPD_ORDER_ANY));
  EXPECT_EQ(section(text, "PageSetup"), ppd.text(PPD_ORDER_PAGE));
  EXPECT_EQ(section(postScript("odd"), "PageSetup"), "");
}

TEST_F(OddFilesTest, MoreCustomChoicesThanRoutines_RestIsNamed) {
  std::string lines;
  for (int i = 0; i < 101; ++i) {
    lines += customOption("O" + std::to_string(1000 + i), "A", "int 0 9");
  }
  const std::string errors = importLines(lines);
  EXPECT_THAT(errors, HasSubstr("not carried over: the text of choice *O1100 Custom: there are "
                                "only 100 routines for such texts\n"));
  EXPECT_THAT(errors, Not(HasSubstr("*O1099 Custom")));
  MarkedPpd ppd = odd();
  ppd.mark("O1099", "Custom.7");
  EXPECT_EQ(section(postScript("odd", {{"O1099", "Custom"}, {"O1099.P", "7"}}), "AnySetup"),
            ppd.text(PPD_ORDER_ANY));
}

TEST_F(OddFilesTest, CustomSize_OrientationAboveItsLimit_IsTheLimit) {
  importLines(
      "*OpenUI *PageSize: PickOne\n*DefaultPageSize: A4\n*PageSize A4: \"a4\"\n"
      "*CloseUI: *PageSize\n*CustomPageSize True: \"c\"\n"
      "*ParamCustomPageSize Width: 4 points 1 900\n*ParamCustomPageSize Height: 5 points 1 900\n"
      "*ParamCustomPageSize Orientation: 1 int 0 0\n");
  MarkedPpd ppd = odd();
  ppd.mark("PageSize", "Custom.300x400");
  const std::string text = section(
      postScript("odd",
                 {{"PageSize", "Custom"}, {"PageSize.Width", "300"}, {"PageSize.Height", "400"}}),
      "AnySetup");
  EXPECT_THAT(text, HasSubstr("True\n0\n0\n0\n300\n400\nc\n"));
  EXPECT_EQ(text, ppd.text(PPD_ORDER_ANY));
}

TEST_F(OddFilesTest, DefaultSourceThatRequiresARegion_RegionIsTheDefault) {
  importLines(
      "*RequiresPageRegion All: True\n"
      "*OpenUI *PageSize: PickOne\n*DefaultPageSize: A4\n*PageSize A4: \"size\"\n"
      "*CloseUI: *PageSize\n*PaperDimension A4: \"595 842\"\n"
      "*OpenUI *PageRegion: PickOne\n*DefaultPageRegion: A4\n*PageRegion A4: \"region\"\n"
      "*CloseUI: *PageRegion\n*OpenUI *InputSlot: PickOne\n*DefaultInputSlot: X\n"
      "*InputSlot X: \"i\"\n*CloseUI: *InputSlot\n");
  const std::string text = section(postScript("odd"), "AnySetup");
  EXPECT_THAT(text, HasSubstr("*PageRegion A4\nregion\n"));
  EXPECT_THAT(text, Not(HasSubstr("*PageSize")));
  MarkedPpd ppd = odd();
  EXPECT_EQ(text, ppd.text(PPD_ORDER_ANY));
}

// One option of each kind of parameter, with a custom value as its default.
TEST_F(OddFilesTest, CustomDefaults_AreTheParametersDefaults) {
  const std::string lines = customOption("Whole", "Custom.7", "int 0 99") +
                            customOption("Real", "Custom.0.5", "real 0 99") +
                            customOption("Points", "Custom.36", "points 0 99") +
                            customOption("Text", "Custom.a(b)", "string 0 99") +
                            customOption("Code", "Custom.99", "passcode 0 99");
  importLines(lines);
  const std::string text = section(postScript("odd"), "AnySetup");
  EXPECT_THAT(text, HasSubstr("*CustomText True\n(a\\050b\\051)\nc\n"));
  MarkedPpd ppd = odd();
  EXPECT_EQ(text, ppd.text(PPD_ORDER_ANY));
  EXPECT_EQ(run({"check", "odd.xml"}).status, 0);
}

TEST_F(OddFilesTest, CustomDefaultBeyondItsLimit_IsNamed) {
  const std::string errors = importLines(
      "*OpenUI *Text: PickOne\n*DefaultText: Custom.abcd\n*Text A: \"\"\n*CloseUI: *Text\n"
      "*CustomText True: \"c\"\n*ParamCustomText P: 1 string 0 3\n");
  EXPECT_EQ(errors,
            "driver-feature: odd.ppd: not carried over: the default of *ParamCustomText P: it is "
            "not within the limits\n");
  EXPECT_EQ(run({"check", "odd.xml"}).status, 0);
}

TEST_F(OddFilesTest, CustomSizeWithoutParameters_HasNoLimits) {
  const std::string errors = importLines(
      "*OpenUI *PageSize: PickOne\n*DefaultPageSize: A4\n*PageSize A4: \"a4\"\n"
      "*CloseUI: *PageSize\n*CustomPageSize True: \"c\"\n");
  EXPECT_EQ(errors, "");
  MarkedPpd ppd = odd();
  ppd.mark("PageSize", "Custom.300x400");
  EXPECT_EQ(section(postScript("odd", {{"PageSize", "Custom"},
                                       {"PageSize.Width", "300"},
                                       {"PageSize.Height", "400"}}),
                    "AnySetup"),
            ppd.text(PPD_ORDER_ANY));
}

TEST_F(OddFilesTest, LimitsThatAllowNothing_AreNamedAndLeftOut) {
  const std::string begin = "driver-feature: odd.ppd: not carried over: the limits of ";
  const std::string end = ": the least is above the greatest\n";
  EXPECT_EQ(importLines("*OpenUI *PageSize: PickOne\n*DefaultPageSize: A4\n*PageSize A4: \"\"\n"
                        "*CloseUI: *PageSize\n*CustomPageSize True: \"c\"\n"
                        "*ParamCustomPageSize Width: 1 points 90 80\n"
                        "*ParamCustomPageSize Height: 2 points 10 80\n"
                        "*OpenUI *Mark: PickOne\n*DefaultMark: A\n*Mark A: \"\"\n"
                        "*CloseUI: *Mark\n*CustomMark True: \"c\"\n"
                        "*ParamCustomMark N: 1 int 5 -5\n*ParamCustomMark R: 2 real 0.5 0.25\n"),
            begin + "*ParamCustomPageSize Width" + end + begin + "*ParamCustomMark N" + end +
                begin + "*ParamCustomMark R" + end);
  EXPECT_EQ(run({"check", "odd.xml"}).status, 0);
  EXPECT_THAT(section(postScript("odd", {{"Mark", "Custom"}, {"Mark.N", "7"}}), "AnySetup"),
              HasSubstr("\n7\n0\nc\n"));
}

}  // namespace
