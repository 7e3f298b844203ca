// Which features a list finds by name and by position, before its names are
// indexed and afterwards.

#include "model/feature_list.h"

#include <string>

#include <gtest/gtest.h>

#include "model/driver_feature.h"
#include "model/driver_feature_dynamic_group.h"
#include "model/driver_feature_static_group.h"
#include "support/model_builder.h"
#include "support/private_member.h"

namespace driver_feature::testing {

struct Index {
  using Type =
      std::unordered_map<std::string_view, const FeatureList::Features::value_type*> FeatureList::*;
  friend Type openMember(Index);
};
template struct PrivateMember<Index, &FeatureList::index_>;

namespace {

class FeatureListTest : public ::testing::Test {
 protected:
  DriverFeature* file(const std::string& name) {
    DriverFeature* feature = &made_.emplace_back(name);
    EXPECT_TRUE(list_.addFeature(name, feature));
    return feature;
  }

  std::size_t indexed() { return (list_.*openMember(Index{})).size(); }

  Objects<DriverFeature> made_;
  FeatureList list_;
};

TEST_F(FeatureListTest, NotIndexed_NamesAreFound) {
  DriverFeature* a = file("a");
  EXPECT_EQ(list_.findFeature("a"), a);
  EXPECT_EQ(list_.findFeature("b"), nullptr);
  EXPECT_EQ(indexed(), 0U);
}

TEST_F(FeatureListTest, Indexed_EachNameIsFoundAndNoOther) {
  for (int i = 0; i < 1000; ++i) file("Feature" + std::to_string(i));
  list_.indexNames();
  EXPECT_EQ(indexed(), 1000U);
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

TEST_F(FeatureListTest, AddedAfterIndexing_AllAreFoundAndIndexed) {
  file("first");
  list_.indexNames();
  for (int i = 0; i < 300; ++i) {
    DriverFeature* added = file("Feature" + std::to_string(i));
    EXPECT_EQ(list_.findFeature("Feature" + std::to_string(i)), added);
  }
  EXPECT_NE(list_.findFeature("first"), nullptr);
  EXPECT_EQ(list_.findFeature("absent"), nullptr);
  EXPECT_EQ(indexed(), 301U);
}

TEST_F(FeatureListTest, IndexedAgain_ListsEachOnce) {
  DriverFeature* a = file("a");
  list_.indexNames();
  list_.indexNames();
  EXPECT_EQ(indexed(), 1U);
  EXPECT_EQ(list_.findFeature("a"), a);
}

TEST_F(FeatureListTest, NameHoldsANul_IsAnotherName) {
  const std::string name("a\0b", 3);
  DriverFeature* feature = file(name);
  list_.indexNames();
  EXPECT_EQ(list_.findFeature(name), feature);
  EXPECT_EQ(list_.findFeature("a"), nullptr);
}

TEST_F(FeatureListTest, FeatureReplaced_TheNewOneIsFound) {
  file("a");
  list_.indexNames();
  DriverFeature* other = file("a");
  EXPECT_EQ(list_.findFeature("a"), other);
  EXPECT_EQ(list_.featureAt(0), other);
  EXPECT_EQ(list_.featureCount(), 1);
}

TEST_F(FeatureListTest, ContentsSwapped_OldNamesAreForgotten) {
  DriverFeature* a = file("a");
  FeatureList::Contents before = list_.copyContents();
  file("b");
  list_.indexNames();
  list_.swapContents(before);
  EXPECT_EQ(indexed(), 0U);
  EXPECT_EQ(list_.findFeature("a"), a);
  EXPECT_EQ(list_.findFeature("b"), nullptr);
  EXPECT_EQ(list_.featureAt(1), nullptr);
  EXPECT_EQ(before.features.count("b"), 1U);
}

TEST_F(FeatureListTest, ContentsSwapped_GroupsAreThoseOfBefore) {
  DriverFeatureStaticGroup staticGroup;
  DriverFeatureDynamicGroup dynamicGroup;
  FeatureList::Contents before = list_.copyContents();
  list_.addStaticGroup(&staticGroup);
  list_.addDynamicGroup(&dynamicGroup);
  list_.swapContents(before);
  EXPECT_EQ(list_.staticGroupCount(), 0);
  EXPECT_EQ(list_.dynamicGroupCount(), 0);
  list_.swapContents(before);
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
