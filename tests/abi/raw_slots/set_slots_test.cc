// Every slot of the master set, by number.

#include "raw_host.h"

#include <gmock/gmock.h>

namespace raw_slots {
namespace {

using ::testing::HasSubstr;
using SetSlots = RawHostTest;

TEST_F(SetSlots, Slot0_PrintsTheModel) {
  ::testing::internal::CaptureStdout();
  callSlot<void>(set_, 0);
  EXPECT_THAT(::testing::internal::GetCapturedStdout(), HasSubstr("Untitled"));
}

TEST_F(SetSlots, Slots1And2_CountFeaturesAndFindThemInOrder) {
  // Five features, and two members each in the static group and the template.
  EXPECT_EQ(callSlot<int>(set_, 1), 9);
  EXPECT_EQ((callSlot<void*, int>(set_, 2, 0)), find("Copies"));
  EXPECT_EQ((callSlot<void*, int>(set_, 2, 8)), find("Zoom"));
}

TEST_F(SetSlots, Slots3And4_FindByNameAndByAttribute) {
  void* zoom = callSlot<void*, Text>(set_, 3, "Zoom");
  std::string name;
  EXPECT_TRUE((callSlot<bool, Text, std::string&>(zoom, 4, "Name", name)));
  EXPECT_EQ(name, "Zoom");
  EXPECT_EQ((callSlot<void*, Text, Text>(set_, 4, "PJLCommand", "<%g>")), zoom);
}

TEST_F(SetSlots, Slot5_CreatesNoOption) {
  EXPECT_EQ((callSlot<void*, Text, Text, int>(set_, 5, "PJLCommand", "<%g>", 0)), nullptr);
}

TEST_F(SetSlots, Slot6_WritesTheLanguageAskedFor) {
  std::string output;
  callSlot<void, std::string&, int, bool, const char*, const char*>(set_, 6, output, 0, false,
                                                                    "first", "second");
  EXPECT_EQ(output, "{1}(Untitled)<1.5>");
  callSlot<void, std::string&, int, bool, const char*, const char*>(set_, 6, output, 2, false,
                                                                    "first", "second");
  EXPECT_THAT(output, HasSubstr("second"));
}

TEST_F(SetSlots, Slot7_RestoresTheDefaultValues) {
  callSlot<bool, Text, float>(find("Zoom"), 2, "CurrentFloatValue", 9.0F);
  callSlot<void>(set_, 7);
  EXPECT_EQ(number("Zoom", "CurrentFloatValue"), 1.5F);
}

}  // namespace
}  // namespace raw_slots
