// Which features a list finds by name and by position.

#include "model/feature_list.h"

#include <string>

#include <gtest/gtest.h>

#include "model/driver_feature.h"
#include "model/driver_feature_dynamic_group.h"
#include "model/driver_feature_static_group.h"
#include "support/model_builder.h"

namespace driver_feature::testing {
namespace {

class FeatureListTest : public ::testing::Test {
 protected:
  DriverFeature* file(const std::string& name) {
    DriverFeature* feature = &made_.emplace_back(name);
    EXPECT_TRUE(list_.addFeature(name, feature));
    return feature;
  }

  Objects<DriverFeature> made_;
  FeatureList list_;
};

TEST_F(FeatureListTest, Empty_NothingIsFound) {
  EXPECT_EQ(list_.findFeature("a"), nullptr);
  EXPECT_EQ(list_.featureAt(0), nullptr);
  EXPECT_EQ(list_.featureAt(-1), nullptr);
}

TEST_F(FeatureListTest, Name_EachIsFoundAsSoonAsItIsAddedAndNoOther) {
  for (int i = 0; i < 1000; ++i) {
    const std::string name = "Feature" + std::to_string(i);
    EXPECT_EQ(list_.findFeature(name), nullptr) << name;
    DriverFeature* added = file(name);
    EXPECT_EQ(list_.findFeature(name), added) << name;
  }
  for (int i = 0; i < 1000; ++i) {
    const std::string name = "Feature" + std::to_string(i);
    DriverFeature* found = list_.findFeature(name);
    ASSERT_NE(found, nullptr) << name;
    std::string text;
    found->getFeatureProperty(std::string("Name"), text);
    EXPECT_EQ(text, name);
  }
  for (const char* name : {"", "Feature", "Feature1000", "feature1", "Feature1 "}) {
    EXPECT_EQ(list_.findFeature(name), nullptr) << name;
  }
}

TEST_F(FeatureListTest, NameHoldsANul_IsAnotherName) {
  const std::string name("a\0b", 3);
  DriverFeature* feature = file(name);
  EXPECT_EQ(list_.findFeature(name), feature);
  EXPECT_EQ(list_.findFeature("a"), nullptr);
}

TEST_F(FeatureListTest, FeatureReplaced_TheNewOneIsFound) {
  file("a");
  DriverFeature* other = file("a");
  EXPECT_EQ(list_.findFeature("a"), other);
  EXPECT_EQ(list_.featureAt(0), other);
  EXPECT_EQ(list_.featureCount(), 1);
}

TEST_F(FeatureListTest, Position_AddedInAnyOrder_IsTheOneOfTheName) {
  DriverFeature* b = file("b");
  DriverFeature* d = file("d");
  EXPECT_EQ(list_.featureAt(0), b);
  EXPECT_EQ(list_.featureAt(1), d);
  DriverFeature* c = file("c");
  DriverFeature* a = file("a");
  DriverFeature* upper = file("B");
  DriverFeature* const expected[] = {upper, a, b, c, d};
  for (int i = 0; i < 5; ++i) EXPECT_EQ(list_.featureAt(i), expected[i]) << i;
  EXPECT_EQ(list_.featureAt(5), nullptr);
}

TEST_F(FeatureListTest, RolledBack_WhatWasAddedIsForgotten) {
  DriverFeature* b = file("b");
  DriverFeature* c = file("c");
  const FeatureList::Mark before = list_.mark();
  for (int i = 0; i < 100; ++i) file("a" + std::to_string(i));
  EXPECT_EQ(list_.featureAt(100), b);
  list_.rollBack(before);
  EXPECT_EQ(list_.featureCount(), 2);
  EXPECT_EQ(list_.findFeature("b"), b);
  EXPECT_EQ(list_.findFeature("a7"), nullptr);
  EXPECT_EQ(list_.featureAt(0), b);
  EXPECT_EQ(list_.featureAt(1), c);
  EXPECT_EQ(list_.featureAt(2), nullptr);
  DriverFeature* again = file("a7");
  EXPECT_EQ(list_.findFeature("a7"), again);
  EXPECT_EQ(list_.featureAt(0), again);
}

TEST_F(FeatureListTest, RolledBack_ReplacedFeaturesAreFiledAgain) {
  DriverFeature* first = file("a");
  const FeatureList::Mark outer = list_.mark();
  DriverFeature* second = file("a");
  const FeatureList::Mark inner = list_.mark();
  file("a");
  file("b");
  file("b");
  list_.rollBack(inner);
  EXPECT_EQ(list_.findFeature("a"), second);
  EXPECT_EQ(list_.findFeature("b"), nullptr);
  list_.rollBack(outer);
  EXPECT_EQ(list_.findFeature("a"), first);
  EXPECT_EQ(list_.featureAt(0), first);
}

TEST_F(FeatureListTest, RolledBack_GroupsAreThoseOfBefore) {
  DriverFeatureStaticGroup staticGroup;
  DriverFeatureDynamicGroup dynamicGroup;
  list_.addStaticGroup(&staticGroup);
  list_.addDynamicGroup(&dynamicGroup);
  const FeatureList::Mark before = list_.mark();
  list_.addStaticGroup(&staticGroup);
  list_.addDynamicGroup(&dynamicGroup);
  list_.rollBack(before);
  EXPECT_EQ(list_.staticGroupCount(), 1);
  EXPECT_EQ(list_.dynamicGroupCount(), 1);
  EXPECT_EQ(list_.staticGroupAt(0), &staticGroup);
  EXPECT_EQ(list_.dynamicGroupAt(0), &dynamicGroup);
}

TEST_F(FeatureListTest, EmptyNameOrNull_IsRefused) {
  DriverFeature feature;
  EXPECT_FALSE(list_.addFeature("", &feature));
  EXPECT_FALSE(list_.addFeature("a", nullptr));
  EXPECT_FALSE(list_.addStaticGroup(nullptr));
  EXPECT_FALSE(list_.addDynamicGroup(nullptr));
  EXPECT_EQ(list_.featureCount(), 0);
  EXPECT_EQ(list_.staticGroupCount(), 0);
  EXPECT_EQ(list_.dynamicGroupCount(), 0);
}

}  // namespace
}  // namespace driver_feature::testing
