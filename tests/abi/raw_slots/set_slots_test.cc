// Every slot of the master set, by number.

#include "raw_host.h"

#include <gmock/gmock.h>

namespace raw_slots {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class SetSlots : public RawHostTest {
 protected:
  std::string serialize(int type) {
    std::string output;
    callSlot<void, std::string&, int, bool, const char*, const char*>(set_, 6, output, type, false,
                                                                      "first", "second");
    return output;
  }
};

TEST_F(SetSlots, SetSlot0_DumpFeatureListValues_PrintsTheModel) {
  ::testing::internal::CaptureStdout();
  callSlot<void>(set_, 0);
  EXPECT_THAT(::testing::internal::GetCapturedStdout(),
              AllOf(HasSubstr("Media"), HasSubstr("Untitled"), HasSubstr("Quality"),
                    HasSubstr("Exceptions")));
}

TEST_F(SetSlots, SetSlot1_FetchNumberOfFeatures_CountsNoGroups) {
  // Five features, and two members each in the static group and the template.
  EXPECT_EQ(callSlot<int>(set_, 1), 9);
}

TEST_F(SetSlots, SetSlot2_FetchFeatureByIndex_AnswersInTheOrderOfNames) {
  EXPECT_EQ((callSlot<void*, int>(set_, 2, 0)), find("Copies"));
  EXPECT_EQ((callSlot<void*, int>(set_, 2, 2)), find("Media"));
  EXPECT_EQ((callSlot<void*, int>(set_, 2, 8)), find("Zoom"));
  EXPECT_EQ((callSlot<void*, int>(set_, 2, 9)), nullptr);
  EXPECT_EQ((callSlot<void*, int>(set_, 2, -1)), nullptr);
}

TEST_F(SetSlots, SetSlot3_FindByName_FindsFeaturesAndGroups) {
  for (const char* name : {"Zoom", "Quality", "Exceptions"}) {
    void* found = callSlot<void*, Text>(set_, 3, name);
    ASSERT_NE(found, nullptr) << name;
    std::string answer;
    EXPECT_TRUE((callSlot<bool, Text, std::string&>(found, 4, "Name", answer)));
    EXPECT_EQ(answer, name);
  }
  EXPECT_EQ((callSlot<void*, Text>(set_, 3, "zoom")), nullptr);
  EXPECT_THAT(takeEvents(), ElementsAre("3 DriverFeature: FindFeatureInFeatureList() - Did not "
                                        "find feature \"zoom\"."));
}

TEST_F(SetSlots, SetSlot4_FindByAttribute_LooksAtThatProperty) {
  EXPECT_EQ((callSlot<void*, Text, Text>(set_, 4, "PJLCommand", "<%g>")), find("Zoom"));
  EXPECT_EQ((callSlot<void*, Text, Text>(set_, 4, "PJLCommand", "Zoom")), nullptr);
  EXPECT_THAT(takeEvents(), ElementsAre("4 DriverFeature: FindFeatureInFeatureList() - Couldn't "
                                        "find feature with attribute \"Zoom\"."));
}

TEST_F(SetSlots, SetSlot5_CreateOptionForFeature_AnswersNullAndCreatesNothing) {
  EXPECT_EQ((callSlot<void*, Text, Text, int>(set_, 5, "Media", "A5", 1)), nullptr);
  EXPECT_EQ((callSlot<void*, Text, Text, int>(set_, 5, "PJLCommand", "<%g>", 0)), nullptr);
  EXPECT_EQ(callSlot<int>(find("Media"), 9), 3);
  EXPECT_THAT(takeEvents(), IsEmpty());
}

TEST_F(SetSlots, SetSlot6_Serialize_WritesTheLanguageItIsTold) {
  EXPECT_EQ(serialize(0), "{1}(Untitled)<1.5>");
  EXPECT_EQ(serialize(1), "[letter]");
  EXPECT_THAT(serialize(2), AllOf(HasSubstr("first"), HasSubstr("second")));
  EXPECT_EQ(serialize(3), "");
}

TEST_F(SetSlots, SetSlot7_RestoreDefaultFeatureValues_ResetsEachAndNotifiesOnce) {
  std::string name = "Zoom";
  EXPECT_EQ(function<int(std::string&, const char*, float)>("SetFeatureFloatValue")(
                name, "CurrentFloatValue", 9.0F),
            1);
  name = "Copies";
  EXPECT_EQ(function<int(std::string&, const char*, int)>("SetFeatureIntValue")(
                name, "CurrentIntValue", 9),
            1);
  takeEvents();
  callSlot<void>(set_, 7);
  EXPECT_EQ(number("Zoom", "CurrentFloatValue"), 1.5F);
  EXPECT_EQ(integer("Copies", "CurrentIntValue"), 1);
  EXPECT_THAT(takeEvents(), ElementsAre("update"));
}

}  // namespace
}  // namespace raw_slots
