#include "host/ppd/import/losses.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace driver_feature::ppd {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(LossesTest, Lines_EveryKind_OptionsAndConstraintsOneByOne) {
  Losses losses;
  losses.note(LossKind::kKeyword, "*Font");
  losses.note(LossKind::kConstraint, "*A *B");
  losses.note(LossKind::kOption, "choice *A x: why");
  losses.note(LossKind::kKeyword, "*NickName");
  losses.note(LossKind::kKeyword, "*Font");
  losses.note(LossKind::kText, "*A");
  losses.note(LossKind::kConstraint, "*B *A");
  EXPECT_THAT(losses.lines(),
              ElementsAre("choice *A x: why", "constraint *A *B", "constraint *B *A",
                          "texts for users: *A", "keywords: *Font (2), *NickName"));
  EXPECT_THAT(losses.lines(LossKind::kOption), ElementsAre("choice *A x: why"));
  EXPECT_EQ(losses.count(LossKind::kKeyword), 3);
  EXPECT_EQ(losses.count(LossKind::kConstraint), 2);
}

TEST(LossesTest, Note_ManyThings_KeepsTheirOrder) {
  constexpr int kThings = 200000;
  const auto nameOf = [](int thing) { return "*Option Choice" + std::to_string(200000 + thing); };
  Losses losses;
  for (int i = kThings; i-- > 0;) losses.note(LossKind::kConstraint, nameOf(i));
  for (int i = 0; i < kThings; ++i) losses.note(LossKind::kConstraint, nameOf(i));
  EXPECT_EQ(losses.count(LossKind::kConstraint), 400000);
  const std::vector<std::string> lines = losses.lines();
  ASSERT_EQ(lines.size(), 200000U);
  EXPECT_EQ(lines.front(), "constraint *Option Choice399999");
  EXPECT_EQ(lines.back(), "constraint *Option Choice200000");
}

TEST(LossesTest, Lines_NothingNoted_AreNone) {
  const Losses losses;
  EXPECT_THAT(losses.lines(), IsEmpty());
  EXPECT_THAT(losses.lines(LossKind::kText), IsEmpty());
  EXPECT_EQ(losses.count(LossKind::kText), 0);
}

}  // namespace

}  // namespace driver_feature::ppd
