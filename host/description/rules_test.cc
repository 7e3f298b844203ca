#include "host/description/rules.h"

#include <gtest/gtest.h>

namespace driver_feature::host {

namespace {

using Kind = Condition::Kind;

Condition onChoices(Kind kind) {
  return {.feature = "Media", .kind = kind, .choices = {"Film", "Labels"}};
}

Condition onNumbers(Kind kind) {
  return {.feature = "Copies", .kind = kind, .choices = {}, .number = 10};
}

TEST(ConditionTest, OnChoices_IsTrueOfTheNamedOnesOrOfAllOthers) {
  EXPECT_TRUE(isTrueOf(onChoices(Kind::kIs), "Labels"));
  EXPECT_FALSE(isTrueOf(onChoices(Kind::kIs), "Plain"));
  EXPECT_FALSE(isTrueOf(onChoices(Kind::kIs), ""));
  EXPECT_FALSE(isTrueOf(onChoices(Kind::kIsNot), "Film"));
  EXPECT_TRUE(isTrueOf(onChoices(Kind::kIsNot), "Plain"));
}

TEST(ConditionTest, OnNumbers_ExcludesTheThreshold) {
  EXPECT_TRUE(isTrueOf(onNumbers(Kind::kAbove), "10.5"));
  EXPECT_FALSE(isTrueOf(onNumbers(Kind::kAbove), "10"));
  EXPECT_FALSE(isTrueOf(onNumbers(Kind::kAbove), "-11"));
  EXPECT_TRUE(isTrueOf(onNumbers(Kind::kBelow), "-11"));
  EXPECT_FALSE(isTrueOf(onNumbers(Kind::kBelow), "10"));
}

TEST(ConditionTest, OnNumbers_OfAnotherText_IsFalse) {
  EXPECT_FALSE(isTrueOf(onNumbers(Kind::kBelow), "Plain"));
  EXPECT_FALSE(isTrueOf(onNumbers(Kind::kBelow), ""));
}

}  // namespace

}  // namespace driver_feature::host
