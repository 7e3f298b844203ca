// The search for the next option that is available.

#include <climits>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/driver_feature.h"
#include "model/driver_feature_option.h"
#include "support/recording_host.h"
#include "support/scripted_feature.h"

#include "Log.h"

namespace driver_feature::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;

class NextAvailableOptionTest : public ::testing::Test {
 protected:
  NextAvailableOptionTest() {
    for (DriverFeatureOption* option : {&a_, &b_, &c_}) feature_.addOptionToFeature(option);
  }

  void setAvailable(const bool (&available)[3]) {
    a_.setOptionProperty(std::string("Sensitivity"), available[0]);
    b_.setOptionProperty(std::string("Sensitivity"), available[1]);
    c_.setOptionProperty(std::string("Sensitivity"), available[2]);
  }

  RecordingHost host_;
  DriverFeatureOption a_{std::string("A")};
  DriverFeatureOption b_{std::string("B")};
  DriverFeatureOption c_{std::string("C")};
  DriverFeature feature_{std::string("Tray")};
};

// Which options are available, and where the search starts and ends.
struct SearchRow {
  const char* what;
  bool available[3];
  int start;
  int found;
};

TEST_F(NextAvailableOptionTest, AnyStart_WrapsAroundAndNeverReturnsTheStart) {
  const SearchRow rows[] = {
      {"the next", {true, true, true}, 0, 1},
      {"wraps from the last", {true, true, true}, 2, 0},
      {"over an unavailable one", {true, false, true}, 0, 2},
      {"tests C, then A", {true, false, false}, 1, 0},
      {"behind the last, all", {true, false, false}, 3, 0},
      {"behind the last, the last", {false, false, true}, 3, 2},
      {"far behind, all in the second pass", {false, true, false}, 100, 1},
      {"largest", {false, false, true}, INT_MAX, 2},
      {"before the first", {true, false, false}, -1, 0},
      {"far before", {false, true, false}, -100, 1},
      {"smallest", {false, false, true}, INT_MIN, 2},
  };
  for (const SearchRow& row : rows) {
    SCOPED_TRACE(row.what);
    setAvailable(row.available);
    int position = row.start;
    EXPECT_TRUE(feature_.findNextAvailableOption(&position));
    EXPECT_EQ(position, row.found);
    EXPECT_THAT(host_.takeEvents(), IsEmpty());
  }
}

TEST_F(NextAvailableOptionTest, NoOtherOption_IsLoggedAndKeepsThePosition) {
  const SearchRow rows[] = {
      {"only the start", {false, true, false}, 1, 1},
      {"none", {false, false, false}, 0, 0},
  };
  for (const SearchRow& row : rows) {
    SCOPED_TRACE(row.what);
    setAvailable(row.available);
    int position = row.start;
    LogMessageBuffer = "untouched";
    EXPECT_FALSE(feature_.findNextAvailableOption(&position));
    EXPECT_EQ(position, row.found);
    EXPECT_EQ(LogMessageBuffer.utf8(), "untouched");
    EXPECT_THAT(host_.takeEvents(),
                ElementsAre(logLine(2,
                                    "DriverFeatureOption::findNextAvailableOption() - No options "
                                    "are available!")));
  }
}

// An option that is not available and writes down that it was asked.
class AskedOption : public DriverFeatureOption {
 public:
  explicit AskedOption(const std::string& name) : DriverFeatureOption(name), name_(name) {}
  using DriverFeatureOption::getOptionProperty;
  bool getOptionProperty(const std::string& name, bool* value) override {
    RecordingHost::record(name + " of " + name_);
    *value = false;
    return true;
  }

 private:
  std::string name_;
};

TEST_F(NextAvailableOptionTest, AnyStart_AsksTheOptionsInTwoPasses) {
  AskedOption first(std::string("1"));
  AskedOption second(std::string("2"));
  DriverFeature feature;
  feature.addOptionToFeature(&first);
  feature.addOptionToFeature(&second);
  const std::string none =
      logLine(2, "DriverFeatureOption::findNextAvailableOption() - No options are available!");
  const std::string one = "Sensitivity of 1";
  const std::string two = "Sensitivity of 2";
  const std::pair<int, std::vector<std::string>> rows[] = {
      {-1, {one, two, none}},          {0, {two, none}},      {1, {one, none}},
      {2, {one, two, one, two, none}}, {3, {one, two, none}},
  };
  for (const auto& [start, events] : rows) {
    int position = start;
    EXPECT_FALSE(feature.findNextAvailableOption(&position)) << start;
    EXPECT_EQ(position, start);
    EXPECT_THAT(host_.takeEvents(), ElementsAreArray(events)) << start;
  }
}

TEST_F(NextAvailableOptionTest, HiddenOption_IsAvailable) {
  b_.setOptionProperty(std::string("Visibility"), false);
  int position = 0;
  EXPECT_TRUE(feature_.findNextAvailableOption(&position));
  EXPECT_EQ(position, 1);
}

TEST_F(NextAvailableOptionTest, UnreadableOption_IsPassedOver) {
  UnreadableOption unreadable;
  DriverFeature feature;
  feature.addOptionToFeature(&a_);
  feature.addOptionToFeature(&unreadable);
  feature.addOptionToFeature(&c_);
  int position = 0;
  EXPECT_TRUE(feature.findNextAvailableOption(&position));
  EXPECT_EQ(position, 2);
}

// Reads as true and gives no value.
class WordlessOption : public DriverFeatureOption {
 public:
  using DriverFeatureOption::getOptionProperty;
  bool getOptionProperty(const std::string& /*name*/, bool* /*value*/) override { return true; }
};

TEST_F(NextAvailableOptionTest, OptionGivesNoValue_IsNotAvailable) {
  WordlessOption wordless;
  DriverFeature feature;
  feature.addOptionToFeature(&a_);
  feature.addOptionToFeature(&wordless);
  int position = 0;
  EXPECT_FALSE(feature.findNextAvailableOption(&position));
}

TEST_F(NextAvailableOptionTest, OfAnotherType_SearchesAllTheSame) {
  feature_.setFeatureProperty(std::string("FeatureType"), 2);
  int position = 0;
  EXPECT_TRUE(feature_.findNextAvailableOption(&position));
  EXPECT_EQ(position, 1);
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(NextAvailableOptionTest, EmptyList_HasNone) {
  DriverFeature empty;
  int position = 0;
  EXPECT_FALSE(empty.findNextAvailableOption(&position));
  EXPECT_EQ(position, 0);
}

}  // namespace
}  // namespace driver_feature::testing
