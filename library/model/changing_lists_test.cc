// Lists that the host makes longer while the library walks them: objects of the
// host's own, and routines for log lines, may do so whenever they are called.

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "frame/master_set.h"
#include "model/driver_feature.h"
#include "model/driver_feature_dynamic_group.h"
#include "model/driver_feature_option.h"
#include "model/driver_feature_static_group.h"
#include "support/model_builder.h"
#include "support/recording_host.h"
#include "support/scripted_feature.h"

#include "AttributeMap.h"
#include "Log.h"

namespace driver_feature::testing {
namespace {

// More than a list that has a few has room for.
constexpr int kMany = 100;

// Runs an action at the first call only.
class Once {
 public:
  explicit Once(std::function<void()> action) : action_(std::move(action)) {}
  void operator()() {
    if (action_) std::exchange(action_, nullptr)();
  }

 private:
  std::function<void()> action_;
};

class GrowingOption : public DriverFeatureOption {
 public:
  explicit GrowingOption(std::function<void()> action) : once_(std::move(action)) {}
  bool getOptionProperty(const std::string& name, std::string& value) override {
    once_();
    return DriverFeatureOption::getOptionProperty(name, value);
  }
  bool getOptionProperty(const std::string& /*name*/, bool* value) override {
    once_();
    *value = false;
    return true;
  }

 private:
  Once once_;
};

class GrowingFeature : public DriverFeature {
 public:
  GrowingFeature(const std::string& name, std::function<void()> action)
      : DriverFeature(name), once_(std::move(action)) {}
  using DriverFeature::getFeatureProperty;
  bool getFeatureProperty(const std::string& name, std::string& value) override {
    once_();
    return DriverFeature::getFeatureProperty(name, value);
  }
  int getFeatureType() override {
    once_();
    return DriverFeature::getFeatureType();
  }

 private:
  Once once_;
};

template <class Group>
class GrowingGroup : public Group {
 public:
  GrowingGroup(const std::string& name, std::function<void()> action)
      : Group(name), once_(std::move(action)) {}
  using Group::getFeatureProperty;
  bool getFeatureProperty(const std::string& name, std::string& value) override {
    once_();
    return Group::getFeatureProperty(name, value);
  }

 private:
  Once once_;
};

class ChangingListsTest : public ::testing::Test {
 protected:
  ~ChangingListsTest() override { SetLogHandler(nullptr, nullptr); }

  // A list whose first option adds others after itself when it is asked.
  void startList() { list_.addOptionToFeature(&growing_); }

  void addOptions() {
    for (int i = 1; i <= kMany; ++i) {
      model_.option(list_, "added " + std::to_string(i), {{"SNMPValue", "5"}});
    }
  }

