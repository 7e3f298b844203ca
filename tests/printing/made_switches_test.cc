// Options of which several choices can be made: switches of the description in the
// PPD that the command "queue" makes, and in the jobs of its queue.

#include <gmock/gmock.h>

#include <string>

#include "printing/queue_fixture.h"

namespace {

using testing::HasSubstr;
using testing::Not;

class MadeSwitchesTest : public QueueCommandTest {
 protected:
  static std::string onOff(const std::string& name, const std::string& value = "False") {
    return feature("MultiSelect", name, "DefaultValue='" + value + "' PSCommand='%s'",
                   "<Option Name='False'/><Option Name='True' PSCommand='" + name + " '/>");
  }

  // What the PPD has after the page sizes.
  static std::string optionsOf(const std::string& ppd) {
    const std::string last = "*PaperDimension A5: \"420 595\"\n";
    const std::size_t end = ppd.rfind(last);
    return end == std::string::npos ? ppd : ppd.substr(end + last.size());
  }
};

TEST_F(MadeSwitchesTest, PickManyOfAnImportedPpd_ComesBack) {
  const std::string staples =
      "*OpenGroup: Finishing/Finish\n"
      "*OpenUI *Staple/Staples: PickMany\n*OrderDependency: 10 AnySetup *Staple\n"
      "*DefaultStaple: Right\n*Staple Right/Right one: \"\"\n*Staple Left/Left one: \"\"\n"
      "*CloseUI: *Staple\n"
      "*OpenUI *Punch: PickMany\n*OrderDependency: 10 AnySetup *Punch\n"
      "*DefaultPunch: Unknown\n*Punch Two: \"\"\n*Punch Four: \"\"\n*CloseUI: *Punch\n"
      "*CloseGroup: Finishing\n"
      "*OpenGroup: InstallableOptions/Units\n"
      "*OpenUI *Unit: PickMany\n*OrderDependency: 10 AnySetup *Unit\n"
      "*DefaultUnit: Unknown\n*Unit Stapler: \"\"\n*CloseUI: *Unit\n"
      "*CloseGroup: InstallableOptions\n"
      "*UIConstraints: *Staple Left *PageSize A5\n"
      "*de.Translation Staple/Klammern: \"\"\n*de.Staple Left/Links: \"\"\n"
      "*de.Translation Punch/Lochen: \"\"\n*de.Punch Four/Vier: \"\"\n"
      "*de.Translation Finishing/Endbearbeitung: \"\"\n"
      "*de.Translation Unit/Einheit: \"\"\n";
  write("in.ppd",
        "*PPD-Adobe: \"4.3\"\n*OpenUI *PageSize: PickOne\n*DefaultPageSize: A4\n"
        "*PageSize A4: \"a\"\n*PageSize A5: \"b\"\n*CloseUI: *PageSize\n"
        "*PaperDimension A4: \"595 842\"\n*PaperDimension A5: \"420 595\"\n" +
            staples);
  command({"import", "in.ppd", "--output", "in.xml", "--strict"});
  command({"check", "in.xml", "--ignore", "DF744", "--strict"});
  const RunResult result = queue({"in.xml"});
  EXPECT_EQ(optionsOf(result.output), staples);
  EXPECT_EQ(result.errors, "");
}

TEST_F(MadeSwitchesTest, SwitchesThatCannotBeOneOption_AreNamed) {
  describe("small.xml", {onOff("A.One", "True"), onOff("A.Two", "True"), onOff("B"), onOff("B.One"),
                         onOff("Duplex.One"), onOff("C.Custom"), onOff("C.one"), onOff("C.One"),
                         onOff("C.Two words"), onOff("Two words.One"), onOff("PageSize.One"),
                         feature("MultiSelect", "D.One", "Visibility='false'",
                                 "<Option Name='False'/><Option Name='True'/>")});
  const RunResult result = queue({"small.xml"});
  const std::string lost = "driver-feature: not in the PPD: ";
  const std::string twice =
      ": another one has this name, and a PPD does not distinguish capital from small letters\n";
  EXPECT_EQ(result.errors,
            lost + "A.One: a PPD has one default choice of A at most\n" + lost +
                "A.Two: a PPD has one default choice of A at most\n" + lost + "B.One" + twice +
                lost + "C.Custom: a PPD has this name for values of the user's own\n" + lost +
                "C.One" + twice + lost + "C.Two words: a PPD cannot have this name\n" + lost +
                "Duplex.One: a PPD has other names for the choices of this option\n" + lost +
                "PageSize.One" + twice + lost + "Two words.One: a PPD cannot have this name\n");
  EXPECT_THAT(result.output, HasSubstr("*DefaultC: Unknown\n*C one: \"\"\n*CloseUI: *C\n"));
  EXPECT_THAT(result.output, Not(HasSubstr("PickMany\n*OrderDependency: 10 AnySetup *D")));
}

TEST_F(MadeSwitchesTest, HardwareAmongSwitches_IsNotInTheirOption) {
  describe("small.xml", {onOff("A.One"), onOff("A.Two")});
  write("small.xml", "<Driver>" + read("small.xml") +
                         "<FeatureRules><Hardware Feature='A.One'/></FeatureRules></Driver>");
  const RunResult result = queue({"small.xml"});
  EXPECT_THAT(result.output, HasSubstr("*DefaultA: Unknown\n*A Two: \"\"\n*CloseUI: *A\n"));
  EXPECT_EQ(result.errors,
            "driver-feature: not in the PPD: A.One: another one has this name, and a PPD does not "
            "distinguish capital from small letters\n");
}

TEST_F(MadeSwitchesTest, Job_HasTheDefaultAndWhatItAsksFor) {
  describe("small.xml", {onOff("Staple.Left"), onOff("Staple.Right", "True"), onOff("Punch.Two"),
                         onOff("Punch.Four")});
  makeQueue("small.xml");
  EXPECT_THAT(filter("").output, HasSubstr("\nStaple.Right \n"));
  // libcups adds a choice to the default one.
  EXPECT_THAT(filter("Staple=Left").output, HasSubstr("\nStaple.Left Staple.Right \n"));
  EXPECT_THAT(filter("Punch.Two=True Punch.Four=True Staple.Right=False").output,
              HasSubstr("\nPunch.Four Punch.Two \n"));
}

}  // namespace
