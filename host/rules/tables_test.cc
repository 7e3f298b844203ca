#include "host/rules/tables.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "host/rules/state.h"
#include "support/rule_notation.h"

namespace driver_feature::rules {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::UnorderedElementsAre;

Domains mediaAndDuplex() {
  return {choicesOf("Media", {"Plain", "Film", "Foil"}), choicesOf("Duplex", {"None", "Long"}),
          numbersOf("Copies", 1, 99)};
}

TEST(Tables, Find_FeaturesOfTheDomains_HaveTheirPlace) {
  const Tables tables(rulesOf({}), mediaAndDuplex());
  EXPECT_EQ(tables.find("Duplex"), 1);
  EXPECT_EQ(tables.find("Copies"), 2);
  EXPECT_EQ(tables.find("Dup"), std::nullopt);
}

TEST(Tables, ValueOf_UnknownChoice_IsTheLastValue) {
  const Tables tables(rulesOf({}), mediaAndDuplex());
  EXPECT_EQ(tables.valueOf(0, "Foil"), 2);
  EXPECT_EQ(tables.valueOf(0, "Card"), 3);
  EXPECT_FALSE(tables.isTarget(0, 3));
}

TEST(Tables, Preferred_DefaultComesFirstAndUnavailableChoicesAreLeftOut) {
  Domain media = choicesOf("Media", {"Plain", "Film", "Foil", "Card"});
  media.defaultChoice = "Foil";
  media.choices[1].isTarget = false;
  const Tables tables(rulesOf({}), {media});
  EXPECT_THAT(tables.preferred(0), ElementsAre(2, 0, 3));
}

TEST(Tables, Preferred_DefaultIsUnavailable_IsLeftOutToo) {
  Domain media = choicesOf("Media", {"Plain", "Film"});
  media.choices[0].isTarget = false;
  const Tables tables(rulesOf({}), {media});
  EXPECT_THAT(tables.preferred(0), ElementsAre(1));
}

TEST(Tables, SetTargets_ReplacesTheTargets) {
  Tables tables(rulesOf({}), mediaAndDuplex());
  tables.setTargets(0, {0, 1, 1});
  EXPECT_THAT(tables.preferred(0), ElementsAre(1, 2));
  EXPECT_FALSE(tables.isTarget(0, 0));
}

TEST(Tables, Likeness_ChoicesThatAllRulesTreatAlike_ShareIt) {
  const Tables tables(rulesOf({"film: Media=Film|Foil Duplex!=None"}), mediaAndDuplex());
  EXPECT_EQ(tables.likeness(0, 1), tables.likeness(0, 2));
  EXPECT_NE(tables.likeness(0, 0), tables.likeness(0, 1));
}

TEST(Tables, Likeness_ChoicesOfDifferentRules_DoNotShareIt) {
  const Tables tables(rulesOf({"film: Media=Film Duplex=Long", "foil: Media=Foil Duplex=None"}),
                      mediaAndDuplex());
  EXPECT_NE(tables.likeness(0, 1), tables.likeness(0, 2));
}

// Rules that hold with Media=Film, Duplex=Long, Copies=20.
std::vector<int> heldOf(const std::vector<std::string>& rules) {
  const Tables tables(rulesOf(rules), mediaAndDuplex());
  State state(tables);
  state.set(0, 1);
  state.set(1, 1);
  state.setNumber(2, 20);
  return state.held();
}

TEST(Tables, Conditions_EachKind_HoldsForItsValues) {
  EXPECT_THAT(heldOf({"is: Media=Film", "other: Media=Foil", "several: Media=Plain|Film",
                      "isNot: Media!=Foil", "isNotFilm: Media!=Film", "none: Media!=Plain|Foil",
                      "all: Media=Plain|Film|Foil", "above: Copies>19", "notAbove: Copies>20",
                      "below: Copies<21", "notBelow: Copies<20"}),
              UnorderedElementsAre(0, 2, 3, 5, 6, 7, 9));
}

TEST(Tables, Conditions_SeveralOnOneFeature_AllCount) {
  EXPECT_THAT(heldOf({"between: Copies>10 Copies<30", "outside: Copies>10 Copies<15",
                      "same: Media=Film Media=Film|Foil", "never: Media=Film Media=Foil"}),
              UnorderedElementsAre(0, 2));
}

TEST(Tables, Conditions_ChoiceIsListedTwice_CountsOnce) {
  EXPECT_THAT(heldOf({"twice: Media=Film|Film Duplex=Long"}), ElementsAre(0));
}

TEST(Tables, Conditions_FractionOfAWholeNumber_HasNoNumberOfItsOwn) {
  EXPECT_THAT(heldOf({"above: Copies>19.5", "below: Copies<20.5", "not: Copies>20.5",
                      "neither: Copies<19.5"}),
              UnorderedElementsAre(0, 1));
}

TEST(Tables, Rules_WithUnknownNamesOrKinds_NeverHold) {
  EXPECT_THAT(heldOf({"feature: Colour=Red", "choice: Media=Card|Film", "not: Media!=Card",
                      "kind: Copies=1", "kind: Media>1", "known: Media=Film"}),
              ElementsAre(5));
}

TEST(Tables, Rules_WithoutConditionOrChoiceOrNumber_NeverHold) {
  host::Rules rules = rulesOf({"empty:", "list: Media=Film", "number: Copies>1"});
  rules.rules[1].conditions[0].choices.clear();
  rules.rules[2].conditions[0].number = std::numeric_limits<double>::quiet_NaN();
  const Tables tables(rules, mediaAndDuplex());
  EXPECT_THAT(State(tables).held(), IsEmpty());
}

TEST(Tables, Toggles_ConditionOnMostChoices_AreThoseOfTheOthers) {
  const Tables tables(
      rulesOf({"most: Media=Plain|Film|Foil Copies>1", "not: Media!=Film Copies>1"}),
      mediaAndDuplex());
  EXPECT_THAT(tables.toggles(0, 0), IsEmpty());
  EXPECT_THAT(tables.toggles(0, 1), SizeIs(1));
  EXPECT_THAT(tables.toggles(0, 3), SizeIs(1));
}

TEST(Tables, Conditions_FeatureHasNoneOfItsChoices_IsNotHolds) {
  const Tables tables(rulesOf({"is: Media=Plain|Film|Foil", "isNot: Media!=Film"}),
                      mediaAndDuplex());
  State state(tables);
  state.set(0, tables.valueOf(0, ""));
  EXPECT_THAT(state.held(), ElementsAre(1));
}

TEST(Tables, Thresholds_OfDecimals_AreComparedAsFloats) {
  const Tables tables(rulesOf({"above: Scale>0.1", "below: Scale<0.1"}),
                      {numbersOf("Scale", 0, 1, Domain::Kind::kDecimal)});
  State state(tables);
  state.setNumber(0, static_cast<double>(0.1F));
  EXPECT_THAT(state.held(), IsEmpty());
}

TEST(NumberCells, Nearest_WithinACell_StaysInsideItAndTheLimits) {
  const NumberCells cells(numbersOf("Copies", 1, 99), {10, 20});
  EXPECT_EQ(cells.count(), 5);
  EXPECT_EQ(cells.cellOf(10), 1);
  EXPECT_EQ(cells.cellOf(11), 2);
  EXPECT_EQ(cells.nearest(0, 50), 9);
  EXPECT_EQ(cells.nearest(1, 50), 10);
  EXPECT_EQ(cells.nearest(2, 50), 19);
  EXPECT_EQ(cells.nearest(2, 12), 12);
  EXPECT_EQ(cells.nearest(4, 120), 99);
}

TEST(NumberCells, Nearest_CellWithoutAllowedNumber_IsNothing) {
  EXPECT_EQ(NumberCells(numbersOf("Copies", 1, 99), {10, 11}).nearest(2, 5), std::nullopt);
  EXPECT_EQ(NumberCells(numbersOf("Copies", 5, 99), {3}).nearest(0, 5), std::nullopt);
}

TEST(NumberCells, Nearest_Decimals_IsTheNextFloat) {
  const NumberCells cells(numbersOf("Scale", 0, 9, Domain::Kind::kDecimal), {1});
  EXPECT_EQ(cells.nearest(2, 0), std::nextafter(1.0F, 2.0F));
  EXPECT_EQ(cells.nearest(0, 5), std::nextafter(1.0F, 0.0F));
}

}  // namespace

}  // namespace driver_feature::rules
