// PPD files with numbers that libcups leaves out or reads as something else.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>

#include "ppd/ppd_test.h"

namespace {

using ::testing::HasSubstr;
using ::testing::Not;

constexpr const char* kBegin = "driver-feature: odd.ppd: not carried over: ";
constexpr const char* kNeverWritten =
    ": libcups never writes it, because its order dependency is below 0\n";

// An option with one choice.
std::string option(const std::string& name, const std::string& order) {
  return "*OpenUI *" + name + ": PickOne\n*OrderDependency: " + order + " AnySetup *" + name +
         "\n*Default" + name + ": X\n*" + name + " X: \"" + name + "\"\n*CloseUI: *" + name + "\n";
}

class OddNumbersTest : public PpdTest {
 protected:
  // Whether each section is what libcups writes, after these choices too.
  void expectWhatLibcupsWrites(const std::string& keyword = "", const std::string& choice = "",
                               const Settings& settings = {}) const {
    MarkedPpd ppd = odd();
    if (!keyword.empty()) ppd.mark(keyword, choice);
    const std::string text = postScript("odd", settings);
    for (const auto& [name, section] :
         {std::pair("AnySetup", PPD_ORDER_ANY), std::pair("PageSetup", PPD_ORDER_PAGE)}) {
      const std::string own = PpdTest::section(text, name);
      EXPECT_EQ(own.starts_with("no section") ? "" : own, ppd.text(section)) << name;
    }
    EXPECT_EQ(run({"check", "odd.xml"}).status, 0);
  }
};

// C would change the places of A and B, if libcups took it.
TEST_F(OddNumbersTest, OrderBelowZero_OptionIsNotWrittenAndMovesNothing) {
  const std::string errors = importLines(option("A", "20") + option("B", "20") + option("C", "-5"));
  EXPECT_EQ(errors, kBegin + std::string("the code of option *C") + kNeverWritten);
  EXPECT_THAT(section(postScript("odd"), "AnySetup"), Not(HasSubstr("*C")));
  expectWhatLibcupsWrites();
  // Who prints can still choose it.
  EXPECT_EQ(run({"emit", "odd.xml", "--to", "ps", "-o", "C=X"}).status, 0);
}

TEST_F(OddNumbersTest, OrderOfEverySign_IsWhatLibcupsWrites) {
  for (const char* order : {"-1", "-0.001", "-1e999", "-0", "0", "nan", "-nan", "inf", "-inf",
                            "1e999", "1e-999", "-1e-999", "+5", "x"}) {
    importLines(option("A", "20") + option("Odd", order) + option("Z", "20"));
    SCOPED_TRACE(order);
    expectWhatLibcupsWrites();
  }
}

TEST_F(OddNumbersTest, OrderBelowZero_PickManyAndJcl_AreNotWritten) {
  const std::string errors = importLines(
      "*JCLBegin: \"begin\"\n*JCLToPSInterpreter: \"enter\"\n"
      "*JCLOpenUI *JCLQuality: PickOne\n*OrderDependency: -10 JCLSetup *JCLQuality\n"
      "*DefaultJCLQuality: X\n*JCLQuality X: \"quality\"\n*JCLCloseUI: *JCLQuality\n"
      "*OpenUI *Many: PickMany\n*OrderDependency: -1 AnySetup *Many\n*DefaultMany: X\n"
      "*Many X: \"x\"\n*Many Y: \"y\"\n*CloseUI: *Many\n");
  EXPECT_THAT(errors, HasSubstr(std::string("the code of option *JCLQuality") + kNeverWritten));
  EXPECT_THAT(errors, HasSubstr(std::string("the code of option *Many") + kNeverWritten));
  EXPECT_EQ(pjl("odd"), "beginenter");
  MarkedPpd ppd = odd();
  EXPECT_EQ(pjl("odd"), ppd.jobStart());
  expectWhatLibcupsWrites("Many", "Y", {{"Many.Y", "True"}});
}

// An option A with a custom choice, which has a place of its own.
std::string customLines(const std::string& order, const std::string& customOrder) {
  return option("A", order) + option("B", "20") + option("C", "20") + "*CustomA True: \"c\"\n" +
         "*ParamCustomA P: 1 int 0 9\n*NonUIOrderDependency: " + customOrder +
         " PageSetup *CustomA True\n";
}

TEST_F(OddNumbersTest, OrderBelowZero_OfACustomChoiceAlone_LosesItsText) {
  for (const char* order : {"-3", "nan", "-inf"}) {
    SCOPED_TRACE(order);
    EXPECT_EQ(importLines(customLines("10", order)),
              kBegin + std::string("the text of choice *A Custom") + kNeverWritten);
    expectWhatLibcupsWrites();
    expectWhatLibcupsWrites("A", "Custom.7", {{"A", "Custom"}});
  }
}

TEST_F(OddNumbersTest, OrderBelowZero_OfTheOptionAlone_CustomChoiceIsWritten) {
  EXPECT_EQ(importLines(customLines("-10", "5")),
            kBegin + std::string("the code of option *A") + kNeverWritten);
  expectWhatLibcupsWrites();
  expectWhatLibcupsWrites("A", "Custom.7", {{"A", "Custom"}, {"A.P", "7"}});
  EXPECT_THAT(section(postScript("odd", {{"A", "Custom"}, {"A.P", "7"}}), "PageSetup"),
              HasSubstr("*CustomA True\n7\nc\n"));
}

TEST_F(OddNumbersTest, LimitsThatAreNotFiniteNumbers_AreNamedAndLeftOut) {
  const std::string lines =
      "*OpenUI *PageSize: PickOne\n*DefaultPageSize: A4\n*PageSize A4: \"a4\"\n"
      "*CloseUI: *PageSize\n*PaperDimension A4: \"595 842\"\n*CustomPageSize True: \"c\"\n"
      "*ParamCustomPageSize Width: 1 points 36 inf\n"
      "*ParamCustomPageSize Height: 2 points -1e999 1e999\n" +
      option("Mark", "10") +
      "*CustomMark True: \"c\"\n*ParamCustomMark N: 1 int 0 inf\n"
      "*ParamCustomMark O: 2 int -99999999999 1e99\n*ParamCustomMark R: 3 real nan 1e39\n"
      "*ParamCustomMark T: 4 string 0 inf\n";
  importLines(lines);
  const std::string errors = run({"import", "odd.ppd", "--output", "odd.xml", "-v"}).errors;
  for (const char* limit :
       {"inf of *ParamCustomPageSize Width", "-1e999 of *ParamCustomPageSize Height",
        "1e999 of *ParamCustomPageSize Height", "inf of *ParamCustomMark N",
        "-99999999999 of *ParamCustomMark O", "1e99 of *ParamCustomMark O",
        "nan of *ParamCustomMark R", "1e39 of *ParamCustomMark R", "inf of *ParamCustomMark T"}) {
    EXPECT_THAT(errors, HasSubstr(kBegin + std::string("the limit ") + limit +
                                  ": it is not a number that fits\n"));
  }
  const std::string features = run({"show", "odd.xml"}).output;
  EXPECT_THAT(features,
              HasSubstr("Mark.N           IntEntry     0      available          at least 0\n"));
  EXPECT_THAT(features,
              HasSubstr("PageSize.Width   FloatEntry   595    available          at least 36\n"));
  EXPECT_THAT(features, Not(HasSubstr("inf")));
  const Settings values = {{"Mark", "Custom"},
                           {"Mark.N", "700"},
                           {"Mark.O", "-800"},
                           {"Mark.R", "0.5"},
                           {"Mark.T", "long text"}};
  expectWhatLibcupsWrites("Mark", "{N=700 O=-800 R=0.5 T='long text'}", values);
  expectWhatLibcupsWrites(
      "PageSize", "Custom.3000x4000",
      {{"PageSize", "Custom"}, {"PageSize.Width", "3000"}, {"PageSize.Height", "4000"}});
}

TEST_F(OddNumbersTest, LimitsWithADecimalPointOrASign_AreLimits) {
  EXPECT_EQ(importLines(option("Mark", "10") +
                        "*CustomMark True: \"c\"\n*ParamCustomMark N: 1 int +1 7.0\n"
                        "*ParamCustomMark R: 2 real -.5 +1e3\n"),
            "");
  const std::string features = run({"show", "odd.xml"}).output;
  EXPECT_THAT(features, HasSubstr("from 1 to 7\n"));
  EXPECT_THAT(features, HasSubstr("from -0.5 to 1000\n"));
}

// libcups writes them as they are.
TEST_F(OddNumbersTest, CustomDefaultsThatNoDescriptionHolds_AreNamed) {
  const auto lines = [](const std::string& value) {
    return "*OpenUI *Mark: PickOne\n*DefaultMark: Custom." + value +
           "\n*Mark X: \"\"\n*CloseUI: *Mark\n*CustomMark True: \"c\"\n"
           "*ParamCustomMark R: 1 real 0 9\n";
  };
  for (const char* value : {"1e999", "-1e999", "10"}) {
    EXPECT_EQ(importLines(lines(value)),
              kBegin + std::string("the default of *ParamCustomMark R: it is not within the "
                                   "limits\n"))
        << value;
    EXPECT_EQ(run({"check", "odd.xml"}).status, 0);
  }
  EXPECT_EQ(importLines(lines("5")), "");
  expectWhatLibcupsWrites();
}

}  // namespace
