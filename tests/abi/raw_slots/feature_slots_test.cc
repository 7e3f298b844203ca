// Every slot of a feature, by number.

#include <set>

#include "raw_host.h"

#include <gmock/gmock.h>

namespace raw_slots {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using FeatureSlots = RawHostTest;

TEST_F(FeatureSlots, Memory_TablePointer_IsFollowedByTheTwoFlags) {
  void* media = find("Media");
  EXPECT_EQ(tableOf(media), tableOf(find("Copies")));
  EXPECT_NE(tableOf(media), tableOf(find("Quality")));
  std::string name = "Media";
  auto* set = function<int(std::string&, const char*, bool)>("SetFeatureBoolValue");
  EXPECT_EQ(set(name, "Sensitivity", false), 1);
  EXPECT_EQ(sensitiveFlag(media), 0);
  EXPECT_EQ(visibleFlag(media), 1);
}

TEST_F(FeatureSlots, Slots0To3_SetAndNotify) {
  EXPECT_TRUE((callSlot<bool, Text, Text>(find("JobName"), 0, "CurrentTextValue", "Report")));
  EXPECT_EQ(text("JobName", "CurrentTextValue"), "Report");
  EXPECT_TRUE((callSlot<bool, Text, int>(find("Copies"), 1, "CurrentIntValue", -70000)));
  EXPECT_EQ(integer("Copies", "CurrentIntValue"), -70000);
  EXPECT_TRUE((callSlot<bool, Text, float>(find("Zoom"), 2, "CurrentFloatValue", 0.1F)));
  EXPECT_EQ(number("Zoom", "CurrentFloatValue"), 0.1F);
  EXPECT_TRUE((callSlot<bool, Text, bool>(find("Media"), 3, "Sensitivity", false)));
  EXPECT_FALSE(flag("Media", "Sensitivity"));
  EXPECT_THAT(takeEvents(), ElementsAre("update", "update", "update", "update"));
}

TEST_F(FeatureSlots, Slots4To8_Get) {
  std::string value;
  EXPECT_TRUE((callSlot<bool, Text, std::string&>(find("JobName"), 4, "DefaultTextValue", value)));
  EXPECT_EQ(value, "Untitled");
  int integer = 0;
  EXPECT_TRUE((callSlot<bool, Text, int*>(find("Zoom"), 5, "FeatureValueType", &integer)));
  EXPECT_EQ(integer, 3);
  bool flag = false;
  EXPECT_TRUE((callSlot<bool, Text, bool*>(find("Media"), 6, "Visibility", &flag)));
  EXPECT_TRUE(flag);
  float number = 0;
  EXPECT_TRUE((callSlot<bool, Text, float*>(find("Zoom"), 7, "DefaultFloatValue", &number)));
  EXPECT_EQ(number, 1.5F);
  EXPECT_EQ(callSlot<int>(find("Zoom"), 8), 4);
}

TEST_F(FeatureSlots, Slots9To15And25_FindOptions) {
  void* media = find("Media");
  EXPECT_EQ(callSlot<int>(media, 9), 3);
  EXPECT_EQ(callSlot<int>(find("Copies"), 9), 0);
  EXPECT_EQ((callSlot<int, Text>(media, 10, "Legal")), 2);
  EXPECT_EQ(callSlot<void*>(media, 11), option(1));
  EXPECT_EQ((callSlot<void*, Text, Text>(media, 12, "PSCommand", "a4")), option(0));
  EXPECT_EQ((callSlot<void*, std::string>(media, 13, "Legal")), option(2));
  std::string name;
  EXPECT_TRUE(
      (callSlot<bool, Text, std::string&>(callSlot<void*, int>(media, 14, 2), 0, "Name", name)));
  EXPECT_EQ(name, "Legal");
  EXPECT_EQ(callSlot<int>(media, 15), 3);
  EXPECT_EQ(callSlot<int>(find("Copies"), 15), -1);
  EXPECT_EQ((callSlot<int, Text, Text>(media, 25, "PSCommand", "legal")), 2);
}

TEST_F(FeatureSlots, Slot16_ConstrainsAnOption) {
  EXPECT_TRUE((callSlot<bool, Text, long, bool>(find("Media"), 16, "Legal", 9, true)));
  EXPECT_EQ(visibleFlag(option(2)), 0);
  EXPECT_TRUE((callSlot<bool, const long&>(option(2), 6, 9)));
}

// The last argument keeps the host from hearing of it.
TEST_F(FeatureSlots, Slots17To20_SetWithoutNotifying) {
  EXPECT_TRUE(
      (callSlot<bool, Text, Text, bool>(find("JobName"), 17, "CurrentTextValue", "One", true)));
  EXPECT_EQ(text("JobName", "CurrentTextValue"), "One");
  EXPECT_TRUE((callSlot<bool, Text, int, bool>(find("Copies"), 18, "CurrentIntValue", 7, true)));
  EXPECT_EQ(integer("Copies", "CurrentIntValue"), 7);
  EXPECT_TRUE(
      (callSlot<bool, Text, float, bool>(find("Zoom"), 19, "CurrentFloatValue", 2.25F, true)));
  EXPECT_EQ(number("Zoom", "CurrentFloatValue"), 2.25F);
  EXPECT_TRUE((callSlot<bool, Text, bool, bool>(find("Media"), 20, "Visibility", false, true)));
  EXPECT_EQ(visibleFlag(find("Media")), 0);
  EXPECT_THAT(takeEvents(), IsEmpty());
  EXPECT_TRUE((callSlot<bool, Text, bool, bool>(find("Media"), 20, "Visibility", true, false)));
  EXPECT_THAT(takeEvents(), ElementsAre("update"));
}

TEST_F(FeatureSlots, Slots21To24_ReadAndChangeTheConstraints) {
  void* media = find("Media");
  EXPECT_TRUE(callSlot<bool>(media, 21));
  EXPECT_TRUE((callSlot<bool, const long&>(media, 22, 70000)));
  EXPECT_FALSE(callSlot<bool>(media, 21));
  EXPECT_THAT(*callSlot<std::set<long>*>(media, 24), ElementsAre(70000));
  EXPECT_TRUE((callSlot<bool, const long&>(media, 23, 70000)));
  EXPECT_THAT(*callSlot<std::set<long>*>(media, 24), IsEmpty());
}

}  // namespace
}  // namespace raw_slots
