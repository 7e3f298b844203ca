// The slots of a feature that write and read properties, by number: 0 to 8 and
// 17 to 20.

#include "raw_host.h"

#include <gmock/gmock.h>

namespace raw_slots {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using FeatureSlots = RawHostTest;

constexpr const char* kUnrecognized = "Unrecognized feature property:  ";

// The line of a setter that does not know a name. The setters with constraint
// control name themselves as the plain ones do.
std::string refusal(const std::string& operation, const std::string& name,
                    const std::string& feature) {
  return "3 DriverFeature: DriverFeature::" + operation + " - " + kUnrecognized + '"' + name +
         "\" for feature \"" + feature + ".";
}

TEST_F(FeatureSlots, Memory_TablePointer_IsFollowedByTheTwoFlags) {
  void* media = find("Media");
  EXPECT_EQ(tableOf(media), tableOf(find("Copies")));
  EXPECT_NE(tableOf(media), tableOf(find("Quality")));
  std::string name = "Media";
  auto* set = function<int(std::string&, const char*, bool)>("SetFeatureBoolValue");
  EXPECT_EQ(set(name, "Sensitivity", false), 1);
  EXPECT_EQ(sensitiveFlag(media), 0);
  EXPECT_EQ(visibleFlag(media), 1);
  EXPECT_EQ(set(name, "Sensitivity", true), 1);
  EXPECT_EQ(set(name, "Visibility", false), 1);
  EXPECT_EQ(sensitiveFlag(media), 1);
  EXPECT_EQ(visibleFlag(media), 0);
}

TEST_F(FeatureSlots, FeatureSlot0_SetTextProperty_StoresAndNotifies) {
  EXPECT_TRUE((callSlot<bool, Text, Text>(find("JobName"), 0, "CurrentTextValue", "Report")));
  EXPECT_EQ(text("JobName", "CurrentTextValue"), "Report");
  EXPECT_FALSE((callSlot<bool, Text, Text>(find("JobName"), 0, "CurrentIntValue", "1")));
  EXPECT_THAT(takeEvents(), ElementsAre("update", refusal("setFeatureProperty(string)",
                                                          "CurrentIntValue", "JobName")));
}

TEST_F(FeatureSlots, FeatureSlot1_SetIntProperty_StoresAndNotifies) {
  EXPECT_TRUE((callSlot<bool, Text, int>(find("Copies"), 1, "CurrentIntValue", -70000)));
  EXPECT_EQ(integer("Copies", "CurrentIntValue"), -70000);
  EXPECT_FALSE((callSlot<bool, Text, int>(find("Copies"), 1, "Name", 1)));
  EXPECT_THAT(takeEvents(),
              ElementsAre("update", refusal("setFeatureProperty(int)", "Name", "Copies")));
}

TEST_F(FeatureSlots, FeatureSlot2_SetFloatProperty_StoresAndNotifies) {
  EXPECT_TRUE((callSlot<bool, Text, float>(find("Zoom"), 2, "CurrentFloatValue", 0.1F)));
  EXPECT_EQ(number("Zoom", "CurrentFloatValue"), 0.1F);
  EXPECT_FALSE((callSlot<bool, Text, float>(find("Zoom"), 2, "Name", 1.0F)));
  EXPECT_THAT(takeEvents(),
              ElementsAre("update", refusal("setFeatureProperty(float)", "Name", "Zoom")));
}

TEST_F(FeatureSlots, FeatureSlot3_SetBoolProperty_StoresAndNotifies) {
  EXPECT_TRUE((callSlot<bool, Text, bool>(find("Media"), 3, "Sensitivity", false)));
  EXPECT_FALSE(flag("Media", "Sensitivity"));
  EXPECT_TRUE(flag("Media", "Visibility"));
  EXPECT_FALSE((callSlot<bool, Text, bool>(find("Media"), 3, "Name", true)));
  EXPECT_THAT(takeEvents(),
              ElementsAre("update", refusal("setFeatureProperty(bool)", "Name", "Media")));
}

TEST_F(FeatureSlots, FeatureSlot4_GetTextProperty_CopiesTheText) {
  std::string value = "untouched";
  EXPECT_TRUE((callSlot<bool, Text, std::string&>(find("JobName"), 4, "DefaultTextValue", value)));
  EXPECT_EQ(value, "Untitled");
  EXPECT_FALSE((callSlot<bool, Text, std::string&>(find("JobName"), 4, "Visibility", value)));
  EXPECT_EQ(value, "Untitled");
  EXPECT_THAT(takeEvents(),
              ElementsAre("3 DriverFeature: DriverFeature::getFeatureProperty(string&) - "
                          "Unrecognized feature property: \"Visibility\" for feature "
                          "\"JobName\"."));
}

TEST_F(FeatureSlots, FeatureSlot5_GetIntProperty_StoresTheNumber) {
  int value = 0;
  EXPECT_TRUE((callSlot<bool, Text, int*>(find("Zoom"), 5, "FeatureValueType", &value)));
  EXPECT_EQ(value, 3);
  EXPECT_FALSE((callSlot<bool, Text, int*>(find("Zoom"), 5, "Visibility", &value)));
  EXPECT_THAT(takeEvents(), ElementsAre(refusal("getFeatureProperty(int*)", "Visibility", "Zoom")));
}

TEST_F(FeatureSlots, FeatureSlot6_GetBoolProperty_StoresTheFlag) {
  bool value = false;
  EXPECT_TRUE((callSlot<bool, Text, bool*>(find("Media"), 6, "Visibility", &value)));
  EXPECT_TRUE(value);
  EXPECT_FALSE((callSlot<bool, Text, bool*>(find("Media"), 6, "FeatureType", &value)));
  EXPECT_THAT(takeEvents(),
              ElementsAre(refusal("getFeatureProperty(bool*)", "FeatureType", "Media")));
}

TEST_F(FeatureSlots, FeatureSlot7_GetFloatProperty_StoresTheNumber) {
  float value = 0;
  EXPECT_TRUE((callSlot<bool, Text, float*>(find("Zoom"), 7, "DefaultFloatValue", &value)));
  EXPECT_EQ(value, 1.5F);
  EXPECT_FALSE((callSlot<bool, Text, float*>(find("Zoom"), 7, "FeatureType", &value)));
  EXPECT_THAT(takeEvents(),
              ElementsAre(refusal("getFeatureProperty(float*)", "FeatureType", "Zoom")));
}

TEST_F(FeatureSlots, FeatureSlot8_GetFeatureType_AnswersTheCode) {
  EXPECT_EQ(callSlot<int>(find("Separator"), 8), 0);
  EXPECT_EQ(callSlot<int>(find("Media"), 8), 1);
  EXPECT_EQ(callSlot<int>(find("Copies"), 8), 2);
  EXPECT_EQ(callSlot<int>(find("JobName"), 8), 3);
  EXPECT_EQ(callSlot<int>(find("Zoom"), 8), 4);
}

// With constraint control, the last argument decides whether the host hears of
// the change.

TEST_F(FeatureSlots, FeatureSlot17_SetTextWithConstraintControl_NotifiesUnlessSuppressed) {
  void* jobName = find("JobName");
  EXPECT_TRUE((callSlot<bool, Text, Text, bool>(jobName, 17, "CurrentTextValue", "One", true)));
  EXPECT_EQ(text("JobName", "CurrentTextValue"), "One");
  EXPECT_THAT(takeEvents(), IsEmpty());
  EXPECT_TRUE((callSlot<bool, Text, Text, bool>(jobName, 17, "CurrentTextValue", "Two", false)));
  EXPECT_EQ(text("JobName", "CurrentTextValue"), "Two");
  EXPECT_THAT(takeEvents(), ElementsAre("update"));
}

TEST_F(FeatureSlots, FeatureSlot18_SetIntWithConstraintControl_NotifiesUnlessSuppressed) {
  void* media = find("Media");
  EXPECT_TRUE((callSlot<bool, Text, int, bool>(media, 18, "CurrentIntValue", 0, true)));
  EXPECT_EQ(text("Media", "ValueString"), "A4");
  EXPECT_THAT(takeEvents(), ElementsAre("change"));
  EXPECT_TRUE((callSlot<bool, Text, int, bool>(media, 18, "CurrentIntValue", 2, false)));
  EXPECT_EQ(text("Media", "ValueString"), "Legal");
  EXPECT_THAT(takeEvents(), ElementsAre("change", "update"));
}

TEST_F(FeatureSlots, FeatureSlot19_SetFloatWithConstraintControl_NotifiesUnlessSuppressed) {
  void* zoom = find("Zoom");
  EXPECT_TRUE((callSlot<bool, Text, float, bool>(zoom, 19, "CurrentFloatValue", 2.25F, true)));
  EXPECT_EQ(number("Zoom", "CurrentFloatValue"), 2.25F);
  EXPECT_THAT(takeEvents(), IsEmpty());
  EXPECT_TRUE((callSlot<bool, Text, float, bool>(zoom, 19, "CurrentFloatValue", 4.0F, false)));
  EXPECT_EQ(number("Zoom", "CurrentFloatValue"), 4.0F);
  EXPECT_THAT(takeEvents(), ElementsAre("update"));
}

TEST_F(FeatureSlots, FeatureSlot20_SetBoolWithConstraintControl_NotifiesUnlessSuppressed) {
  void* media = find("Media");
  EXPECT_TRUE((callSlot<bool, Text, bool, bool>(media, 20, "Visibility", false, true)));
  EXPECT_EQ(visibleFlag(media), 0);
  EXPECT_THAT(takeEvents(), IsEmpty());
  EXPECT_TRUE((callSlot<bool, Text, bool, bool>(media, 20, "Visibility", true, false)));
  EXPECT_EQ(visibleFlag(media), 1);
  EXPECT_THAT(takeEvents(), ElementsAre("update"));
}

}  // namespace
}  // namespace raw_slots
