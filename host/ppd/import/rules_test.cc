#include "host/ppd/import/rules.h"

#include <cups/cups.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "host/base/text.h"
#include "host/ppd/ppd_file.h"
#include "support/problem_text.h"

namespace driver_feature::ppd {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// "Duplex-Tray: Duplex is On, Tray is not None/not set".
std::string ruleText(const host::Rule& rule) {
  std::vector<std::string> conditions;
  for (const host::Condition& condition : rule.conditions) {
    const bool is = condition.kind == host::Condition::Kind::kIs;
    conditions.push_back(condition.feature + (is ? " is " : " is not ") +
                         host::join(condition.choices, "/"));
  }
  return rule.id + ": " + host::join(conditions, ", ");
}

class RulesTest : public testing::Test {
 protected:
  ~RulesTest() override { std::remove(file_.c_str()); }

  // An option with choices; the first is the default.
  static std::string option(const std::string& keyword, const std::vector<std::string>& choices,
                            const std::string& type = "PickOne") {
    std::string text = "*OpenUI *" + keyword + ": " + type + "\n*Default" + keyword + ": " +
                       choices.front() + "\n";
    for (const std::string& choice : choices) text += "*" + keyword + " " + choice + ": \"\"\n";
    return text + "*CloseUI: *" + keyword + "\n";
  }

  void read(const std::string& lines) {
    std::ofstream(file_) << "*PPD-Adobe: \"4.3\"\n" << lines;
    host::Result<PpdPointer> ppd = readPpd(file_);
    ASSERT_EQ(problemText(ppd), "");
    ppd_ = std::move(*ppd);
    rules_ = rulesOf(*ppd_, losses_);
  }

  std::vector<std::string> texts() const {
    std::vector<std::string> texts;
    for (const host::Rule& rule : rules_.rules) texts.push_back(ruleText(rule));
    return texts;
  }

  // How many constraints libcups finds when the choice is made.
  int conflictsOf(const std::string& keyword, const std::string& choice) {
    ppdMarkDefaults(ppd_.get());
    ppdMarkOption(ppd_.get(), keyword.c_str(), choice.c_str());
    return ppdConflicts(ppd_.get());
  }

