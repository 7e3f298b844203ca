// PPD files with what libcups accepts and hardly any file has.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ppd/ppd_test.h"

namespace {

using ::testing::HasSubstr;
using ::testing::Not;

class OddFilesTest : public PpdTest {
 protected:
  // Imports a file of these lines to odd.xml. Answers what is not carried over.
  std::string importLines(const std::string& lines) const {
    write("odd.ppd", "*PPD-Adobe: \"4.3\"\n" + lines);
    const RunResult result = run({"import", "odd.ppd", "--output", "odd.xml"});
    EXPECT_EQ(result.status, 0);
    return result.errors;
  }

  // As libcups reads the same file.
  MarkedPpd odd() const { return MarkedPpd((folder() / "odd.ppd").string()); }
};

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

TEST_F(OddFilesTest, CustomTextInAnotherSection_StandsThere) {
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
    const std::string name = "O" + std::to_string(1000 + i);
    lines += "*OpenUI *" + name + ": PickOne\n*Default" + name + ": A\n*" + name +
             " A: \"\"\n*CloseUI: *" + name + "\n*Custom" + name + " True: \"c\"\n*ParamCustom" +
             name + " N: 1 int 0 9\n";
  }
  const std::string errors = importLines(lines);
  EXPECT_THAT(errors, HasSubstr("not carried over: the text of choice *O1100 Custom: there are "
                                "only 100 routines for such texts\n"));
  EXPECT_THAT(errors, Not(HasSubstr("*O1099 Custom")));
  MarkedPpd ppd = odd();
  ppd.mark("O1099", "Custom.7");
  EXPECT_EQ(section(postScript("odd", {{"O1099", "Custom"}, {"O1099.N", "7"}}), "AnySetup"),
            ppd.text(PPD_ORDER_ANY));
}

// The options with equal orders change places with what is marked.
TEST_F(OddFilesTest, OrderThatDependsOnOthers_IsNamed) {
  const std::string errors = importLines(
      "*OpenUI *A: PickOne\n*OrderDependency: 20 AnySetup *A\n*DefaultA: X\n*A X: \"a\"\n"
      "*CloseUI: *A\n*OpenUI *B: PickOne\n*OrderDependency: 20 AnySetup *B\n*DefaultB: X\n"
      "*B X: \"b\"\n*CloseUI: *B\n*OpenUI *C: PickOne\n*OrderDependency: 10 AnySetup *C\n"
      "*DefaultC: Unknown\n*C X: \"c\"\n*CloseUI: *C\n");
  EXPECT_THAT(errors, HasSubstr("not carried over: the influence of *C on the order in which "
                                "libcups writes options with equal order dependencies\n"));
  MarkedPpd ppd = odd();
  EXPECT_EQ(section(postScript("odd"), "AnySetup"), ppd.text(PPD_ORDER_ANY));
}

// "False" is marked by default, and choosing a source unmarks it.
TEST_F(OddFilesTest, OrderThatDependsOnAMarkThatCanGo_IsNamed) {
  const std::string errors = importLines(
      "*OpenUI *A: PickOne\n*OrderDependency: 20 AnySetup *A\n*DefaultA: X\n*A X: \"a\"\n"
      "*CloseUI: *A\n*OpenUI *B: PickOne\n*OrderDependency: 20 AnySetup *B\n*DefaultB: X\n"
      "*B X: \"b\"\n*CloseUI: *B\n*OpenUI *InputSlot: PickOne\n"
      "*OrderDependency: 5 DocumentSetup *InputSlot\n*DefaultInputSlot: X\n*InputSlot X: \"i\"\n"
      "*CloseUI: *InputSlot\n*OpenUI *ManualFeed: Boolean\n"
      "*OrderDependency: 10 AnySetup *ManualFeed\n*DefaultManualFeed: False\n"
      "*ManualFeed False: \"m\"\n*CloseUI: *ManualFeed\n");
  EXPECT_EQ(errors,
            "driver-feature: odd.ppd: not carried over: the influence of *ManualFeed on the order "
            "in which libcups writes options with equal order dependencies\n");
  MarkedPpd ppd = odd();
  EXPECT_EQ(section(postScript("odd"), "AnySetup"), ppd.text(PPD_ORDER_ANY));
}

// A custom choice stands in the place of the option's other choices, and so
// moves nothing.
TEST_F(OddFilesTest, CustomChoiceAmongEqualOrders_MovesNothing) {
  const std::string errors = importLines(
      "*OpenUI *A: PickOne\n*OrderDependency: 20 AnySetup *A\n*DefaultA: X\n*A X: \"a\"\n"
      "*CloseUI: *A\n*OpenUI *B: PickOne\n*OrderDependency: 20 AnySetup *B\n*DefaultB: X\n"
      "*B X: \"b\"\n*CloseUI: *B\n*OpenUI *Mark: PickOne\n"
      "*OrderDependency: 10 AnySetup *Mark\n*DefaultMark: X\n*Mark X: \"m\"\n*CloseUI: *Mark\n"
      "*CustomMark True: \"c\"\n*ParamCustomMark N: 1 int 0 9\n");
  EXPECT_EQ(errors, "");
  MarkedPpd ppd = odd();
  ppd.mark("Mark", "Custom.7");
  EXPECT_EQ(section(postScript("odd", {{"Mark", "Custom"}, {"Mark.N", "7"}}), "AnySetup"),
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

// Only one of the two is ever marked.
TEST_F(OddFilesTest, PageSizeAndRegionAmongEqualOrders_CountOnce) {
  importLines(
      "*OpenUI *A: PickOne\n*OrderDependency: 20 AnySetup *A\n*DefaultA: X\n*A X: \"a\"\n"
      "*CloseUI: *A\n*OpenUI *B: PickOne\n*OrderDependency: 20 AnySetup *B\n*DefaultB: X\n"
      "*B X: \"b\"\n*CloseUI: *B\n"
      "*OpenUI *PageSize: PickOne\n*OrderDependency: 10 AnySetup *PageSize\n"
      "*DefaultPageSize: A4\n*PageSize A4: \"size\"\n*CloseUI: *PageSize\n"
      "*OpenUI *PageRegion: PickOne\n*OrderDependency: 10 AnySetup *PageRegion\n"
      "*DefaultPageRegion: A4\n*PageRegion A4: \"region\"\n*CloseUI: *PageRegion\n");
  MarkedPpd ppd = odd();
  EXPECT_EQ(section(postScript("odd"), "AnySetup"), ppd.text(PPD_ORDER_ANY));
}

}  // namespace
