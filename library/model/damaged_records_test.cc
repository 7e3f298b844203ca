// Records that are gone, and values that cannot be read or compared.

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/driver_feature.h"
#include "model/driver_feature_dynamic_group.h"
#include "model/record_list.h"
#include "support/private_member.h"
#include "support/recording_host.h"
#include "support/scripted_feature.h"

#include "AttributeMap.h"
#include "Log.h"

namespace driver_feature::testing {

struct Records {
  using Type = RecordList DriverFeatureDynamicGroup::*;
  friend Type openMember(Records);
};
template struct PrivateMember<Records, &DriverFeatureDynamicGroup::records_>;

}  // namespace driver_feature::testing

namespace driver_feature::testing {
namespace {

// The group whose last record RemoveLastRecord removes.
DriverFeatureDynamicGroup* shrinkingGroup = nullptr;

}  // namespace
}  // namespace driver_feature::testing

extern "C" {

int CompareAsEqual(AttributeMap& /*first*/, AttributeMap& /*second*/) {
  driver_feature::testing::RecordingHost::record("compared");
  return 0;
}

// Asks for a swap with the record that it has removed.
int RemoveLastRecord(AttributeMap& /*first*/, AttributeMap& /*second*/) {
  DriverFeatureDynamicGroup& group = *driver_feature::testing::shrinkingGroup;
  group.removeDynamicEntryByIndex(static_cast<unsigned>(group.fetchNumberOfDynamicEntries()) - 1);
  return 1;
}

}  // extern "C"

namespace driver_feature::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// A group of records with the members "First" and "Title".
class DamagedRecordsTest : public ::testing::Test {
 protected:
  DamagedRecordsTest() {
    first_.setFeatureProperty(std::string("FeatureType"), 2);
    title_.setFeatureProperty(std::string("FeatureType"), 3);
    shape_.addFeatureToGroup(&first_);
    shape_.addFeatureToGroup(&title_);
    group_.addDefaultStaticGroupTemplate(&shape_);
    LogMessageBuffer = "untouched";
  }

  static AttributeMap values(const std::string& first, const std::string& title) {
    AttributeMap map;
    map["First"] = first;
    map["Title"] = title;
    return map;
  }

  void add(const std::string& first, const std::string& title) {
    AttributeMap map = values(first, title);
    ASSERT_TRUE(group_.addStaticGroupToDynamicGroupWithSort(map, false));
  }

  void setSortRoutine(const std::string& name = "CompareAsEqual") {
    group_.setFeatureProperty(std::string("SortFunctionName"), name);
    AttributeMap map = values("1", "a");
    ASSERT_TRUE(group_.addStaticGroupToDynamicGroupWithSort(map, true));
  }

  RecordList& records() { return group_.*openMember(Records{}); }

  RecordingHost host_;
  DriverFeature first_{std::string("First")};
  DriverFeature title_{std::string("Title")};
  DriverFeatureStaticGroup shape_{std::string("Shape")};
  DriverFeatureDynamicGroup group_{std::string("Pages")};
};

TEST_F(DamagedRecordsTest, Load_RecordGone_IsRefused) {
  add("1", "a");
  records()[0] = nullptr;
  EXPECT_EQ(group_.getDynamicEntryByIndex(0), nullptr);
  EXPECT_THAT(host_.takeEvents(),
              ElementsAre(logLine(2, "getDynamicEntryByIndex() - Null static record pointer")));
  EXPECT_EQ(LogMessageBuffer.utf8(), "untouched");
}

TEST_F(DamagedRecordsTest, Sort_RecordGone_ReturnsFalseWithoutComparing) {
  setSortRoutine();
  add("2", "b");
  for (const std::size_t gone : {0U, 1U}) {
    DynamicRecord* const record = records()[gone];
    records()[gone] = nullptr;
    EXPECT_FALSE(group_.sortList());
    EXPECT_THAT(host_.takeEvents(),
                ElementsAre(logLine(2, "sortList() - Null static record pointer")));
    EXPECT_EQ(LogMessageBuffer.utf8(), "sortList() - Null static record pointer");
    records()[gone] = record;
  }
  EXPECT_TRUE(group_.sortList());
  EXPECT_THAT(host_.takeEvents(), ElementsAre("compared"));
}

TEST_F(DamagedRecordsTest, Sort_RoutineRemovesTheSecondOfTwo_KeepsTheFirst) {
  setSortRoutine("RemoveLastRecord");
  add("2", "b");
  shrinkingGroup = &group_;
  // The next pass finds no second record.
  group_.sortList();
  shrinkingGroup = nullptr;
  ASSERT_EQ(group_.fetchNumberOfDynamicEntries(), 1);
  AttributeMap first = values("1", "a");
  EXPECT_TRUE(group_.detectDuplicateRecord(first));
}

TEST_F(DamagedRecordsTest, Load_ForeignMemberOfTheSameNameInFront_IsPassedOver) {
  // The template finds it first, and it takes no values.
  ScriptedFeature foreign(0);
  foreign.texts["Name"] = "First";
  DriverFeatureStaticGroup shape;
  shape.addFeatureToGroup(&foreign);
  shape.addFeatureToGroup(&first_);
  DriverFeatureDynamicGroup group;
  group.addDefaultStaticGroupTemplate(&shape);
  // Two members want two entries.
  AttributeMap map = values("7", "a");
  ASSERT_TRUE(group.addStaticGroupToDynamicGroup(map));
  EXPECT_EQ(group.getDynamicEntryByIndex(0), &shape);
  int number = 0;
  first_.getFeatureProperty(std::string("CurrentIntValue"), &number);
  EXPECT_EQ(number, 0);
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(DamagedRecordsTest, Duplicate_RecordGone_GoesOnWithTheNext) {
  add("1", "a");
  add("2", "b");
  records()[0] = nullptr;
  AttributeMap second = values("2", "b");
  EXPECT_TRUE(group_.detectDuplicateRecord(second));
  EXPECT_THAT(host_.takeEvents(),
              ElementsAre(logLine(3,
                                  "DriverFeatureDynamicGroup::detectDuplicateRecord() - Cannot get "
                                  "feature from static group record")));
  AttributeMap first = values("1", "a");
  EXPECT_FALSE(group_.detectDuplicateRecord(first));
  EXPECT_EQ(LogMessageBuffer.utf8(), "untouched");
}

TEST_F(DamagedRecordsTest, Duplicate_ValueThatCannotBeRead_IsNone) {
  // A copied value type that no value goes with.
  title_.setFeatureProperty(std::string("FeatureValueType"), 0);
  add("1", "a");
  host_.takeEvents();
  AttributeMap map = values("1", "");
  EXPECT_FALSE(group_.detectDuplicateRecord(map));
  EXPECT_THAT(host_.takeEvents(),
              ElementsAre(logLine(3,
                                  "DriverFeature::getFeatureProperty(string&) - Unrecognized value "
                                  "type for feature property: \"ValueString\" for feature "
                                  "\"Title\"."),
                          logLine(3,
                                  "DriverFeatureDynamicGroup::detectDuplicateRecord() - Cannot get "
                                  "test feature value from static group record")));
}

}  // namespace
}  // namespace driver_feature::testing
