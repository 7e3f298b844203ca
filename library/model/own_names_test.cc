// Which object of a name is found, and when the objects have to be asked.

#include "model/own_names.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "model/driver_feature.h"
#include "model/driver_feature_dynamic_group.h"
#include "model/driver_feature_static_group.h"

namespace driver_feature::testing {
namespace {

// Below and above the size from which on there is an index.
constexpr int kSizes[] = {1, 15, 16, 17, 1000};

class OwnNamesTest : public ::testing::TestWithParam<int> {
 protected:
  std::optional<int> find(const std::string& name) {
    return names_.find(name, static_cast<int>(list_.size()), [this](int position) {
      ++asked_;
      const std::string& text = list_[static_cast<std::size_t>(position)];
      return text == "foreign" ? std::nullopt : std::optional<std::string_view>(text);
    });
  }

  std::vector<std::string> list_;
  int asked_ = 0;
  OwnNames names_;
};

TEST_F(OwnNamesTest, EmptyList_HoldsNoName) {
  EXPECT_EQ(find(""), -1);
}

TEST_P(OwnNamesTest, EachName_IsFoundAtItsPosition) {
  for (int i = 0; i < GetParam(); ++i) list_.push_back("name " + std::to_string(i));
  for (int i = 0; i < GetParam(); ++i) EXPECT_EQ(find("name " + std::to_string(i)), i);
  EXPECT_EQ(find("name"), -1);
  EXPECT_EQ(find(""), -1);
}

TEST_P(OwnNamesTest, SeveralOfAName_TheFirstIsFound) {
  for (int i = 0; i < GetParam(); ++i) list_.push_back("same");
  EXPECT_EQ(find("same"), 0);
  list_.push_back("other");
  list_.push_back("other");
  EXPECT_EQ(find("same"), 0);
  EXPECT_EQ(find("other"), GetParam());
}

TEST_P(OwnNamesTest, ForeignObject_EveryoneHasToBeAsked) {
  for (int i = 0; i < GetParam(); ++i) list_.push_back("name " + std::to_string(i));
  EXPECT_EQ(find("absent"), -1);
  list_.push_back("foreign");
  EXPECT_EQ(find("absent"), std::nullopt);
  list_.push_back("behind");
  EXPECT_EQ(find("behind"), std::nullopt);
}

TEST_P(OwnNamesTest, NameChangedAndNoted_TheNewOneIsFound) {
  for (int i = 0; i < GetParam(); ++i) list_.push_back("name " + std::to_string(i));
  const int last = GetParam() - 1;
  const std::string before = list_.back();
  for (int i = 0; i < 2; ++i) EXPECT_EQ(find(before), last);
  list_.back() = "new";
  noteNameChange();
  EXPECT_EQ(find("new"), last);
  EXPECT_EQ(find(before), -1);
}

TEST_F(OwnNamesTest, LongList_FirstSearch_AsksUpToTheOneFound) {
  for (int i = 0; i < 10000; ++i) list_.push_back("name " + std::to_string(i));
  EXPECT_EQ(find("name 7"), 7);
  EXPECT_EQ(asked_, 8);
}

TEST_F(OwnNamesTest, LongList_LaterSearches_AskFewForTheirNames) {
  for (int i = 0; i < 10000; ++i) list_.push_back("name " + std::to_string(i));
  find("absent");
  find("absent");
  asked_ = 0;
  EXPECT_EQ(find("name 9999"), 9999);
  EXPECT_LE(asked_, 3);
}

INSTANTIATE_TEST_SUITE_P(Sizes, OwnNamesTest, ::testing::ValuesIn(kSizes),
                         ::testing::PrintToStringParamName());

// One of a host's own class.
class HostFeature : public DriverFeature {
 public:
  using DriverFeature::DriverFeature;
};

TEST(NameOfOwnTest, ObjectsOfTheLibrary_HaveTheirNames) {
  DriverFeature feature(std::string("feature"));
  DriverFeatureStaticGroup group(std::string("group"));
  DriverFeatureDynamicGroup records(std::string("records"));
  EXPECT_EQ(nameOfOwn(&feature), "feature");
  EXPECT_EQ(nameOfOwn(&group), "group");
  EXPECT_EQ(nameOfOwn(&records), "records");
}

TEST(NameOfOwnTest, NullAndObjectsOfAHost_HaveNone) {
  const HostFeature feature(std::string("feature"));
  EXPECT_EQ(nameOfOwn(&feature), std::nullopt);
  EXPECT_EQ(nameOfOwn(nullptr), std::nullopt);
}

}  // namespace
}  // namespace driver_feature::testing
