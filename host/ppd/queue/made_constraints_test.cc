#include "host/ppd/queue/made_constraints.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace driver_feature::ppd {

namespace {

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Kind = host::Condition::Kind;

class MadeConstraintsTest : public testing::Test {
 protected:
  std::string linesOf(std::vector<host::Condition> conditions) {
    return constraintLines({{{"r", "", std::move(conditions)}}, {}}, options_, losses_);
  }

  // The PPD has another name for a choice of Duplex.
  MadeOptions options_ = {
      {"Duplex",
       {"Duplex", {{"None", "Simplex"}, {"DuplexTumble", "Short"}, {"DuplexNoTumble", "Long"}}}},
      {"Film", {"Film", {{"Off", "Off"}, {"A", "A"}, {"B", "B"}, {"C", "C"}}}},
      {"Lid", {"Lid", {{"Up", "Up"}, {"Down", "Down"}}}},
      {"PageSize", {"PageSize", {{"A4", "A4"}, {"A5", "A5"}}}},
      {"Staple.Left", {"Staple", {{"Left", "True"}}, true}}};
  std::vector<std::string> losses_;
};

TEST_F(MadeConstraintsTest, TwoConditions_BecomePairs) {
  EXPECT_EQ(linesOf({{"Film", Kind::kIs, {"A", "B"}}, {"Duplex", Kind::kIs, {"Long", "Gone"}}}),
            "*UIConstraints: *Film A *Duplex DuplexNoTumble\n"
            "*UIConstraints: *Film B *Duplex DuplexNoTumble\n");
  EXPECT_THAT(losses_, IsEmpty());
}

TEST_F(MadeConstraintsTest, AnyButThoseThatSayOff_NeedsNoChoice) {
  EXPECT_EQ(linesOf({{"Film", Kind::kIsNot, {"Off"}}, {"Duplex", Kind::kIsNot, {"Simplex"}}}),
            "*UIConstraints: *Film *Duplex\n");
  EXPECT_EQ(linesOf({{"Film", Kind::kIsNot, {"A"}}, {"Lid", Kind::kIs, {"Up", "Down"}}}),
            "*UIConstraints: *Film Off *Lid\n*UIConstraints: *Film B *Lid\n"
            "*UIConstraints: *Film C *Lid\n");
  EXPECT_EQ(linesOf({{"Film", Kind::kIs, {"C", "B", "A"}}, {"Lid", Kind::kIs, {"Up"}}}),
            "*UIConstraints: *Film *Lid Up\n");
  EXPECT_EQ(linesOf({{"Film", Kind::kIs, {"A"}}, {"PageSize", Kind::kIs, {"A4", "A5"}}}),
            "*UIConstraints: *Film A *PageSize A4\n*UIConstraints: *Film A *PageSize A5\n");
}

TEST_F(MadeConstraintsTest, OneCondition_IsAPairOfTheSame) {
  EXPECT_EQ(linesOf({{"Film", Kind::kIs, {"B"}}}), "*UIConstraints: *Film B *Film B\n");
}

TEST_F(MadeConstraintsTest, MoreConditions_AreOneStatement) {
  EXPECT_EQ(linesOf({{"Film", Kind::kIs, {"B"}},
                     {"Lid", Kind::kIs, {"Up"}},
                     {"Duplex", Kind::kIsNot, {"Simplex"}}}),
            "*cupsUIConstraints: \"*Film B *Lid Up *Duplex\"\n");
  const std::string name(40, 'x');
  options_[name] = {name, {{name, name}, {"y", "y"}}};
  const host::Condition condition{name, Kind::kIs, {name}};
  EXPECT_EQ(linesOf({condition, condition, condition}),
            "*cupsUIConstraints: \"*" + name + " " + name + "\n*" + name + " " + name + "\n*" +
                name + " " + name + "\"\n*End\n");
}

TEST_F(MadeConstraintsTest, ConditionThatNeverHolds_HasNoStatement) {
  EXPECT_EQ(linesOf({{"Film", Kind::kIs, {"Custom"}}, {"Lid", Kind::kIs, {"Up"}}}), "");
  EXPECT_EQ(linesOf({{"Film", Kind::kIsNot, {"Off", "A", "B", "C"}}, {"Lid", Kind::kIs, {"Up"}}}),
            "");
  EXPECT_THAT(losses_, IsEmpty());
}

TEST_F(MadeConstraintsTest, SwitchThatIsOn_IsAChoice) {
  const std::string expected = "*UIConstraints: *Staple Left *Lid Up\n";
  const host::Condition lid{"Lid", Kind::kIs, {"Up"}};
  EXPECT_EQ(linesOf({{"Staple.Left", Kind::kIs, {"True"}}, lid}), expected);
  EXPECT_EQ(linesOf({{"Staple.Left", Kind::kIsNot, {"False"}}, lid}), expected);
  EXPECT_THAT(losses_, IsEmpty());
}

TEST_F(MadeConstraintsTest, SwitchThatIsOff_IsALoss) {
  const host::Condition lid{"Lid", Kind::kIs, {"Up"}};
  EXPECT_EQ(linesOf({{"Staple.Left", Kind::kIs, {"False"}}, lid}), "");
  EXPECT_EQ(linesOf({{"Staple.Left", Kind::kIsNot, {"True"}}, lid}), "");
  EXPECT_EQ(linesOf({{"Staple.Left", Kind::kIs, {"True", "False"}}, lid}), "");
  EXPECT_THAT(losses_, Each("rule r: a PPD has no constraints on what is not chosen"));
  EXPECT_EQ(losses_.size(), 3U);
}

TEST_F(MadeConstraintsTest, WhatAPpdCannotSay_IsALoss) {
  EXPECT_EQ(linesOf({{"Film", Kind::kIs, {"A"}}, {"Copies", Kind::kAbove, {}, 10}}), "");
  EXPECT_EQ(linesOf({{"Film", Kind::kIs, {"A"}}, {"Text", Kind::kIs, {"A"}}}), "");
  for (int i = 0; i < 200; ++i) {
    options_["Lid"].choices.push_back({std::to_string(i), std::to_string(i)});
    options_["Film"].choices.push_back({std::to_string(i), std::to_string(i)});
  }
  EXPECT_EQ(linesOf({{"Film", Kind::kIsNot, {"A"}}, {"Lid", Kind::kIsNot, {"Up"}}}), "");
  EXPECT_THAT(losses_, ElementsAre("rule r: a PPD has no constraints on numbers",
                                   "rule r: the PPD has no option Text with choices",
                                   "rule r: a PPD would need too many constraints for it"));
}

}  // namespace

}  // namespace driver_feature::ppd
