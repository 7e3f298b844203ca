// Options with equal order dependencies, which change places with what else is
// marked.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ppd/ppd_test.h"

namespace {

using ::testing::HasSubstr;

class EqualOrdersTest : public PpdTest {};

// The options with equal orders change places with what is marked.
TEST_F(EqualOrdersTest, OrderThatDependsOnOthers_IsNamed) {
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
TEST_F(EqualOrdersTest, OrderThatDependsOnAMarkThatCanGo_IsNamed) {
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

// A custom choice takes the place of the option's other choices, and so moves
// nothing.
TEST_F(EqualOrdersTest, CustomChoiceAmongEqualOrders_MovesNothing) {
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

// Only one of the two is ever marked.
TEST_F(EqualOrdersTest, PageSizeAndRegionAmongEqualOrders_CountOnce) {
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

// A custom size by default among equal orders, which it moves as the size
// itself does.
TEST_F(EqualOrdersTest, CustomDefaultAmongEqualOrders_CountsOnce) {
  importLines(
      "*OpenUI *A: PickOne\n*OrderDependency: 20 AnySetup *A\n*DefaultA: X\n*A X: \"a\"\n"
      "*CloseUI: *A\n*OpenUI *B: PickOne\n*OrderDependency: 20 AnySetup *B\n*DefaultB: X\n"
      "*B X: \"b\"\n*CloseUI: *B\n*OpenUI *Mark: PickOne\n"
      "*OrderDependency: 10 AnySetup *Mark\n*DefaultMark: Custom.7\n*Mark X: \"m\"\n"
      "*CloseUI: *Mark\n*CustomMark True: \"c\"\n*ParamCustomMark N: 1 int 0 9\n");
  MarkedPpd ppd = odd();
  EXPECT_EQ(section(postScript("odd"), "AnySetup"), ppd.text(PPD_ORDER_ANY));
  ppd.mark("Mark", "X");
  EXPECT_EQ(section(postScript("odd", {{"Mark", "X"}}), "AnySetup"), ppd.text(PPD_ORDER_ANY));
}

}  // namespace
