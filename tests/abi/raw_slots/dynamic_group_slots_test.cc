// The slots of a dynamic group that a feature has as well, by number: 0 to 14
// and 21 to 24.

#include "raw_host.h"

#include <gmock/gmock.h>

namespace raw_slots {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using DynamicGroupSlots = RawHostTest;

std::string line(const std::string& text) {
  return "3 DriverFeature: DriverFeatureDynamicGroup::" + text;
}

TEST_F(DynamicGroupSlots, Memory_TablePointer_IsFollowedByTheTwoFlags) {
  void* group = find("Exceptions");
  std::string name = "Exceptions";
  auto* set = function<int(std::string&, const char*, bool)>("SetFeatureBoolValue");
  EXPECT_EQ(set(name, "Sensitivity", false), 1);
  EXPECT_EQ(sensitiveFlag(group), 0);
  EXPECT_EQ(visibleFlag(group), 1);
}

TEST_F(DynamicGroupSlots, DynamicGroupSlot0_SetTextProperty_StoresTheText) {
  EXPECT_TRUE((callSlot<bool, Text, Text>(find("Exceptions"), 0, "TESKAttributeSyntax", "x")));
  EXPECT_EQ(text("Exceptions", "TESKAttributeSyntax"), "x");
  EXPECT_FALSE((callSlot<bool, Text, Text>(find("Exceptions"), 0, "RecordInFocus", "1")));
  EXPECT_THAT(takeEvents(), IsEmpty());
}

TEST_F(DynamicGroupSlots, DynamicGroupSlot1_SetIntProperty_StoresAndNotifies) {
  EXPECT_TRUE((callSlot<bool, Text, int>(find("Exceptions"), 1, "RecordInFocus", 5)));
  EXPECT_EQ(integer("Exceptions", "RecordInFocus"), 5);
  EXPECT_THAT(takeEvents(), ElementsAre("update"));
}

TEST_F(DynamicGroupSlots, DynamicGroupSlot2_SetFloatProperty_RefusesEveryName) {
  EXPECT_FALSE((callSlot<bool, Text, float>(find("Exceptions"), 2, "RecordInFocus", 1.0F)));
  EXPECT_THAT(takeEvents(),
              ElementsAre(line("setFeaturePropertyWithConstraintControl(float) - No float group "
                               "properties for group:  \"Exceptions.")));
}

TEST_F(DynamicGroupSlots, DynamicGroupSlot3_SetBoolProperty_StoresAndNotifies) {
  EXPECT_TRUE((callSlot<bool, Text, bool>(find("Exceptions"), 3, "Visibility", false)));
  EXPECT_EQ(visibleFlag(find("Exceptions")), 0);
  EXPECT_FALSE(flag("Exceptions", "Visibility"));
  EXPECT_THAT(takeEvents(), ElementsAre("update"));
}

TEST_F(DynamicGroupSlots, DynamicGroupSlot4_GetTextProperty_CopiesTheText) {
  std::string value = "untouched";
  EXPECT_FALSE(
      (callSlot<bool, Text, std::string&>(find("Exceptions"), 4, "SortFunctionName", value)));
  EXPECT_EQ(value, "untouched");
  EXPECT_TRUE((callSlot<bool, Text, std::string&>(find("Exceptions"), 4, "Name", value)));
  EXPECT_EQ(value, "Exceptions");
  EXPECT_THAT(takeEvents(), IsEmpty());
}

TEST_F(DynamicGroupSlots, DynamicGroupSlot5_GetIntProperty_StoresTheRecordInFocus) {
  int value = 0;
  EXPECT_TRUE((callSlot<bool, Text, int*>(find("Exceptions"), 5, "RecordInFocus", &value)));
  EXPECT_EQ(value, -1);
  EXPECT_FALSE((callSlot<bool, Text, int*>(find("Exceptions"), 5, "Visibility", &value)));
  EXPECT_THAT(takeEvents(),
              ElementsAre(line("getFeatureProperty(int) - Unrecognized property for group:  "
                               "\"Exceptions.")));
}

TEST_F(DynamicGroupSlots, DynamicGroupSlot6_GetBoolProperty_StoresTheFlag) {
  bool value = false;
  EXPECT_TRUE((callSlot<bool, Text, bool*>(find("Exceptions"), 6, "Sensitivity", &value)));
  EXPECT_TRUE(value);
  EXPECT_FALSE((callSlot<bool, Text, bool*>(find("Exceptions"), 6, "RecordInFocus", &value)));
  EXPECT_THAT(takeEvents(),
              ElementsAre(line("getFeatureProperty(bool*) - Unrecognized feature property:  "
                               "\"RecordInFocus\" for feature \"Exceptions.")));
}

TEST_F(DynamicGroupSlots, DynamicGroupSlot7_GetFloatProperty_RefusesEveryName) {
  float value = 1;
  EXPECT_FALSE((callSlot<bool, Text, float*>(find("Exceptions"), 7, "RecordInFocus", &value)));
  EXPECT_EQ(value, 1);
  EXPECT_THAT(takeEvents(),
              ElementsAre(line("getFeatureProperty(float) - No float group properties for "
                               "group:  \"Exceptions.")));
}

TEST_F(DynamicGroupSlots, DynamicGroupSlot8_GetFeatureType_AnswersTheCode) {
  EXPECT_EQ(callSlot<int>(find("Exceptions"), 8), 8);
}

// A group has no options: slots 9 to 14 answer so, in silence.

TEST_F(DynamicGroupSlots, DynamicGroupSlot9_FetchNumberOfOptions_IsZero) {
  EXPECT_EQ(callSlot<int>(find("Exceptions"), 9), 0);
  EXPECT_THAT(takeEvents(), IsEmpty());
}

TEST_F(DynamicGroupSlots, DynamicGroupSlot10_FetchOptionIndexByName_IsMinusOne) {
  EXPECT_EQ((callSlot<int, Text>(find("Exceptions"), 10, "Page")), -1);
  EXPECT_THAT(takeEvents(), IsEmpty());
}

TEST_F(DynamicGroupSlots, DynamicGroupSlot11_FetchCurrentOption_IsNull) {
  EXPECT_EQ(callSlot<void*>(find("Exceptions"), 11), nullptr);
  EXPECT_THAT(takeEvents(), IsEmpty());
}

TEST_F(DynamicGroupSlots, DynamicGroupSlot12_FetchOptionByAttribute_IsNull) {
  EXPECT_EQ((callSlot<void*, Text, Text>(find("Exceptions"), 12, "Name", "Page")), nullptr);
  EXPECT_THAT(takeEvents(), IsEmpty());
}

TEST_F(DynamicGroupSlots, DynamicGroupSlot13_FetchOptionByName_IsNull) {
  EXPECT_EQ((callSlot<void*, std::string>(find("Exceptions"), 13, "Page")), nullptr);
  EXPECT_THAT(takeEvents(), IsEmpty());
}

TEST_F(DynamicGroupSlots, DynamicGroupSlot14_FetchOptionByIndex_IsNull) {
  EXPECT_EQ((callSlot<void*, int>(find("Exceptions"), 14, 0)), nullptr);
  EXPECT_THAT(takeEvents(), IsEmpty());
}

TEST_F(DynamicGroupSlots, DynamicGroupSlot21_SetTextWithConstraintControl_StoresTheText) {
  void* group = find("Exceptions");
  EXPECT_TRUE((callSlot<bool, Text, Text, bool>(group, 21, "InstOptAttributeName", "x", false)));
  EXPECT_EQ(text("Exceptions", "InstOptAttributeName"), "x");
  EXPECT_FALSE((callSlot<bool, Text, Text, bool>(group, 21, "Visibility", "x", false)));
  EXPECT_THAT(takeEvents(), IsEmpty());
}

TEST_F(DynamicGroupSlots, DynamicGroupSlot22_SetIntWithConstraintControl_CanBeSilent) {
  void* group = find("Exceptions");
  EXPECT_TRUE((callSlot<bool, Text, int, bool>(group, 22, "RecordInFocus", 3, true)));
  EXPECT_EQ(integer("Exceptions", "RecordInFocus"), 3);
  EXPECT_THAT(takeEvents(), IsEmpty());
  EXPECT_TRUE((callSlot<bool, Text, int, bool>(group, 22, "RecordInFocus", 4, false)));
  EXPECT_THAT(takeEvents(), ElementsAre("update"));
}

TEST_F(DynamicGroupSlots, DynamicGroupSlot23_SetFloatWithConstraintControl_RefusesEveryName) {
  void* group = find("Exceptions");
  EXPECT_FALSE((callSlot<bool, Text, float, bool>(group, 23, "RecordInFocus", 1.0F, true)));
  EXPECT_THAT(takeEvents(),
              ElementsAre(line("setFeaturePropertyWithConstraintControl(float) - No float group "
                               "properties for group:  \"Exceptions.")));
}

TEST_F(DynamicGroupSlots, DynamicGroupSlot24_SetBoolWithConstraintControl_CanBeSilent) {
  void* group = find("Exceptions");
  EXPECT_TRUE((callSlot<bool, Text, bool, bool>(group, 24, "Sensitivity", false, true)));
  EXPECT_EQ(sensitiveFlag(group), 0);
  EXPECT_THAT(takeEvents(), IsEmpty());
  EXPECT_TRUE((callSlot<bool, Text, bool, bool>(group, 24, "Sensitivity", true, false)));
  EXPECT_THAT(takeEvents(), ElementsAre("update"));
}

}  // namespace
}  // namespace raw_slots
