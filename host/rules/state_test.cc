#include "host/rules/state.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/rule_notation.h"

namespace driver_feature::rules {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

Domains threeFeatures() {
  return {choicesOf("Media", {"Plain", "Film"}), choicesOf("Duplex", {"None", "Long"}),
          numbersOf("Copies", 1, 99)};
}

TEST(State, Held_FromTheBeginning_AreTheRulesOfTheDefaults) {
  const Tables tables(rulesOf({"a: Media=Plain Copies<2", "b: Media=Film"}), threeFeatures());
  EXPECT_THAT(State(tables).held(), ElementsAre(0));
}

TEST(State, Set_ToAndFro_HoldsAsBefore) {
  const Tables tables(rulesOf({"a: Media=Film Duplex=Long", "b: Media=Film", "c: Duplex!=None"}),
                      threeFeatures());
  State state(tables);
  state.set(0, 1);
  EXPECT_THAT(state.held(), ElementsAre(1));
  state.set(1, 1);
  EXPECT_THAT(state.held(), UnorderedElementsAre(0, 1, 2));
  state.set(0, 0);
  EXPECT_THAT(state.held(), ElementsAre(2));
  state.set(1, 0);
  EXPECT_THAT(state.held(), IsEmpty());
}

TEST(State, SetNumber_AcrossThresholds_HoldsWhatIsTrueThere) {
  const Tables tables(rulesOf({"a: Copies>10", "b: Copies>20", "c: Copies<30"}), threeFeatures());
  State state(tables);
  state.setNumber(2, 50);
  EXPECT_THAT(state.held(), UnorderedElementsAre(0, 1));
  state.setNumber(2, 20);
  EXPECT_THAT(state.held(), UnorderedElementsAre(0, 2));
  EXPECT_EQ(state.number(2), 20);
}

TEST(State, Ignore_RuleThatHolds_IsGoneUntilItIsHeeded) {
  const Tables tables(rulesOf({"a: Media=Plain"}), threeFeatures());
  State state(tables);
  state.ignore(0);
  state.set(0, 1);
  state.set(0, 0);
  EXPECT_THAT(state.held(), IsEmpty());
  state.heed(0);
  EXPECT_THAT(state.held(), ElementsAre(0));
}

TEST(State, WouldHold_Choice_IsTriedAndNothingChanges) {
  const Tables tables(rulesOf({"a: Media=Film Duplex=None"}), threeFeatures());
  State state(tables);
  EXPECT_TRUE(state.wouldHold(0, 1));
  EXPECT_FALSE(state.wouldHold(1, 1));
  EXPECT_EQ(state.value(0), 0);
  EXPECT_THAT(state.held(), IsEmpty());
}

TEST(State, WouldHold_AllChoices_HasTheVerdictOfEach) {
  const Tables tables(
      rulesOf({"a: Media=Film Duplex=None", "b: Media=Card Duplex=Long"}),
      {choicesOf("Media", {"Plain", "Film", "Card"}), choicesOf("Duplex", {"None", "Long"})});
  State state(tables);
  EXPECT_THAT(state.wouldHold(0), ElementsAre(false, true, false));
  state.set(1, 1);
  EXPECT_THAT(state.wouldHold(0), ElementsAre(false, false, true));
  EXPECT_EQ(state.value(0), 0);
  EXPECT_THAT(state.held(), IsEmpty());
}

TEST(State, Work_OfAChange_IsThatOfTheRulesOfTheFeature) {
  std::vector<std::string> texts(1000, "a: Media=Film Copies>5");
  texts.emplace_back("b: Duplex=Long Copies>5");
  const Tables tables(rulesOf(texts), threeFeatures());
  State state(tables);
  const long before = state.work();
  state.set(1, 1);
  EXPECT_EQ(state.work() - before, 1);
}

}  // namespace

}  // namespace driver_feature::rules
