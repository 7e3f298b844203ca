#include "host/rules/rulebook.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/book.h"

namespace driver_feature::rules {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Kind = Plan::Kind;

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

TEST(Rulebook, Plan_AllowedNumbersOnBothSides_TakesTheNearerOneAndElseTheLower) {
  const std::vector<std::string> rules = {"a: Media=Film Copies>5 Copies<31"};
  EXPECT_THAT(Book(rules, {{"Copies", "10"}}).plan({{"Media", "Film"}}).changes,
              ElementsAre(Change{"Copies", "10", "5"}));
  EXPECT_THAT(Book(rules, {{"Copies", "27"}}).plan({{"Media", "Film"}}).changes,
              ElementsAre(Change{"Copies", "27", "31"}));
  EXPECT_THAT(Book(rules, {{"Copies", "18"}}).plan({{"Media", "Film"}}).changes,
              ElementsAre(Change{"Copies", "18", "5"}));
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

}  // namespace

}  // namespace driver_feature::rules