  RecordingHost host_;
  ModelBuilder model_;
  DriverFeature& list_ = model_.feature("list", 1);
  GrowingOption growing_{[this] { addOptions(); }};
};

TEST_F(ChangingListsTest, OptionIndexByName_OptionAddsOthers_FindsThem) {
  startList();
  EXPECT_EQ(list_.fetchOptionIndexByName(std::string("added 100")), 100);
}

TEST_F(ChangingListsTest, OptionIndexByAttribute_OptionAddsOthers_FindsThem) {
  startList();
  EXPECT_EQ(list_.fetchOptionIndexByName(std::string("SNMPValue"), std::string("5")), 1);
}

TEST_F(ChangingListsTest, OptionByName_OptionAddsOthers_FindsThem) {
  startList();
  const CoreOption* found = list_.fetchOptionByName(std::string("added 100"));
  EXPECT_EQ(found, list_.fetchOptionByIndex(100));
}

TEST_F(ChangingListsTest, OptionByAttribute_OptionAddsOthers_FindsThem) {
  startList();
  const CoreOption* found = list_.fetchOptionByName(std::string("SNMPValue"), std::string("5"));
  EXPECT_EQ(found, list_.fetchOptionByIndex(1));
}

TEST_F(ChangingListsTest, NextAvailable_OptionAddsOthers_TriesThoseThatWereThere) {
  startList();
  model_.option(list_, "there before");
  int position = 2;
  EXPECT_TRUE(list_.findNextAvailableOption(&position));
  EXPECT_EQ(position, 1);
}

TEST_F(ChangingListsTest, Copy_OptionAddsOthers_CopiesThem) {
  startList();
  DriverFeature copy(&list_);
  EXPECT_EQ(copy.fetchNumberOfOptions(), kMany + 1);
}

TEST_F(ChangingListsTest, FindByName_GroupAddsGroups_FindsThem) {
  GrowingGroup<DriverFeatureStaticGroup> group("first", [this] {
    for (int i = 1; i <= kMany; ++i) model_.group("added " + std::to_string(i), {});
  });
  masterSet().addStaticGroupToFeatureList(&group);
  const CoreFeature* found = masterSet().FindFeatureInFeatureList(std::string("added 100"));
  EXPECT_EQ(found, masterSet().fetchStaticGroupByIndex(100));
}

TEST_F(ChangingListsTest, FindByName_DynamicGroupAddsGroups_FindsThem) {
  GrowingGroup<DriverFeatureDynamicGroup> group("first", [this] {
    for (int i = 1; i <= kMany; ++i) model_.dynamicGroup("added " + std::to_string(i));
  });
  masterSet().addDynamicGroupToFeatureList(&group);
  const CoreFeature* found = masterSet().FindFeatureInFeatureList(std::string("added 100"));
  EXPECT_EQ(found, masterSet().fetchDynamicGroupByIndex(100));
}

TEST_F(ChangingListsTest, FindByAttribute_FeatureAddsFeatures_FindsThem) {
  GrowingFeature feature("a", [this] {
    for (int i = 1; i <= kMany; ++i) model_.feature("b" + std::to_string(i), 2);
  });
  masterSet().addFeatureToFeatureList("a", &feature);
  CoreFeature* found = masterSet().FindFeatureInFeatureList(std::string("Name"), "b99");
  ASSERT_NE(found, nullptr);
  EXPECT_EQ(found, masterSet().FindFeatureInFeatureList(std::string("b99")));
}

TEST_F(ChangingListsTest, RestoreDefaults_FeatureAddsFeatures_RestoresThem) {
  DriverFeature* last = nullptr;
  GrowingFeature feature("a", [&] {
    for (int i = 1; i <= kMany; ++i) last = &model_.feature("b" + std::to_string(i), 2);
    last->setFeatureProperty(std::string("DefaultIntValue"), 7);
  });
  masterSet().addFeatureToFeatureList("a", &feature);
  masterSet().restoreDefaultFeatureValues();
  int value = 0;
  last->getFeatureProperty(std::string("CurrentIntValue"), &value);
  EXPECT_EQ(value, 7);
}

TEST_F(ChangingListsTest, MemberByName_MemberAddsMembers_FindsThem) {
  DriverFeatureStaticGroup group(std::string("group"));
  DriverFeature* last = nullptr;
  GrowingFeature member("member", [&] {
    for (int i = 1; i <= kMany; ++i) {
      last = &model_.feature("added " + std::to_string(i), 2);
      group.addFeatureToGroup(last);
    }
  });
  group.addFeatureToGroup(&member);
  EXPECT_EQ(group.fetchFeatureInGroupByName(std::string("added 100")), last);
}

// A record of one member, "page".
class ChangingRecordsTest : public ChangingListsTest {
 protected:
  ChangingRecordsTest() {
    group_.addDefaultStaticGroupTemplate(&shape_);
    shape_.setFeatureProperty(std::string("FeatureType"), 7);
  }

  static AttributeMap record(const std::string& name, const std::string& page) {
    AttributeMap values;
    values[name] = page;
    return values;
  }

  void addMany() {
    AttributeMap values = record("page", "5");
    for (int i = 1; i <= kMany; ++i) group_.addStaticGroupToDynamicGroupWithSort(values, false);
  }

  DriverFeature& page_ = model_.feature("page", 2);
  DriverFeatureStaticGroup& shape_ = model_.group("shape", {}, {&page_});
  DriverFeatureDynamicGroup& group_ = model_.dynamicGroup("records");
};

TEST_F(ChangingRecordsTest, Duplicate_LogHandlerAddsRecords_ComparesThem) {
  AttributeMap values = record("page", "3");
  group_.addStaticGroupToDynamicGroup(values);
  Once once([this] { addMany(); });
  int lines = 0;
  std::function<void()> onLine = [&] {
    ++lines;
    once();
  };
  SetLogHandler([](int, const char*, const char*, std::size_t,
                   void* context) { (*static_cast<std::function<void()>*>(context))(); },
                &onLine);
  // No record has such a member, so that each writes a line.
  AttributeMap unknown = record("sheet", "5");
  EXPECT_FALSE(group_.detectDuplicateRecord(unknown));
  SetLogHandler(nullptr, nullptr);
  EXPECT_EQ(lines, kMany + 1);
}

TEST_F(ChangingRecordsTest, AddRecord_MemberAddsMembers_TakesThoseThatWereThere) {
  GrowingFeature member("growing", [this] {
    for (int i = 1; i <= kMany; ++i) {
      shape_.addFeatureToGroup(&model_.feature("added " + std::to_string(i), 2));
    }
  });
  shape_.addFeatureToGroup(&member);
  AttributeMap values = record("page", "5");
  values["growing"] = "first";
  EXPECT_TRUE(group_.addStaticGroupToDynamicGroup(values));
  EXPECT_EQ(group_.fetchNumberOfDynamicEntries(), 1);
}

}  // namespace
}  // namespace driver_feature::testing
