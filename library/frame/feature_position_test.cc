// Features fetched by their position, in whatever order they are asked for.

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "model/driver_feature.h"
#include "frame/driver_feature_set.h"
#include "support/model_builder.h"
#include "support/recording_host.h"

namespace driver_feature::testing {
namespace {

class FeaturePositionTest : public ::testing::Test {
 protected:
  // Adds a feature named by one letter.
  DriverFeature* add(char letter) {
    DriverFeature* feature = &features_.emplace_back();
    set_.addFeatureToFeatureList(std::string(1, letter), feature);
    return feature;
  }

  RecordingHost host_;
  Objects<DriverFeature> features_;
  DriverFeatureSet set_;
};

TEST_F(FeaturePositionTest, AnyOrder_FindsEachAtItsPlace) {
  const std::string letters = "gaecfdb";
  std::vector<DriverFeature*> sorted(letters.size());
  for (const char letter : letters) sorted[static_cast<std::size_t>(letter - 'a')] = add(letter);
  // Each position from each other one.
  for (int from = 0; from < 7; ++from) {
    for (int to = 0; to < 7; ++to) {
      EXPECT_EQ(set_.fetchFeatureByIndex(from), sorted[static_cast<std::size_t>(from)]);
      EXPECT_EQ(set_.fetchFeatureByIndex(to), sorted[static_cast<std::size_t>(to)])
          << "from " << from << " to " << to;
    }
  }
}

TEST_F(FeaturePositionTest, OutsideTheList_IsNullAndLosesNoPlace) {
  DriverFeature* a = add('a');
  DriverFeature* b = add('b');
  EXPECT_EQ(set_.fetchFeatureByIndex(0), a);
  EXPECT_EQ(set_.fetchFeatureByIndex(2), nullptr);
  EXPECT_EQ(set_.fetchFeatureByIndex(-1), nullptr);
  EXPECT_EQ(set_.fetchFeatureByIndex(1), b);
}

TEST_F(FeaturePositionTest, FeatureAddedBeforeTheLastFetched_MovesItsPlace) {
  DriverFeature* b = add('b');
  DriverFeature* d = add('d');
  EXPECT_EQ(set_.fetchFeatureByIndex(1), d);
  DriverFeature* a = add('a');
  EXPECT_EQ(set_.fetchFeatureByIndex(1), b);
  EXPECT_EQ(set_.fetchFeatureByIndex(2), d);
  EXPECT_EQ(set_.fetchFeatureByIndex(0), a);
}

TEST_F(FeaturePositionTest, FeatureReplaced_TheNewOneIsFetched) {
  add('a');
  add('b');
  EXPECT_NE(set_.fetchFeatureByIndex(1), nullptr);
  DriverFeature* other = add('b');
  EXPECT_EQ(set_.fetchFeatureByIndex(1), other);
}

TEST_F(FeaturePositionTest, RolledBack_OldPlacesAreForgotten) {
  DriverFeature* a = add('a');
  DriverFeature* c = add('c');
  const FeatureList::Mark before = set_.list().mark();
  add('b');
  EXPECT_EQ(set_.fetchFeatureByIndex(2), c);
  set_.list().rollBack(before);
  EXPECT_EQ(set_.fetchFeatureByIndex(2), nullptr);
  EXPECT_EQ(set_.fetchFeatureByIndex(1), c);
  EXPECT_EQ(set_.fetchFeatureByIndex(0), a);
}

}  // namespace
}  // namespace driver_feature::testing
