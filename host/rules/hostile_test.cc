// Rules that are written only to do harm.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/rules/availability.h"
#include "host/rules/rulebook.h"
#include "support/rule_notation.h"

namespace driver_feature::rules {

namespace {

using testing::IsEmpty;
using testing::SizeIs;
using Kind = Plan::Kind;

std::string numbered(const std::string& name, int number) {
  return name + std::to_string(number);
}

Domains manyFeatures(int count, const std::vector<std::string>& choices) {
  Domains domains;
  for (int feature = 0; feature < count; ++feature) {
    domains.push_back(choicesOf(numbered("F", feature), choices));
  }
  return domains;
}

host::Condition is(const std::string& feature, const std::string& choice) {
  return {.feature = feature, .choices = {choice}};
}

// Each two of the features must differ, in fewer choices than features.
host::Rules tooManyPigeons(int pigeons, const std::vector<std::string>& holes) {
  host::Rules rules;
  for (int one = 0; one < pigeons; ++one) {
    for (int other = one + 1; other < pigeons; ++other) {
      for (const std::string& hole : holes) {
        const int id = static_cast<int>(rules.rules.size());
        rules.rules.push_back(
            {.id = numbered("r", id),
             .text = "",
             .conditions = {is(numbered("F", one), hole), is(numbered("F", other), hole)}});
      }
    }
  }
  return rules;
}

TEST(HostileRules, SearchThatGrowsBeyondAllBounds_IsGivenUp) {
  const std::vector<std::string> holes = {"a", "b", "c", "d", "e", "f", "g", "h", "i", "j"};
  Rulebook book(manyFeatures(11, holes), tooManyPigeons(11, holes));
  book.noteSet("F0");
  const Plan plan = book.plan({{"F1", "a"}}, Keep::kAll, 200'000);
  EXPECT_EQ(plan.kind, Kind::kNotFound);
  EXPECT_LT(plan.steps, 400'000);
}

TEST(HostileRules, AHundredThousandRules_AreCompiledAndResolved) {
  const int features = 400;
  host::Rules rules;
  for (int rule = 0; rule < 100'000; ++rule) {
    rules.rules.push_back({.id = numbered("r", rule),
                           .text = "",
                           .conditions = {is(numbered("F", rule % features), "b"),
                                          is(numbered("F", (rule * 7 + 1) % features), "b")}});
  }
  const Tables tables(rules, manyFeatures(features, {"a", "b", "c"}));
  State state(tables);
  Resolver resolver(state);
  for (int feature = 1; feature < features; ++feature) state.set(feature, 1);
  EXPECT_GT(state.held().size(), 90'000U);
  for (int feature = 2; feature < features; ++feature) state.set(feature, 0);
  EXPECT_THAT(state.held(), IsEmpty());
  const Resolution found = resolver.resolve({.wishes = {{0, 1}}, .stepLimit = 100'000});
  EXPECT_EQ(found.kind, Kind::kMended);
  EXPECT_EQ(found.moves, std::vector<Move>({{1, 0}}));
}

TEST(HostileRules, SixtyFourConditions_TakeOneChange) {
  host::Rules rules = rulesOf({"r:"});
  for (int feature = 0; feature < 64; ++feature) {
    rules.rules[0].conditions.push_back(is(numbered("F", feature), "b"));
  }
  Rulebook book(manyFeatures(64, {"a", "b"}), rules);
  for (int feature = 0; feature < 63; ++feature) book.set({numbered("F", feature), "b"});
  const Plan plan = book.plan({{"F63", "b"}});
  EXPECT_EQ(plan.kind, Kind::kMended);
  EXPECT_THAT(plan.changes, SizeIs(1));
}

TEST(HostileRules, ChainOfAHundredChanges_IsFollowedToItsEnd) {
  std::vector<std::string> texts;
  for (int feature = 0; feature < 100; ++feature) {
    texts.push_back("r: " + numbered("F", feature) + "=b " + numbered("F", feature + 1) + "=a");
  }
  Rulebook book(manyFeatures(101, {"a", "b"}), rulesOf(texts));
  EXPECT_THAT(book.plan({{"F0", "b"}}).changes, SizeIs(100));
}

TEST(HostileRules, ChainThatIsTooLongForAPerson_IsGivenUp) {
  std::vector<std::string> texts;
  for (int feature = 0; feature < 1100; ++feature) {
    texts.push_back("r: " + numbered("F", feature) + "=b " + numbered("F", feature + 1) + "=a");
  }
  Rulebook book(manyFeatures(1101, {"a", "b"}), rulesOf(texts));
  EXPECT_EQ(book.plan({{"F0", "b"}}).kind, Kind::kNotFound);
}

// Of which a hundred choices are impossible.
struct ManyImpossible {
  Tables tables = [] {
    std::vector<std::string> texts;
    for (int feature = 1; feature <= 100; ++feature) {
      texts.push_back("r: F0=a " + numbered("F", feature) + "=b");
    }
    return Tables(rulesOf(texts, {"F0"}), manyFeatures(101, {"a", "b"}));
  }();
  State state{tables};
  Resolver resolver{state};
};

TEST(HostileRules, ChoicesThatTakeManyStepsTogether_CountAsPossible) {
  ManyImpossible many;
  const auto findWithin = [&many](long steps) {
    return findImpossible(many.resolver, many.tables, {.ofAChoice = 1'000, .ofAll = steps});
  };
  EXPECT_THAT(findWithin(1'000'000), SizeIs(100));
  const std::vector<ImpossibleChoice> found = findWithin(100);
  EXPECT_THAT(found, SizeIs(testing::AllOf(testing::Gt(5U), testing::Lt(95U))));
  EXPECT_EQ(found.front().feature, 1);
}

TEST(HostileRules, RulesOfTheDefaults_AreStepsOfEachQuestion) {
  std::vector<std::string> texts(500, "r: F0=a F1=a");
  const Tables tables(rulesOf(texts), manyFeatures(3, {"a", "b"}));
  State state(tables);
  Resolver resolver(state);
  EXPECT_GE(resolver.isAllowed({2, 1}, 1'000).steps, 500);
}

TEST(HostileRules, ManyThresholds_CostWhatLiesBetween) {
  host::Rules rules;
  for (int rule = 0; rule < 50'000; ++rule) {
    rules.rules.push_back(ruleOf("r: N>" + std::to_string(rule) + " F0=b"));
  }
  Domains domains = manyFeatures(1, {"a", "b"});
  domains.push_back(numbersOf("N", 0, 100'000));
  const Tables tables(rules, domains);
  State state(tables);
  state.setNumber(1, 40'000);
  const long before = state.work();
  state.setNumber(1, 40'003);
  EXPECT_EQ(state.work() - before, 3);
}

TEST(HostileRules, SameRuleAThousandTimes_IsExplainedByOne) {
  Rulebook book(manyFeatures(2, {"a", "b"}),
                rulesOf(std::vector<std::string>(1000, "r: F0=b F1=a"), {"F1"}));
  const Plan plan = book.plan({{"F0", "b"}});
  EXPECT_EQ(plan.kind, Kind::kImpossible);
  EXPECT_THAT(plan.rules, SizeIs(1));
}

TEST(HostileRules, NoRulesAndNoFeatures_Fit) {
  Rulebook book({}, {});
  EXPECT_EQ(book.plan({{"F0", "b"}}).kind, Kind::kFits);
  EXPECT_THAT(book.takeOut(), IsEmpty());
  book.noteSet("F0");
  EXPECT_FALSE(book.wouldConflict({"F0", "b"}));
}

}  // namespace

}  // namespace driver_feature::rules
