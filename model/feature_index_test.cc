// The index of a set's feature names.

#include <string>

#include <gtest/gtest.h>

#include "model/driver_feature.h"
#include "model/driver_feature_set.h"
#include "model/feature_index.h"
#include "support/model_builder.h"
#include "support/recording_host.h"

namespace driver_feature::testing {
namespace {

// Names of the index's own map. Whether a name is found through the index or
// in the map shows with another map, which is empty.
class FeatureIndexTest : public ::testing::Test {
 protected:
  DriverFeature* put(const std::string& name) {
    return features_[name] = &made_.emplace_back(name);
  }
  DriverFeature* file(const std::string& name) {
    DriverFeature* feature = put(name);
    index_.add(features_, *features_.find(name));
    return feature;
  }
  DriverFeature* findInIndex(const std::string& name) const { return index_.find(empty_, name); }

  Objects<DriverFeature> made_;
  FeatureIndex::Features features_;
  FeatureIndex index_;
  const FeatureIndex::Features empty_ = {};
};

TEST_F(FeatureIndexTest, NotMade_TheMapIsSearched) {
  DriverFeature* a = file("a");
  EXPECT_EQ(index_.find(features_, "a"), a);
  EXPECT_EQ(index_.find(features_, "b"), nullptr);
  EXPECT_EQ(findInIndex("a"), nullptr);
}

TEST_F(FeatureIndexTest, Made_EachNameIsFoundAndNoOther) {
  for (int i = 0; i < 1000; ++i) put("Feature" + std::to_string(i));
  index_.make(features_);
  for (int i = 0; i < 1000; ++i) {
    const std::string name = "Feature" + std::to_string(i);
    EXPECT_EQ(findInIndex(name), features_.at(name)) << name;
  }
  for (const char* name : {"", "Feature", "Feature1000", "feature1", "Feature1 "}) {
    EXPECT_EQ(findInIndex(name), nullptr) << name;
  }
}

TEST_F(FeatureIndexTest, MadeOfNothing_ListsWhatIsAdded) {
  index_.make(features_);
  EXPECT_EQ(findInIndex("a"), nullptr);
  DriverFeature* a = file("a");
  EXPECT_EQ(findInIndex("a"), a);
}

TEST_F(FeatureIndexTest, AddedToAMadeOne_AllAreFoundWhileItGrows) {
  put("first");
  index_.make(features_);
  for (int i = 0; i < 300; ++i) {
    file("Feature" + std::to_string(i));
    for (const auto& [name, feature] : features_) ASSERT_EQ(findInIndex(name), feature) << name;
    ASSERT_EQ(findInIndex("absent"), nullptr);
  }
}

TEST_F(FeatureIndexTest, MadeAnew_ListsTheNewMapOnly) {
  put("a");
  index_.make(features_);
  FeatureIndex::Features others;
  DriverFeature* b = put("b");
  others["b"] = b;
  index_.make(others);
  EXPECT_EQ(findInIndex("a"), nullptr);
  EXPECT_EQ(findInIndex("b"), b);
}

TEST_F(FeatureIndexTest, NameHoldsANul_IsAnotherName) {
  const std::string name("a\0b", 3);
  DriverFeature* feature = put(name);
  index_.make(features_);
  EXPECT_EQ(findInIndex(name), feature);
  EXPECT_EQ(findInIndex("a"), nullptr);
}

TEST_F(FeatureIndexTest, FeatureReplaced_TheNewOneIsFound) {
  put("a");
  index_.make(features_);
  DriverFeature* other = put("a");
  EXPECT_EQ(findInIndex("a"), other);
}

TEST_F(FeatureIndexTest, Cleared_TheMapIsSearched) {
  put("a");
  index_.make(features_);
  index_.clear();
  EXPECT_EQ(findInIndex("a"), nullptr);
  EXPECT_EQ(index_.find(features_, "a"), features_.at("a"));
}

class IndexedSetTest : public ::testing::Test {
 protected:
  CoreFeature* find(const std::string& name) { return set_.FindFeatureInFeatureList(name); }

  RecordingHost host_;
  DriverFeatureSet set_;
  DriverFeature a_{std::string("a")};
  DriverFeature b_{std::string("b")};
};

TEST_F(IndexedSetTest, FeatureAddedAfterwards_IsFound) {
  set_.addFeatureToFeatureList("a", &a_);
  set_.indexNames();
  set_.addFeatureToFeatureList("b", &b_);
  EXPECT_EQ(find("a"), &a_);
  EXPECT_EQ(find("b"), &b_);
}

TEST_F(IndexedSetTest, FeatureReplaced_TheNewOneIsFound) {
  set_.addFeatureToFeatureList("a", &a_);
  set_.indexNames();
  set_.addFeatureToFeatureList("a", &b_);
  EXPECT_EQ(find("a"), &b_);
}

TEST_F(IndexedSetTest, ContentsSwapped_OldNamesAreForgotten) {
  set_.addFeatureToFeatureList("a", &a_);
  DriverFeatureSet::Contents before = set_.copyContents();
  set_.addFeatureToFeatureList("b", &b_);
  set_.indexNames();
  set_.swapContents(before);
  EXPECT_EQ(find("a"), &a_);
  EXPECT_EQ(find("b"), nullptr);
  set_.addFeatureToFeatureList("b", &b_);
  EXPECT_EQ(find("b"), &b_);
}

}  // namespace
}  // namespace driver_feature::testing
