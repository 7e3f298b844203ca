// Every slot of a static group, by number.

#include "raw_host.h"

#include <gmock/gmock.h>

namespace raw_slots {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using StaticGroupSlots = RawHostTest;

// The line of an operation that does not know the property "Visibility".
std::string refusal(const std::string& operation) {
  return "3 DriverFeature: DriverFeatureStaticGroup::" + operation +
         " - Unrecognized feature property:  \"Visibility\" for feature \"Quality.";
}

TEST_F(StaticGroupSlots, Memory_TablePointer_IsFollowedByTheTwoFlags) {
  EXPECT_EQ(tableOf(find("Quality")), tableOf(find("Exception")));
  EXPECT_NE(tableOf(find("Quality")), tableOf(find("Exceptions")));
  EXPECT_EQ(sensitiveFlag(find("Quality")), 1);
  EXPECT_EQ(visibleFlag(find("Quality")), 1);
}

TEST_F(StaticGroupSlots, StaticGroupSlot0_SetTextProperty_StoresTheText) {
  EXPECT_TRUE((callSlot<bool, Text, Text>(find("Quality"), 0, "PJLCommand", "@PJL")));
  EXPECT_EQ(text("Quality", "PJLCommand"), "@PJL");
  EXPECT_FALSE((callSlot<bool, Text, Text>(find("Quality"), 0, "Visibility", "true")));
  EXPECT_THAT(takeEvents(), IsEmpty());
}

TEST_F(StaticGroupSlots, StaticGroupSlot1_SetIntProperty_StoresTheType) {
  EXPECT_TRUE((callSlot<bool, Text, int>(find("Quality"), 1, "FeatureType", 7)));
  EXPECT_EQ(integer("Quality", "FeatureType"), 7);
  EXPECT_FALSE((callSlot<bool, Text, int>(find("Quality"), 1, "Visibility", 1)));
  EXPECT_THAT(takeEvents(), ElementsAre(refusal("setFeatureProperty(int)")));
}

TEST_F(StaticGroupSlots, StaticGroupSlot2_SetFloatProperty_RefusesEveryName) {
  EXPECT_FALSE((callSlot<bool, Text, float>(find("Quality"), 2, "CurrentFloatValue", 1.0F)));
  EXPECT_THAT(takeEvents(),
              ElementsAre("3 DriverFeature: DriverFeatureStaticGroup::setFeatureProperty(float) "
                          "- No float group properties for group:  \"Quality."));
}

TEST_F(StaticGroupSlots, StaticGroupSlot3_SetBoolProperty_StoresTheFlag) {
  EXPECT_TRUE((callSlot<bool, Text, bool>(find("Quality"), 3, "FeatureInGroup", true)));
  EXPECT_TRUE(flag("Quality", "FeatureInGroup"));
  EXPECT_TRUE((callSlot<bool, Text, bool>(find("Quality"), 3, "FeatureInGroup", false)));
  EXPECT_FALSE(flag("Quality", "FeatureInGroup"));
  EXPECT_FALSE((callSlot<bool, Text, bool>(find("Quality"), 3, "Visibility", false)));
  EXPECT_THAT(takeEvents(), ElementsAre(refusal("setFeatureProperty(bool)")));
}

TEST_F(StaticGroupSlots, StaticGroupSlot4_GetTextProperty_CopiesTheText) {
  std::string value = "untouched";
  EXPECT_FALSE((callSlot<bool, Text, std::string&>(find("Quality"), 4, "Visibility", value)));
  EXPECT_EQ(value, "untouched");
  EXPECT_TRUE((callSlot<bool, Text, std::string&>(find("Quality"), 4, "Name", value)));
  EXPECT_EQ(value, "Quality");
  EXPECT_THAT(takeEvents(), IsEmpty());
}

TEST_F(StaticGroupSlots, StaticGroupSlot5_GetIntProperty_StoresTheType) {
  int value = 0;
  EXPECT_TRUE((callSlot<bool, Text, int*>(find("Quality"), 5, "FeatureType", &value)));
  EXPECT_EQ(value, 6);
  EXPECT_FALSE((callSlot<bool, Text, int*>(find("Quality"), 5, "Visibility", &value)));
  EXPECT_THAT(takeEvents(), ElementsAre(refusal("getFeatureProperty(int*)")));
}

TEST_F(StaticGroupSlots, StaticGroupSlot6_GetBoolProperty_StoresTheFlag) {
  bool value = true;
  EXPECT_TRUE((callSlot<bool, Text, bool*>(find("Quality"), 6, "FeatureInGroup", &value)));
  EXPECT_FALSE(value);
  EXPECT_FALSE((callSlot<bool, Text, bool*>(find("Quality"), 6, "Visibility", &value)));
  EXPECT_THAT(takeEvents(), ElementsAre(refusal("getFeatureProperty(bool*)")));
}

TEST_F(StaticGroupSlots, StaticGroupSlot7_GetFloatProperty_RefusesEveryName) {
  float value = 1;
  EXPECT_FALSE((callSlot<bool, Text, float*>(find("Quality"), 7, "CurrentFloatValue", &value)));
  EXPECT_EQ(value, 1);
  EXPECT_THAT(takeEvents(),
              ElementsAre("3 DriverFeature: DriverFeatureStaticGroup::getFeatureProperty(float) "
                          "- No float group properties for group:  \"Quality."));
}

TEST_F(StaticGroupSlots, StaticGroupSlot8_GetFeatureType_AnswersTheCode) {
  EXPECT_EQ(callSlot<int>(find("Quality"), 8), 6);
  EXPECT_EQ(callSlot<int>(find("Exception"), 8), 7);
}

// A group has no options: slots 9 to 14 answer so, in silence.

TEST_F(StaticGroupSlots, StaticGroupSlot9_FetchNumberOfOptions_IsZero) {
  EXPECT_EQ(callSlot<int>(find("Quality"), 9), 0);
  EXPECT_THAT(takeEvents(), IsEmpty());
}

TEST_F(StaticGroupSlots, StaticGroupSlot10_FetchOptionIndexByName_IsMinusOne) {
  EXPECT_EQ((callSlot<int, Text>(find("Quality"), 10, "Toner")), -1);
  EXPECT_THAT(takeEvents(), IsEmpty());
}

TEST_F(StaticGroupSlots, StaticGroupSlot11_FetchCurrentOption_IsNull) {
  EXPECT_EQ(callSlot<void*>(find("Quality"), 11), nullptr);
  EXPECT_THAT(takeEvents(), IsEmpty());
}

TEST_F(StaticGroupSlots, StaticGroupSlot12_FetchOptionByAttribute_IsNull) {
  EXPECT_EQ((callSlot<void*, Text, Text>(find("Quality"), 12, "Name", "Toner")), nullptr);
  EXPECT_THAT(takeEvents(), IsEmpty());
}

TEST_F(StaticGroupSlots, StaticGroupSlot13_FetchOptionByName_IsNull) {
  EXPECT_EQ((callSlot<void*, std::string>(find("Quality"), 13, "Toner")), nullptr);
  EXPECT_THAT(takeEvents(), IsEmpty());
}

TEST_F(StaticGroupSlots, StaticGroupSlot14_FetchOptionByIndex_IsNull) {
  EXPECT_EQ((callSlot<void*, int>(find("Quality"), 14, 0)), nullptr);
  EXPECT_THAT(takeEvents(), IsEmpty());
}

TEST_F(StaticGroupSlots, StaticGroupSlot15_FetchNumberOfFeaturesInGroup_CountsTheMembers) {
  EXPECT_EQ(callSlot<int>(find("Quality"), 15), 2);
}

TEST_F(StaticGroupSlots, StaticGroupSlot16_FetchFeatureInGroupByIndex_AnswersInOrder) {
  void* quality = find("Quality");
  EXPECT_EQ((callSlot<void*, unsigned>(quality, 16, 0)), find("Resolution"));
  EXPECT_EQ((callSlot<void*, unsigned>(quality, 16, 1)), find("Toner"));
  EXPECT_EQ((callSlot<void*, unsigned>(quality, 16, 2)), nullptr);
  EXPECT_EQ((callSlot<void*, unsigned>(quality, 16, static_cast<unsigned>(-1))), nullptr);
}

}  // namespace
}  // namespace raw_slots
