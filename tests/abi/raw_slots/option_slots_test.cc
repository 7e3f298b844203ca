// Every slot of an option, by number.

#include "raw_host.h"

#include <gmock/gmock.h>

namespace raw_slots {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using OptionSlots = RawHostTest;

TEST_F(OptionSlots, Memory_TablePointer_IsFollowedByTheTwoFlags) {
  EXPECT_EQ(tableOf(option(0)), tableOf(option(1)));
  EXPECT_NE(tableOf(option(0)), tableOf(find("Media")));
  EXPECT_EQ(sensitiveFlag(option(0)), 1);
  EXPECT_EQ(visibleFlag(option(0)), 1);
  EXPECT_EQ(sensitiveFlag(option(2)), 0);
  EXPECT_EQ(visibleFlag(option(2)), 1);
}

TEST_F(OptionSlots, OptionSlot0_GetTextProperty_CopiesTheText) {
  std::string value = "untouched";
  EXPECT_TRUE((callSlot<bool, Text, std::string&>(option(0), 0, "PSCommand", value)));
  EXPECT_EQ(value, "a4");
  EXPECT_FALSE((callSlot<bool, Text, std::string&>(option(0), 0, "Visibility", value)));
  EXPECT_EQ(value, "a4");
  EXPECT_THAT(takeEvents(),
              ElementsAre("3 DriverFeature: DriverFeatureOption::getOptionProperty(string&) - "
                          "Unrecognized option property:  \"Visibility\" for option \"A4\"."));
}

TEST_F(OptionSlots, OptionSlot1_GetBoolProperty_StoresTheFlag) {
  bool value = true;
  EXPECT_TRUE((callSlot<bool, Text, bool*>(option(2), 1, "Sensitivity", &value)));
  EXPECT_FALSE(value);
  EXPECT_TRUE((callSlot<bool, Text, bool*>(option(2), 1, "Visibility", &value)));
  EXPECT_TRUE(value);
  EXPECT_FALSE((callSlot<bool, Text, bool*>(option(0), 1, "PSCommand", &value)));
  EXPECT_THAT(takeEvents(),
              ElementsAre("3 DriverFeature: DriverFeatureOption::getOptionProperty(bool*) - "
                          "Unrecognized option property:  \"PSCommand\" for option \"A4\"."));
}

TEST_F(OptionSlots, OptionSlot2_SetTextProperty_RenamesTheOption) {
  EXPECT_TRUE((callSlot<bool, Text, Text>(option(1), 2, "Name", "US Letter")));
  EXPECT_EQ(text("Media", "ValueString"), "US Letter");
  EXPECT_FALSE((callSlot<bool, Text, Text>(option(1), 2, "Sensitivity", "false")));
  EXPECT_THAT(takeEvents(),
              ElementsAre("3 DriverFeature: DriverFeatureOption::setOptionProperty(string) - "
                          "Unrecognized option property:  \"Sensitivity\" for option \"US "
                          "Letter\"."));
}

TEST_F(OptionSlots, OptionSlot3_SetBoolProperty_ChangesTheFlagInMemory) {
  EXPECT_TRUE((callSlot<bool, Text, bool>(option(0), 3, "Sensitivity", false)));
  EXPECT_EQ(sensitiveFlag(option(0)), 0);
  EXPECT_EQ(visibleFlag(option(0)), 1);
  EXPECT_TRUE((callSlot<bool, Text, bool>(option(0), 3, "Visibility", false)));
  EXPECT_TRUE((callSlot<bool, Text, bool>(option(0), 3, "Sensitivity", true)));
  EXPECT_EQ(sensitiveFlag(option(0)), 1);
  EXPECT_EQ(visibleFlag(option(0)), 0);
  EXPECT_THAT(takeEvents(), IsEmpty());
}

TEST_F(OptionSlots, OptionSlot4_IsConstraintSetEmpty_IsFalseOnceTheOptionIsHeldBack) {
  EXPECT_TRUE(callSlot<bool>(option(1), 4));
  EXPECT_TRUE((callSlot<bool, Text, long, bool>(find("Media"), 16, "Letter", 7, false)));
  EXPECT_FALSE(callSlot<bool>(option(1), 4));
  EXPECT_TRUE(callSlot<bool>(option(0), 4));
}

TEST_F(OptionSlots, OptionSlot5_AddConstraint_TakesEachIdOnceAndNoneBelowZero) {
  EXPECT_TRUE((callSlot<bool, const long&>(option(0), 5, 7)));
  EXPECT_FALSE((callSlot<bool, const long&>(option(0), 5, 7)));
  EXPECT_FALSE((callSlot<bool, const long&>(option(0), 5, -1)));
  EXPECT_FALSE(callSlot<bool>(option(0), 4));
}

TEST_F(OptionSlots, OptionSlot6_RemoveConstraint_EndsTheOneThatTheFeatureApplied) {
  EXPECT_FALSE((callSlot<bool, const long&>(option(1), 6, 7)));
  EXPECT_TRUE((callSlot<bool, Text, long, bool>(find("Media"), 16, "Letter", 7, false)));
  EXPECT_TRUE((callSlot<bool, const long&>(option(1), 6, 7)));
  EXPECT_FALSE((callSlot<bool, const long&>(option(1), 6, 7)));
  EXPECT_TRUE(callSlot<bool>(option(1), 4));
}

}  // namespace
}  // namespace raw_slots
