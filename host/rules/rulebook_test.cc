#include "host/rules/rulebook.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/rule_notation.h"

namespace driver_feature::rules {

void PrintTo(const Change& change, std::ostream* out) {
  *out << change.feature << ": " << change.from << " -> " << change.to;
}

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Kind = Plan::Kind;

Domains printer() {
  return {choicesOf("Media", {"Plain", "Film", "Card"}),
          choicesOf("Duplex", {"None", "Long", "Short"}),
          choicesOf("Staple", {"Off", "On"}),
          choicesOf("Finisher", {"Missing", "Installed"}),
          choicesOf("Unit", {"Missing", "Installed"}),
          numbersOf("Copies", 1, 99)};
}

// A book whose person has made these settings, one after the other.
class Book : public Rulebook {
 public:
  Book(const std::vector<std::string>& texts, const std::vector<Assignment>& settings = {},
       Domains domains = printer())
      : Rulebook(std::move(domains), rulesOf(texts, {"Finisher", "Unit"})) {
    for (const Assignment& setting : settings) {
      set(setting);
      noteSet(setting.feature);
    }
  }
};

std::vector<int> placesOf(const std::vector<BrokenRule>& rules) {
  std::vector<int> numbers;
  for (const BrokenRule& rule : rules) numbers.push_back(rule.rule);
  return numbers;
}

TEST(Rulebook, Plan_NoRuleHolds_Fits) {
  Book book({"film: Media=Film Duplex!=None"});
  const Plan plan = book.plan({{"Media", "Film"}});
  EXPECT_EQ(plan.kind, Kind::kFits);
  EXPECT_THAT(plan.changes, IsEmpty());
  EXPECT_THAT(plan.rules, IsEmpty());
}

TEST(Rulebook, Plan_ChoiceThatARuleForbids_KeepsItAndChangesTheOther) {
  Book book({"film: Media=Film Duplex!=None"}, {{"Duplex", "Long"}});
  const Plan plan = book.plan({{"Media", "Film"}});
  EXPECT_EQ(plan.kind, Kind::kMended);
  EXPECT_THAT(plan.changes, ElementsAre(Change{"Duplex", "Long", "None"}));
  EXPECT_THAT(plan.rules, ElementsAre(BrokenRule{0, {{"Media", "Film"}, {"Duplex", "Long"}}}));
}

TEST(Rulebook, Plan_Asked_ChangesNothing) {
  Book book({"film: Media=Film Duplex!=None"}, {{"Duplex", "Long"}});
  book.plan({{"Media", "Film"}});
  EXPECT_THAT(book.held(), IsEmpty());
  EXPECT_TRUE(book.wouldConflict({"Media", "Film"}));
}

TEST(Rulebook, Plan_OneChangeOrTwo_TakesTheOne) {
  // Staple could change only together with Duplex.
  Book book({"a: Media=Film Staple=Off Copies<5", "b: Staple=On Duplex=None"});
  EXPECT_THAT(book.plan({{"Media", "Film"}}).changes, ElementsAre(Change{"Copies", "1", "5"}));
}

TEST(Rulebook, Plan_SeveralChangesNeeded_FindsTheLeastOfThem) {
  Book book({"a: Media=Film Duplex=None", "b: Media=Film Copies<3", "c: Duplex=Long Staple=Off"},
            {}, printer());
  EXPECT_THAT(book.plan({{"Media", "Film"}}).changes,
              ElementsAre(Change{"Duplex", "None", "Short"}, Change{"Copies", "1", "3"}));
}

TEST(Rulebook, Plan_ChangeForcesAnother_BothArePlanned) {
  Book book({"a: Media=Film Duplex=None", "b: Duplex!=None Staple=Off"});
  EXPECT_THAT(book.plan({{"Media", "Film"}}).changes,
              ElementsAre(Change{"Duplex", "None", "Long"}, Change{"Staple", "Off", "On"}));
}

TEST(Rulebook, Plan_AsManyChanges_PrefersADefaultToAPersonsSetting) {
  Book book({"a: Media=Film Duplex=Long Staple=Off"}, {{"Duplex", "Long"}});
  EXPECT_THAT(book.plan({{"Media", "Film"}}).changes, ElementsAre(Change{"Staple", "Off", "On"}));
}

TEST(Rulebook, Plan_FewerChanges_CountMoreThanAPersonsSetting) {
  Book book({"a: Media=Film Duplex=Long Staple=Off", "b: Staple=On Copies<5"},
            {{"Duplex", "Long"}});
  EXPECT_THAT(book.plan({{"Media", "Film"}}).changes,
              ElementsAre(Change{"Duplex", "Long", "None"}));
}

TEST(Rulebook, Plan_TwoPersonalSettings_ChangesTheOlderOne) {
  const std::vector<std::string> rules = {"a: Media=Film Duplex=Long Staple=On"};
  Book duplexFirst(rules, {{"Duplex", "Long"}, {"Staple", "On"}});
  EXPECT_THAT(duplexFirst.plan({{"Media", "Film"}}).changes,
              ElementsAre(Change{"Duplex", "Long", "None"}));
  Book stapleFirst(rules, {{"Staple", "On"}, {"Duplex", "Long"}});
  EXPECT_THAT(stapleFirst.plan({{"Media", "Film"}}).changes,
              ElementsAre(Change{"Staple", "On", "Off"}));
}

TEST(Rulebook, Plan_SettingThatWasTakenBack_CountsAsADefault) {
  Book book({"a: Media=Film Duplex=Long Staple=Off"}, {{"Staple", "Off"}, {"Duplex", "Long"}});
  book.forgetSet("Duplex");
  EXPECT_THAT(book.plan({{"Media", "Film"}}).changes,
              ElementsAre(Change{"Duplex", "Long", "None"}));
}

TEST(Rulebook, Plan_NothingElseDecides_TheOrderOfTheDescriptionDoes) {
  Book book({"a: Media=Film Duplex=None Staple=Off"});
  EXPECT_THAT(book.plan({{"Media", "Film"}}).changes,
              ElementsAre(Change{"Duplex", "None", "Long"}));
}

TEST(Rulebook, Plan_DefaultChoice_ComesBeforeTheOthers) {
  Domains domains = printer();
  domains[1].defaultChoice = "Short";
  Book book({"a: Media=Film Duplex=Long"}, {{"Duplex", "Long"}}, domains);
  EXPECT_THAT(book.plan({{"Media", "Film"}}).changes,
              ElementsAre(Change{"Duplex", "Long", "Short"}));
}

TEST(Rulebook, Plan_UnavailableChoice_IsNotTaken) {
  Domains domains = printer();
  domains[1].choices[0].isTarget = false;
  Book book({"a: Media=Film Duplex=Long"}, {{"Duplex", "Long"}}, domains);
  EXPECT_THAT(book.plan({{"Media", "Film"}}).changes,
              ElementsAre(Change{"Duplex", "Long", "Short"}));
}

TEST(Rulebook, Plan_UnavailableFeature_IsNotChanged) {
  Domains domains = printer();
  domains[1].isChangeable = false;
  Book book({"a: Media=Film Duplex=None Staple=Off"}, {}, domains);
  EXPECT_THAT(book.plan({{"Media", "Film"}}).changes, ElementsAre(Change{"Staple", "Off", "On"}));
}

TEST(Rulebook, Plan_SeveralWishesThatAreAllKept_ChangesSomethingElse) {
  Book book({"a: Media=Film Duplex=Long Copies<3"});
  EXPECT_THAT(book.plan({{"Media", "Film"}, {"Duplex", "Long"}}).changes,
              ElementsAre(Change{"Copies", "1", "3"}));
}

TEST(Rulebook, Plan_WishesThatForbidEachOther_AreImpossibleIfAllAreKept) {
  Book book({"a: Media=Film Duplex=Long"});
  const Plan plan = book.plan({{"Media", "Film"}, {"Duplex", "Long"}});
  EXPECT_EQ(plan.kind, Kind::kImpossible);
  EXPECT_THAT(placesOf(plan.rules), ElementsAre(0));
}

TEST(Rulebook, Plan_WishesThatForbidEachOther_TheNewestWins) {
  Book book({"a: Media=Film Duplex=Long"});
  const Plan plan = book.plan({{"Media", "Film"}, {"Duplex", "Long"}}, Keep::kNewest);
  EXPECT_EQ(plan.kind, Kind::kMended);
  EXPECT_THAT(plan.changes, ElementsAre(Change{"Media", "Film", "Plain"}));
}

TEST(Rulebook, Plan_SameFeatureWishedTwice_TheLastCounts) {
  Book book({"a: Media=Film Copies<3", "b: Media=Card Copies<9"});
  EXPECT_THAT(book.plan({{"Media", "Card"}, {"Media", "Film"}}).changes,
              ElementsAre(Change{"Copies", "1", "3"}));
}

TEST(Rulebook, Plan_Numbers_MoveToTheNearestAllowedValue) {
  Book book({"a: Media=Film Copies>10", "b: Media=Card Copies<30 Copies>5"}, {{"Copies", "20"}});
  EXPECT_THAT(book.plan({{"Media", "Film"}}).changes, ElementsAre(Change{"Copies", "20", "10"}));
  EXPECT_THAT(book.plan({{"Media", "Card"}}).changes, ElementsAre(Change{"Copies", "20", "30"}));
}

TEST(Rulebook, Plan_NearestNumberIsForbiddenToo_MovesOn) {
  Book book({"a: Media=Film Copies>10", "b: Media=Film Copies>4 Copies<15"}, {{"Copies", "20"}});
  EXPECT_THAT(book.plan({{"Media", "Film"}}).changes, ElementsAre(Change{"Copies", "20", "4"}));
}

TEST(Rulebook, Plan_NoNumberWithinTheLimits_IsImpossible) {
  Book book({"a: Media=Film Copies<100"});
  EXPECT_EQ(book.plan({{"Media", "Film"}}).kind, Kind::kImpossible);
}

TEST(Rulebook, Plan_Decimals_MoveToTheThreshold) {
  Domains domains = {choicesOf("Media", {"Plain", "Film"}),
                     numbersOf("Scale", 0, 9, Domain::Kind::kDecimal)};
  Book book({"a: Media=Film Scale>1.5"}, {{"Scale", "2.25"}}, domains);
  EXPECT_THAT(book.plan({{"Media", "Film"}}).changes, ElementsAre(Change{"Scale", "2.25", "1.5"}));
}

TEST(Rulebook, Plan_OnlyHardwareCouldHelp_IsImpossibleAndNamesIt) {
  Book book({"a: Duplex!=None Unit=Missing", "b: Duplex=Long Media=Film"}, {{"Media", "Film"}});
  const Plan plan = book.plan({{"Duplex", "Long"}});
  EXPECT_EQ(plan.kind, Kind::kImpossible);
  EXPECT_THAT(plan.changes, IsEmpty());
  EXPECT_THAT(placesOf(plan.rules), ElementsAre(0));
  EXPECT_THAT(plan.hardware, ElementsAre(Change{"Unit", "Missing", "Installed"}));
  EXPECT_THAT(plan.withHardware, ElementsAre(Change{"Media", "Film", "Plain"}));
}

TEST(Rulebook, Plan_HardwareOrAnotherFeature_ChangesTheOtherFeature) {
  Book book({"a: Duplex!=None Unit=Missing Media=Plain"});
  EXPECT_THAT(book.plan({{"Duplex", "Long"}}).changes,
              ElementsAre(Change{"Media", "Plain", "Film"}));
}

TEST(Rulebook, Plan_OnePieceOfHardwareOrTwo_NamesTheOne) {
  Book book({"a: Staple=On Finisher=Missing Unit=Missing", "b: Finisher=Installed Unit=Missing"});
  EXPECT_THAT(book.plan({{"Staple", "On"}}).hardware,
              ElementsAre(Change{"Unit", "Missing", "Installed"}));
}

TEST(Rulebook, Plan_NoHardwareHelps_NamesNone) {
  Book book({"a: Staple=On Media=Plain|Film|Card Unit=Missing|Installed"});
  const Plan plan = book.plan({{"Staple", "On"}});
  EXPECT_EQ(plan.kind, Kind::kImpossible);
  EXPECT_THAT(plan.hardware, IsEmpty());
}

TEST(Rulebook, Plan_PersonTellsTheHardware_TheOthersFollow) {
  Book book({"a: Duplex!=None Unit=Missing"}, {{"Unit", "Installed"}, {"Duplex", "Long"}});
  EXPECT_THAT(book.plan({{"Unit", "Missing"}}).changes,
              ElementsAre(Change{"Duplex", "Long", "None"}));
}

TEST(Rulebook, Plan_SeveralRulesForbidTogether_NamesTheseAndNoOther) {
  Book book({"spare: Media=Film Copies>50", "a: Media=Film Staple=Off",
             "spare: Staple=On Duplex=Long", "b: Media=Film Staple=On"});
  const Plan plan = book.plan({{"Media", "Film"}});
  EXPECT_EQ(plan.kind, Kind::kImpossible);
  EXPECT_THAT(plan.rules, ElementsAre(BrokenRule{1, {{"Media", "Film"}, {"Staple", "Off"}}},
                                      BrokenRule{3, {}}));
}

TEST(Rulebook, Plan_RuleHoldsByDefaultAndNothingOfItIsSet_DoesNotRefuse) {
  Book book({"a: Duplex=None Staple=Off", "b: Media=Film Copies<5"});
  EXPECT_EQ(book.plan({{"Media", "Card"}}).kind, Kind::kFits);
  EXPECT_THAT(book.plan({{"Media", "Film"}}).changes, ElementsAre(Change{"Copies", "1", "5"}));
  EXPECT_THAT(placesOf(book.held()), ElementsAre(0));
  EXPECT_THAT(book.refusing(), IsEmpty());
}

TEST(Rulebook, Plan_RuleHoldsByDefaultAndAFeatureOfItIsSet_Refuses) {
  Book book({"a: Duplex=None Staple=Off"});
  EXPECT_THAT(book.plan({{"Staple", "Off"}}).changes,
              ElementsAre(Change{"Duplex", "None", "Long"}));
  book.noteSet("Duplex");
  EXPECT_THAT(placesOf(book.refusing()), ElementsAre(0));
}

TEST(Rulebook, Plan_StepsAreUsedUp_IsNotFound) {
  Book book({"a: Media=Film Duplex=None", "b: Duplex!=None Staple=Off"});
  const Plan plan = book.plan({{"Media", "Film"}}, Keep::kAll, 3);
  EXPECT_EQ(plan.kind, Kind::kNotFound);
  EXPECT_GT(plan.steps, 3);
}

TEST(Rulebook, Plan_WishThatNoRuleCanSpeakOf_Fits) {
  Book book({"a: Media=Film Duplex!=None"});
  EXPECT_EQ(book.plan({{"Watermark", "Draft"}}).kind, Kind::kFits);
  EXPECT_EQ(book.plan({{"Copies", "many"}}).kind, Kind::kFits);
}

TEST(Rulebook, WouldConflict_RuleOfTheDefaults_IsOneForItsOwnFeaturesOnly) {
  Book book({"a: Duplex=None Staple=Off"});
  EXPECT_FALSE(book.wouldConflict({"Media", "Film"}));
  EXPECT_TRUE(book.wouldConflict({"Duplex", "None"}));
  EXPECT_FALSE(book.wouldConflict({"Duplex", "Long"}));
  EXPECT_THAT(book.refusing(), IsEmpty());
}

TEST(Rulebook, WouldConflict_Numbers_AreComparedWithTheirThresholds) {
  Book book({"a: Media=Plain Copies>10"});
  EXPECT_TRUE(book.wouldConflict({"Copies", "11"}));
  EXPECT_FALSE(book.wouldConflict({"Copies", "10"}));
  EXPECT_FALSE(book.wouldConflict({"Copies", "ten"}));
}

}  // namespace

}  // namespace driver_feature::rules
