// Every slot of a static group, by number, and those of a dynamic group that
// have nothing to do with its records.

#include "raw_host.h"

#include <gmock/gmock.h>

namespace raw_slots {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using GroupSlots = RawHostTest;

TEST_F(GroupSlots, Memory_TablePointer_IsFollowedByTheTwoFlags) {
  EXPECT_EQ(tableOf(find("Quality")), tableOf(find("Exception")));
  EXPECT_NE(tableOf(find("Quality")), tableOf(find("Exceptions")));
  EXPECT_EQ(sensitiveFlag(find("Quality")), 1);
  std::string name = "Exceptions";
  auto* set = function<int(std::string&, const char*, bool)>("SetFeatureBoolValue");
  EXPECT_EQ(set(name, "Sensitivity", false), 1);
  EXPECT_EQ(sensitiveFlag(find("Exceptions")), 0);
  EXPECT_EQ(visibleFlag(find("Exceptions")), 1);
}

TEST_F(GroupSlots, StaticGroup_Slots0To3_Set) {
  void* group = find("Quality");
  EXPECT_TRUE((callSlot<bool, Text, Text>(group, 0, "PJLCommand", "@PJL")));
  EXPECT_EQ(text("Quality", "PJLCommand"), "@PJL");
  EXPECT_TRUE((callSlot<bool, Text, int>(group, 1, "FeatureType", 7)));
  EXPECT_EQ(integer("Quality", "FeatureType"), 7);
  EXPECT_FALSE((callSlot<bool, Text, float>(group, 2, "CurrentFloatValue", 1.0F)));
  EXPECT_THAT(takeEvents(), ElementsAre(HasSubstr("StaticGroup::setFeatureProperty(float) ")));
  EXPECT_TRUE((callSlot<bool, Text, bool>(group, 3, "FeatureInGroup", true)));
  EXPECT_TRUE(flag("Quality", "FeatureInGroup"));
}

TEST_F(GroupSlots, StaticGroup_Slots4To8_Get) {
  void* group = find("Quality");
  std::string value;
  EXPECT_TRUE((callSlot<bool, Text, std::string&>(group, 4, "Name", value)));
  EXPECT_EQ(value, "Quality");
  int integer = 0;
  EXPECT_TRUE((callSlot<bool, Text, int*>(group, 5, "FeatureType", &integer)));
  EXPECT_EQ(integer, 6);
  bool flag = true;
  EXPECT_TRUE((callSlot<bool, Text, bool*>(group, 6, "FeatureInGroup", &flag)));
  EXPECT_FALSE(flag);
  float number = 1;
  EXPECT_FALSE((callSlot<bool, Text, float*>(group, 7, "CurrentFloatValue", &number)));
  EXPECT_THAT(takeEvents(), ElementsAre(HasSubstr("StaticGroup::getFeatureProperty(float) ")));
  EXPECT_EQ(callSlot<int>(group, 8), 6);
}

TEST_F(GroupSlots, StaticGroup_Slots15And16_CountAndFindTheMembers) {
  EXPECT_EQ(callSlot<int>(find("Quality"), 15), 2);
  EXPECT_EQ((callSlot<void*, unsigned>(find("Quality"), 16, 1)), find("Toner"));
}

// A group has no options; it says so without a line in the log.
TEST_F(GroupSlots, BothKinds_Slots9To14_FindNoOption) {
  for (const char* name : {"Quality", "Exceptions"}) {
    void* group = find(name);
    EXPECT_EQ(callSlot<int>(group, 9), 0);
    EXPECT_EQ((callSlot<int, Text>(group, 10, "Toner")), -1);
    EXPECT_EQ(callSlot<void*>(group, 11), nullptr);
    EXPECT_EQ((callSlot<void*, Text, Text>(group, 12, "Name", "Toner")), nullptr);
    EXPECT_EQ((callSlot<void*, std::string>(group, 13, "Toner")), nullptr);
    EXPECT_EQ((callSlot<void*, int>(group, 14, 0)), nullptr);
  }
  EXPECT_THAT(takeEvents(), IsEmpty());
}

TEST_F(GroupSlots, DynamicGroup_Slots0To3_SetAndNotify) {
  void* group = find("Exceptions");
  EXPECT_TRUE((callSlot<bool, Text, Text>(group, 0, "TESKAttributeSyntax", "x")));
  EXPECT_EQ(text("Exceptions", "TESKAttributeSyntax"), "x");
  EXPECT_TRUE((callSlot<bool, Text, int>(group, 1, "RecordInFocus", 5)));
  EXPECT_EQ(integer("Exceptions", "RecordInFocus"), 5);
  EXPECT_FALSE((callSlot<bool, Text, float>(group, 2, "RecordInFocus", 1.0F)));
  EXPECT_TRUE((callSlot<bool, Text, bool>(group, 3, "Visibility", false)));
  EXPECT_EQ(visibleFlag(group), 0);
  EXPECT_THAT(takeEvents(), ElementsAre("update", HasSubstr("ConstraintControl(float)"), "update"));
}

TEST_F(GroupSlots, DynamicGroup_Slots4To8_Get) {
  void* group = find("Exceptions");
  std::string value;
  EXPECT_TRUE((callSlot<bool, Text, std::string&>(group, 4, "Name", value)));
  EXPECT_EQ(value, "Exceptions");
  int integer = 0;
  EXPECT_TRUE((callSlot<bool, Text, int*>(group, 5, "RecordInFocus", &integer)));
  EXPECT_EQ(integer, -1);
  bool flag = false;
  EXPECT_TRUE((callSlot<bool, Text, bool*>(group, 6, "Sensitivity", &flag)));
  EXPECT_TRUE(flag);
  float number = 1;
  EXPECT_FALSE((callSlot<bool, Text, float*>(group, 7, "RecordInFocus", &number)));
  EXPECT_THAT(takeEvents(), ElementsAre(HasSubstr("DynamicGroup::getFeatureProperty(float) ")));
  EXPECT_EQ(callSlot<int>(group, 8), 8);
}

// The last argument keeps the host from hearing of it.
TEST_F(GroupSlots, DynamicGroup_Slots21To24_SetWithoutNotifying) {
  void* group = find("Exceptions");
  EXPECT_TRUE((callSlot<bool, Text, Text, bool>(group, 21, "InstOptAttributeName", "x", true)));
  EXPECT_EQ(text("Exceptions", "InstOptAttributeName"), "x");
  EXPECT_TRUE((callSlot<bool, Text, int, bool>(group, 22, "RecordInFocus", 3, true)));
  EXPECT_EQ(integer("Exceptions", "RecordInFocus"), 3);
  EXPECT_FALSE((callSlot<bool, Text, float, bool>(group, 23, "RecordInFocus", 1.0F, true)));
  EXPECT_TRUE((callSlot<bool, Text, bool, bool>(group, 24, "Sensitivity", false, true)));
  EXPECT_EQ(sensitiveFlag(group), 0);
  EXPECT_THAT(takeEvents(), ElementsAre(HasSubstr("ConstraintControl(float)")));
  EXPECT_TRUE((callSlot<bool, Text, int, bool>(group, 22, "RecordInFocus", 4, false)));
  EXPECT_THAT(takeEvents(), ElementsAre("update"));
}

}  // namespace
}  // namespace raw_slots
