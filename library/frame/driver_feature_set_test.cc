#include "frame/driver_feature_set.h"

#include <climits>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "frame/exports.h"
#include "frame/state.h"
#include "support/model_builder.h"
#include "support/recording_host.h"

namespace driver_feature::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class FeatureSetTest : public ::testing::Test {
 protected:
  FeatureSetTest() { host_.registerUpdateCallback(); }

  CoreFeature* find(const std::string& name) { return set_.FindFeatureInFeatureList(name); }

  RecordingHost host_;
  DriverFeatureSet set_;
  DriverFeature a_{std::string("a")};
  DriverFeature b_{std::string("B")};
  DriverFeatureStaticGroup static_{std::string("Static")};
  DriverFeatureDynamicGroup dynamic_{std::string("Dynamic")};
};

TEST_F(FeatureSetTest, NewSet_IsEmpty) {
  EXPECT_EQ(set_.fetchNumberOfFeatures(), 0);
  EXPECT_EQ(set_.fetchFeatureByIndex(0), nullptr);
  EXPECT_EQ(set_.list().staticGroupCount(), 0);
  EXPECT_EQ(set_.list().dynamicGroupCount(), 0);
  EXPECT_EQ(set_.fetchStaticGroupByIndex(0), nullptr);
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(FeatureSetTest, Add_NothingOrNoName_IsRefused) {
  EXPECT_EQ(set_.addFeatureToFeatureList("", &a_), 0);
  EXPECT_EQ(set_.addFeatureToFeatureList("a", nullptr), 0);
  EXPECT_EQ(set_.addStaticGroupToFeatureList(nullptr), 0);
  EXPECT_EQ(set_.addDynamicGroupToFeatureList(nullptr), 0);
  EXPECT_EQ(set_.fetchNumberOfFeatures(), 0);
  EXPECT_EQ(set_.list().staticGroupCount(), 0);
  EXPECT_EQ(set_.list().dynamicGroupCount(), 0);
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(FeatureSetTest, Features_AreInByteOrderOfTheirNames) {
  EXPECT_EQ(set_.addFeatureToFeatureList("a", &a_), 1);
  EXPECT_EQ(set_.addFeatureToFeatureList("B", &b_), 1);
  // Groups are not counted.
  set_.addStaticGroupToFeatureList(&static_);
  set_.addDynamicGroupToFeatureList(&dynamic_);
  EXPECT_EQ(set_.fetchNumberOfFeatures(), 2);
  EXPECT_EQ(set_.fetchFeatureByIndex(0), &b_);
  EXPECT_EQ(set_.fetchFeatureByIndex(1), &a_);
  for (const int index : {-1, 2, INT_MIN, INT_MAX}) {
    EXPECT_EQ(set_.fetchFeatureByIndex(index), nullptr);
  }
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(FeatureSetTest, Add_SameName_ReplacesTheFirst) {
  set_.addFeatureToFeatureList("a", &a_);
  EXPECT_EQ(set_.addFeatureToFeatureList("a", &b_), 1);
  EXPECT_EQ(set_.fetchNumberOfFeatures(), 1);
  EXPECT_EQ(set_.fetchFeatureByIndex(0), &b_);
  EXPECT_EQ(find("a"), &b_);
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(FeatureSetTest, Groups_AreInOrderOfAddition) {
  DriverFeatureStaticGroup first(std::string("z"));
  EXPECT_EQ(set_.addStaticGroupToFeatureList(&first), 1);
  EXPECT_EQ(set_.addStaticGroupToFeatureList(&static_), 1);
  EXPECT_EQ(set_.addStaticGroupToFeatureList(&first), 1);
  EXPECT_EQ(set_.list().staticGroupCount(), 3);
  EXPECT_EQ(set_.fetchStaticGroupByIndex(0), &first);
  EXPECT_EQ(set_.fetchStaticGroupByIndex(1), &static_);
  EXPECT_EQ(set_.fetchStaticGroupByIndex(2), &first);
  EXPECT_EQ(set_.fetchStaticGroupByIndex(3), nullptr);
  EXPECT_EQ(set_.fetchStaticGroupByIndex(-1), nullptr);
  EXPECT_EQ(set_.addDynamicGroupToFeatureList(&dynamic_), 1);
  EXPECT_EQ(set_.fetchDynamicGroupByIndex(0), &dynamic_);
  EXPECT_EQ(set_.fetchDynamicGroupByIndex(1), nullptr);
  EXPECT_EQ(set_.fetchNumberOfFeatures(), 0);
}

TEST_F(FeatureSetTest, CreateOption_AnyArguments_MakesNothing) {
  set_.addFeatureToFeatureList("a", &a_);
  EXPECT_EQ(set_.CreateOptionForFeature("a", "option", 0), nullptr);
  EXPECT_EQ(set_.CreateOptionForFeature("missing", "", -1), nullptr);
  EXPECT_EQ(a_.getFeatureOptionCount(), 0);
  EXPECT_EQ(set_.fetchNumberOfFeatures(), 1);
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(FeatureSetTest, FetchRoutine_IsTheHosts) {
  EXPECT_EQ(set_.fetchCallbackRoutine("RecordUpdate"), reinterpret_cast<void*>(&RecordUpdate));
  EXPECT_EQ(set_.fetchCallbackRoutine("NoSuchRoutine"), nullptr);
  EXPECT_EQ(set_.fetchCallbackRoutine(""), nullptr);
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

}  // namespace
}  // namespace driver_feature::testing
