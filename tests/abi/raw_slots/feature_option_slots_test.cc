// The slots of a feature for options and constraints, by number: 9 to 16 and
// 21 to 25.

#include <set>

#include "raw_host.h"

#include <gmock/gmock.h>

namespace raw_slots {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using FeatureOptionSlots = RawHostTest;

// The line of an operation that is refused to a feature without options.
std::string nonCombobox(const std::string& words) {
  return "2 DriverFeature: DriverFeature::" + words + " of non-combobox feature \"Copies\".";
}

TEST_F(FeatureOptionSlots, FeatureSlot9_FetchNumberOfOptions_IsZeroWithoutOptions) {
  EXPECT_EQ(callSlot<int>(find("Media"), 9), 3);
  EXPECT_EQ(callSlot<int>(find("Copies"), 9), 0);
  EXPECT_THAT(takeEvents(),
              ElementsAre(nonCombobox("fetchNumberOfOptions() - Attempt to fetch nubmer of "
                                      "feature options")));
}

TEST_F(FeatureOptionSlots, FeatureSlot10_FetchOptionIndexByName_AnswersThePosition) {
  EXPECT_EQ((callSlot<int, Text>(find("Media"), 10, "A4")), 0);
  EXPECT_EQ((callSlot<int, Text>(find("Media"), 10, "Legal")), 2);
  EXPECT_EQ((callSlot<int, Text>(find("Media"), 10, "legal")), -1);
  EXPECT_THAT(takeEvents(), IsEmpty());
}

TEST_F(FeatureOptionSlots, FeatureSlot11_FetchCurrentOption_FollowsTheCurrentValue) {
  EXPECT_EQ(callSlot<void*>(find("Media"), 11), option(1));
  std::string name = "Media";
  EXPECT_EQ(function<int(std::string&, const char*, int)>("SetFeatureIntValue")(
                name, "CurrentIntValue", 2),
            1);
  EXPECT_EQ(callSlot<void*>(find("Media"), 11), option(2));
  takeEvents();
  EXPECT_EQ(callSlot<void*>(find("Copies"), 11), nullptr);
  EXPECT_THAT(
      takeEvents(),
      ElementsAre(nonCombobox("fetchCurrentOption() - Attempt to fetch current feature option")));
}

TEST_F(FeatureOptionSlots, FeatureSlot12_FetchOptionByAttribute_LooksAtThatProperty) {
  EXPECT_EQ((callSlot<void*, Text, Text>(find("Media"), 12, "PSCommand", "a4")), option(0));
  EXPECT_EQ((callSlot<void*, Text, Text>(find("Media"), 12, "PSCommand", "A4")), nullptr);
  EXPECT_THAT(takeEvents(),
              ElementsAre("3 DriverFeature: DriverFeature::fetchOptionByName() - Option with "
                          "attribute \"PSCommand\" = \"A4\" was not found."));
}

TEST_F(FeatureOptionSlots, FeatureSlot13_FetchOptionByName_TakesItsTextByValue) {
  EXPECT_EQ((callSlot<void*, std::string>(find("Media"), 13, "Legal")), option(2));
  const std::string wanted = "A name that is too long to stand inside of a text object";
  EXPECT_EQ((callSlot<void*, std::string>(find("Media"), 13, wanted)), nullptr);
  EXPECT_EQ(wanted, "A name that is too long to stand inside of a text object");
  EXPECT_THAT(takeEvents(), ElementsAre("3 DriverFeature: DriverFeature::fetchOptionByName() - "
                                        "Option \"" +
                                        wanted + "\" of feature \"Media\" was not found."));
}

TEST_F(FeatureOptionSlots, FeatureSlot14_FetchOptionByIndex_AnswersTheOptionInItsPlace) {
  void* legal = callSlot<void*, int>(find("Media"), 14, 2);
  std::string name;
  EXPECT_TRUE((callSlot<bool, Text, std::string&>(legal, 0, "Name", name)));
  EXPECT_EQ(name, "Legal");
  EXPECT_EQ((callSlot<void*, int>(find("Media"), 14, 3)), nullptr);
  EXPECT_THAT(takeEvents(),
              ElementsAre("2 DriverFeature: DriverFeature::fetchOptionByIndex() - Attempt to "
                          "fetch feature option with index out of range for feature "
                          "\"Media\"."));
}

TEST_F(FeatureOptionSlots, FeatureSlot15_GetFeatureOptionCount_IsMinusOneWithoutOptions) {
  EXPECT_EQ(callSlot<int>(find("Media"), 15), 3);
  EXPECT_EQ(callSlot<int>(find("Copies"), 15), -1);
  EXPECT_THAT(
      takeEvents(),
      ElementsAre(nonCombobox("getFeatureOptionCount() - Attempt to get feature option count")));
}

TEST_F(FeatureOptionSlots, FeatureSlot16_ApplyOptionConstraint_DisablesTheOptionAndMovesTheValue) {
  EXPECT_FALSE((callSlot<bool, Text, long, bool>(find("Media"), 16, "Letter", -1, false)));
  EXPECT_EQ(sensitiveFlag(option(1)), 1);
  EXPECT_TRUE((callSlot<bool, Text, long, bool>(find("Media"), 16, "Letter", 9, false)));
  EXPECT_EQ(sensitiveFlag(option(1)), 0);
  EXPECT_EQ(visibleFlag(option(1)), 1);
  EXPECT_EQ(text("Media", "ValueString"), "A4");
  EXPECT_THAT(takeEvents(), ElementsAre("change", "update"));
  EXPECT_TRUE((callSlot<bool, Text, long, bool>(find("Media"), 16, "Legal", 9, true)));
  EXPECT_EQ(visibleFlag(option(2)), 0);
  EXPECT_TRUE((callSlot<bool, const long&>(option(2), 6, 9)));
}

TEST_F(FeatureOptionSlots, FeatureSlot21_IsConstraintSetEmpty_ReadsTheSetInMemory) {
  EXPECT_TRUE(callSlot<bool>(find("Media"), 21));
  callSlot<std::set<long>*>(find("Media"), 24)->insert(4);
  EXPECT_FALSE(callSlot<bool>(find("Media"), 21));
  EXPECT_TRUE(callSlot<bool>(find("Copies"), 21));
}

TEST_F(FeatureOptionSlots, FeatureSlot22_AddConstraint_TakesEachIdOnceAndNoneBelowZero) {
  EXPECT_TRUE((callSlot<bool, const long&>(find("Media"), 22, 70000)));
  EXPECT_FALSE((callSlot<bool, const long&>(find("Media"), 22, 70000)));
  EXPECT_FALSE((callSlot<bool, const long&>(find("Media"), 22, -1)));
  EXPECT_THAT(*callSlot<std::set<long>*>(find("Media"), 24), ElementsAre(70000));
}

TEST_F(FeatureOptionSlots, FeatureSlot23_RemoveConstraint_TakesItOutOfTheSetInMemory) {
  EXPECT_FALSE((callSlot<bool, const long&>(find("Media"), 23, 4)));
  callSlot<std::set<long>*>(find("Media"), 24)->insert({4, 5});
  EXPECT_TRUE((callSlot<bool, const long&>(find("Media"), 23, 4)));
  EXPECT_FALSE((callSlot<bool, const long&>(find("Media"), 23, 4)));
  EXPECT_THAT(*callSlot<std::set<long>*>(find("Media"), 24), ElementsAre(5));
}

TEST_F(FeatureOptionSlots, FeatureSlot24_GetConstraintSet_AnswersEachFeaturesOwnSet) {
  auto* constraints = callSlot<std::set<long>*>(find("Media"), 24);
  ASSERT_NE(constraints, nullptr);
  EXPECT_THAT(*constraints, IsEmpty());
  EXPECT_TRUE((callSlot<bool, const long&>(find("Media"), 22, 3)));
  EXPECT_THAT(*constraints, ElementsAre(3));
  EXPECT_NE(callSlot<std::set<long>*>(find("Copies"), 24), constraints);
}

TEST_F(FeatureOptionSlots, FeatureSlot25_FetchOptionIndexByAttribute_LooksAtThatProperty) {
  EXPECT_EQ((callSlot<int, Text, Text>(find("Media"), 25, "PSCommand", "legal")), 2);
  EXPECT_EQ((callSlot<int, Text, Text>(find("Media"), 25, "PSCommand", "Legal")), -1);
  EXPECT_THAT(takeEvents(), IsEmpty());
}

}  // namespace
}  // namespace raw_slots
