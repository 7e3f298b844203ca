// What a record keeps of what was added, and when it is freed.

#include "model/dynamic_record.h"

#include <malloc.h>

#include <cstddef>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/driver_feature_dynamic_group.h"
#include "model/driver_feature_option.h"
#include "model/driver_feature_static_group.h"
#include "model/notification.h"
#include "support/model_builder.h"
#include "support/recording_host.h"

#include "AttributeMap.h"

namespace driver_feature::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

FeatureCopy copyOf(DriverFeature& feature) {
  return FeatureCopy(new DriverFeature(&feature));
}

class DynamicRecordTest : public ::testing::Test {
 protected:
  RecordingHost host_;
  ModelBuilder model_;
};

TEST_F(DynamicRecordTest, EachType_KeepsTheValueAsText) {
  DynamicRecord record;
  DriverFeature& number = model_.feature("number", 2);
  number.setFeatureProperty(std::string("CurrentIntValue"), -7);
  DriverFeature& text = model_.feature("text", 3);
  text.setFeatureProperty(std::string("CurrentTextValue"), std::string("a title"));
  DriverFeature& fraction = model_.feature("fraction", 4);
  fraction.setFeatureProperty(std::string("CurrentFloatValue"), 1.5F);
  DriverFeature& list = model_.feature("list", 1);
  model_.option(list, "first");
  model_.option(list, "second");
  list.setFeatureProperty(std::string("CurrentIntValue"), 1);
  for (DriverFeature* each : {&number, &text, &fraction, &list}) record.add(copyOf(*each));
  const struct {
    const char* name;
    const char* value;
  } rows[] = {{"number", "-7"}, {"text", "a title"}, {"fraction", "1.500000"}, {"list", "second"}};
  for (const auto& row : rows) {
    const DynamicRecordMember* member = record.find(row.name);
    ASSERT_NE(member, nullptr) << row.name;
    EXPECT_EQ(member->copy, nullptr) << row.name;
    std::string value = "before";
    EXPECT_TRUE(member->read(value)) << row.name;
    EXPECT_EQ(value, row.value);
  }
  EXPECT_EQ(record.find("absent"), nullptr);
}

TEST_F(DynamicRecordTest, ListWithoutCurrentOption_IsReadAnewWithItsLine) {
  DriverFeature& list = model_.feature("list", 1);
  list.setFeatureProperty(std::string("CurrentIntValue"), 5);
  host_.takeEvents();
  DynamicRecord record;
  record.add(copyOf(list));
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
  for (int i = 0; i < 2; ++i) {
    std::string value = "before";
    EXPECT_TRUE(record.find("list")->read(value));
    EXPECT_EQ(value, "before");
    EXPECT_THAT(host_.takeEvents(),
                ElementsAre(logLine(2,
                                    "DriverFeature::fetchOptionByIndex() - Attempt to fetch "
                                    "feature option with index out of range for feature "
                                    "\"list\".")));
  }
}

TEST_F(DynamicRecordTest, ManyMembers_TheFirstOfANameIsFound) {
  DynamicRecord record;
  for (int i = 0; i < 100; ++i) {
    DriverFeature& feature = model_.feature("member " + std::to_string(i % 50), 2);
    feature.setFeatureProperty(std::string("CurrentIntValue"), i);
    record.add(copyOf(feature));
  }
  for (int i = 0; i < 50; ++i) {
    EXPECT_EQ(record.find("member " + std::to_string(i)),
              &record.members()[static_cast<std::size_t>(i)]);
  }
  EXPECT_EQ(record.find("member"), nullptr);
}

// Where the allocator reports how much is in use.
TEST_F(DynamicRecordTest, RemovedRecords_GiveTheirMemoryBack) {
  DriverFeature& text = model_.feature("Text", 3);
  DriverFeatureStaticGroup& shape = model_.group("shape", {}, {&text});
  DriverFeatureDynamicGroup& group = model_.dynamicGroup("records");
  group.addDefaultStaticGroupTemplate(&shape);
  AttributeMap values;
  values["Text"] = std::string(1000, 'x');
  const auto addAll = [&] {
    for (int i = 0; i < 100; ++i) group.addStaticGroupToDynamicGroup(values);
  };
  const auto used = [] { return mallinfo2().uordblks; };
  // Of the 100,000 bytes the allocator keeps some in reserve, which it counts as used.
  constexpr std::size_t kKept = 20000;
  const std::size_t empty = used();
  addAll();
  if (used() == empty) GTEST_SKIP() << "the allocator keeps no account";
  while (group.fetchNumberOfDynamicEntries() > 0) group.removeDynamicEntryByIndex(0);
  EXPECT_LT(used(), empty + kKept);
  addAll();
  group.removeAllDynamicEntries();
  EXPECT_LT(used(), empty + kKept);
}

// The options that were copied for a record, the first of them as well, and records
// that have been used.
TEST_F(DynamicRecordTest, RemovedRecordsOfLists_GiveTheirMemoryBack) {
  DriverFeature& list = model_.feature("List", 1);
  for (const char* name : {"one", "two"}) model_.option(list, name);
  DriverFeatureStaticGroup& shape = model_.group("shape", {}, {&list});
  DriverFeatureDynamicGroup& group = model_.dynamicGroup("records");
  group.addDefaultStaticGroupTemplate(&shape);
  AttributeMap values;
  values["List"] = "two";
  const auto addAndRemove = [&] {
    for (unsigned i = 0; i < 500; ++i) {
      group.addStaticGroupToDynamicGroup(values);
      group.getDynamicEntryByIndex(i);
    }
    group.removeAllDynamicEntries();
  };
  addAndRemove();
  const std::size_t before = mallinfo2().uordblks;
  if (before == 0) GTEST_SKIP() << "the allocator keeps no account";
  addAndRemove();
  EXPECT_LT(mallinfo2().uordblks, before + 20000);
}

// Records whose template changes the group while one of them is loaded.
DriverFeatureDynamicGroup* changedGroup = nullptr;

bool removeAll() {
  if (changedGroup != nullptr) changedGroup->removeAllDynamicEntries();
  return true;
}

// As "First" and "Second" are set, the sort of host code that may run.
class RemovingFeature : public DriverFeature {
 public:
  using DriverFeature::DriverFeature;
  bool setFeaturePropertyWithConstraintControl(const std::string& name, const std::string& value,
                                               bool suppressUpdate) override {
    removeAll();
    return DriverFeature::setFeaturePropertyWithConstraintControl(name, value, suppressUpdate);
  }
};

TEST_F(DynamicRecordTest, RemovedWhileItIsLoaded_IsLoadedToItsEnd) {
  RemovingFeature first(std::string("First"));
  first.setFeatureProperty(std::string("FeatureType"), 2);
  DriverFeature& second = model_.feature("Second", 3);
  DriverFeatureStaticGroup& shape = model_.group("shape", {}, {&first, &second});
  DriverFeatureDynamicGroup& group = model_.dynamicGroup("records");
  group.addDefaultStaticGroupTemplate(&shape);
  AttributeMap values;
  values["First"] = "7";
  values["Second"] = "a text that is too long for a small place";
  ASSERT_TRUE(group.addStaticGroupToDynamicGroup(values));
  changedGroup = &group;
  EXPECT_EQ(group.getDynamicEntryByIndex(0), &shape);
  changedGroup = nullptr;
  EXPECT_EQ(group.fetchNumberOfDynamicEntries(), 0);
  std::string text;
  second.getFeatureProperty(std::string("CurrentTextValue"), text);
  EXPECT_EQ(text, "a text that is too long for a small place");
}

}  // namespace
}  // namespace driver_feature::testing