  std::string file_ = std::filesystem::temp_directory_path() /
                      ("driver-feature-rule-" + std::to_string(::getpid()));
  PpdPointer ppd_;
  Losses losses_;
  host::Rules rules_;
};

TEST_F(RulesTest, Pairs_OfTheSameOptions_AreGathered) {
  read(
      "*UIConstraints: *Film A *Duplex Long\n*UIConstraints: *Film A *Duplex Short\n"
      "*UIConstraints: *Film B *Duplex Short\n*NonUIConstraints: *Film B *Duplex Long\n"
      "*UIConstraints: *Duplex Long *Film A\n*UIConstraints: *Film C *Duplex Long\n" +
      option("Film", {"None", "A", "B", "C"}) + option("Duplex", {"Off", "Long", "Short"}));
  EXPECT_THAT(texts(), ElementsAre("Film-Duplex: Film is A/B, Duplex is Long/Short",
                                   "Film-Duplex-2: Film is C, Duplex is Long"));
  EXPECT_THAT(losses_.lines(), IsEmpty());
}

// As rows there would be three rules, as columns there are two.
TEST_F(RulesTest, Pairs_FewerRulesTheOtherWay_TakeThat) {
  read(
      "*UIConstraints: *Film A *Duplex Long\n*UIConstraints: *Film B *Duplex Short\n"
      "*UIConstraints: *Film C *Duplex Long\n*UIConstraints: *Film C *Duplex Short\n" +
      option("Film", {"None", "A", "B", "C"}) + option("Duplex", {"Off", "Long", "Short"}));
  EXPECT_THAT(texts(), ElementsAre("Film-Duplex: Film is A/C, Duplex is Long",
                                   "Film-Duplex-2: Film is B/C, Duplex is Short"));
}

TEST_F(RulesTest, NoChoice_StandsForAnyButThoseThatSayOff) {
  read("*UIConstraints: *Tray *Film A\n*UIConstraints: *Film B *Lid\n" +
       option("Tray", {"OFF", "None", "T1", "False"}) + option("Film", {"N", "A", "B"}) +
       option("Lid", {"Up", "Down"}));
  EXPECT_THAT(texts(), ElementsAre("Tray-Film: Tray is not OFF/None/False, Film is A",
                                   "Film-Lid: Film is B, Lid is Up/Down"));
}

// The option's default is not one of its choices.
TEST_F(RulesTest, NoChoice_OptionCanBeUnset_IsNotThatEither) {
  read(
      "*UIConstraints: *Tray *Film A\n*OpenUI *Tray: PickOne\n*DefaultTray: Unknown\n"
      "*Tray T1: \"\"\n*CloseUI: *Tray\n" +
      option("Film", {"N", "A"}));
  EXPECT_THAT(texts(), ElementsAre("Tray-Film: Tray is not not set, Film is A"));
  EXPECT_EQ(conflictsOf("Film", "A"), 0);
}

TEST_F(RulesTest, PageSize_IsTheSameAsPageRegion) {
  const std::string sizes =
      "*PaperDimension A4: \"595 842\"\n*PaperDimension A5: \"420 595\"\n"
      "*VariablePaperSize: True\n*CustomPageSize True: \"pop\"\n"
      "*ParamCustomPageSize Width: 1 points 100 842\n"
      "*ParamCustomPageSize Height: 2 points 148 1191\n";
  read("*UIConstraints: *PageSize A5 *Film A\n*UIConstraints: *Film A *CustomPageSize True\n" +
       option("PageSize", {"A4", "A5"}) + option("PageRegion", {"A4", "A5"}) + sizes +
       option("Film", {"N", "A"}));
  EXPECT_THAT(texts(), ElementsAre("PageSize-Film: PageSize is A5/Custom, Film is A",
                                   "PageRegion-Film: PageRegion is A5, Film is A"));
  ppdMarkDefaults(ppd_.get());
  ppdMarkOption(ppd_.get(), "PageRegion", "A5");
  ppdMarkOption(ppd_.get(), "Film", "A");
  EXPECT_EQ(ppdConflicts(ppd_.get()), 1);
}

TEST_F(RulesTest, OptionOfSeveralChoices_IsOneFeatureForEach) {
  read("*UIConstraints: *Staple *Film A\n*UIConstraints: *Film B *Staple Left\n" +
       option("Staple", {"None", "Left", "Right"}, "PickMany") + option("Film", {"N", "A", "B"}));
  EXPECT_THAT(texts(), ElementsAre("Staple.Left-Film: Staple.Left is True, Film is A/B",
                                   "Staple.Right-Film: Staple.Right is True, Film is A"));
}

TEST_F(RulesTest, MoreThanTwoConditions_StayTogether) {
  read(
      "*cupsUIConstraints a: \"*Film A *Duplex On  *Unit\"\n"
      "*cupsUIConstraints: \"*Duplex On *Unit *Film A\"\n*cupsUIConstraints: \"*Film B\"\n" +
      option("Film", {"N", "A", "B"}) + option("Duplex", {"Off", "On"}) +
      option("Unit", {"False", "True"}));
  EXPECT_THAT(texts(), ElementsAre("Film-Duplex-Unit: Film is A, Duplex is On, Unit is not False",
                                   "Film: Film is B"));
  EXPECT_EQ(conflictsOf("Film", "B"), 1);
}

TEST_F(RulesTest, ConditionsOfOneOption_BecomeOneOrNever) {
  read(
      "*UIConstraints: *Film A *Film A\n*UIConstraints: *Film *Film B\n"
      "*UIConstraints: *Film B *Film C\n*UIConstraints: *Film None *Film\n" +
      option("Film", {"None", "A", "B", "C"}));
  EXPECT_THAT(texts(), ElementsAre("Film: Film is A/B"));
  EXPECT_EQ(conflictsOf("Film", "A"), 1);
  EXPECT_EQ(conflictsOf("Film", "B"), 1);
  EXPECT_EQ(conflictsOf("Film", "C"), 0);
  EXPECT_EQ(conflictsOf("Film", "None"), 0);
}

TEST_F(RulesTest, UnknownNames_AreLeftOutAsByLibcups) {
  read(
      "*UIConstraints: *Film A *Nothing\n*UIConstraints: *Film A *Duplex Maybe\n"
      "*cupsUIConstraints: \"*Film A *Nothing B *Duplex On\"\n"
      "*cupsUIConstraints: \"nothing\"\n" +
      option("Film", {"None", "A"}) + option("Duplex", {"Off", "On"}));
  EXPECT_THAT(texts(), IsEmpty());
  EXPECT_EQ(conflictsOf("Film", "A"), 0);
  EXPECT_THAT(losses_.lines(), ElementsAre("keywords: constraints on options and choices that it "
                                           "does not have (3)"));
}

TEST_F(RulesTest, NamesInOtherCase_AreTheSame) {
  read("*UIConstraints: *FILM a *duplex ON\n" + option("Film", {"None", "A"}) +
       option("Duplex", {"Off", "On"}));
  EXPECT_THAT(texts(), ElementsAre("Film-Duplex: Film is A, Duplex is On"));
}

TEST_F(RulesTest, TooManyAlternatives_AreALoss) {
  std::vector<std::string> choices;
  for (int i = 0; i < 40; ++i) choices.push_back("C" + std::to_string(i));
  read("*UIConstraints: *One *Two\n*UIConstraints: *One C1 *Two\n" +
       option("One", choices, "PickMany") + option("Two", choices, "PickMany"));
  EXPECT_EQ(rules_.rules.size(), 40U);
  EXPECT_THAT(losses_.lines(),
              ElementsAre("constraint *One *Two: it would take more than 1000 rules"));
}

TEST_F(RulesTest, InstallableOptions_AreHardware) {
  read("*OpenGroup: InstallableOptions/Units\n" + option("Unit", {"False", "True"}) +
       option("Trays", {"T1", "T2"}, "PickMany") +
       "*CloseGroup: InstallableOptions\n*OpenGroup: Other\n" + option("Film", {"N", "A"}) +
       "*CloseGroup: Other\n");
  std::vector<std::string> names;
  for (const host::HardwareFeature& feature : rules_.hardware) names.push_back(feature.name);
  EXPECT_THAT(names, ElementsAre("Unit", "Trays.T1", "Trays.T2"));
}

}  // namespace

}  // namespace driver_feature::ppd
