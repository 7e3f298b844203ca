// Every slot of an option, by number.

#include "raw_host.h"

#include <gmock/gmock.h>

namespace raw_slots {
namespace {

using OptionSlots = RawHostTest;

TEST_F(OptionSlots, Memory_TablePointer_IsFollowedByTheTwoFlags) {
  EXPECT_EQ(tableOf(option(0)), tableOf(option(1)));
  EXPECT_NE(tableOf(option(0)), tableOf(find("Media")));
  EXPECT_EQ(sensitiveFlag(option(2)), 0);
  EXPECT_EQ(visibleFlag(option(2)), 1);
}

TEST_F(OptionSlots, Slots0To3_GetAndSetTextsAndFlags) {
  std::string value;
  EXPECT_TRUE((callSlot<bool, Text, std::string&>(option(0), 0, "PSCommand", value)));
  EXPECT_EQ(value, "a4");
  bool flag = true;
  EXPECT_TRUE((callSlot<bool, Text, bool*>(option(2), 1, "Sensitivity", &flag)));
  EXPECT_FALSE(flag);
  EXPECT_TRUE((callSlot<bool, Text, Text>(option(1), 2, "Name", "US Letter")));
  EXPECT_EQ(text("Media", "ValueString"), "US Letter");
  EXPECT_TRUE((callSlot<bool, Text, bool>(option(0), 3, "Visibility", false)));
  EXPECT_EQ(visibleFlag(option(0)), 0);
}

TEST_F(OptionSlots, Slots4To6_LookAtAddAndRemoveConstraints) {
  EXPECT_TRUE(callSlot<bool>(option(0), 4));
  EXPECT_TRUE((callSlot<bool, const long&>(option(0), 5, 70000)));
  EXPECT_FALSE(callSlot<bool>(option(0), 4));
  EXPECT_TRUE((callSlot<bool, const long&>(option(0), 6, 70000)));
  EXPECT_TRUE(callSlot<bool>(option(0), 4));
}

}  // namespace
}  // namespace raw_slots
