#include <climits>
#include <string>

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
using ::testing::IsEmpty;

class OptionListTest : public ::testing::Test {
 protected:
  OptionListTest() {
    host_.registerUpdateCallback();
    for (DriverFeatureOption* option : {&a_, &b_, &c_}) feature_.addOptionToFeature(option);
  }

  void setCurrent(int position) {
    feature_.setFeaturePropertyWithConstraintControl(std::string("CurrentIntValue"), position,
                                                     true);
  }

  static std::string misuse(const std::string& text) {
    return logLine(2, "DriverFeature::" + text + " of non-combobox feature \"Tray\".");
  }

  const std::string outOfRange_ =
      logLine(2,
              "DriverFeature::fetchOptionByIndex() - Attempt to fetch feature option with index "
              "out of range for feature \"Tray\".");

  RecordingHost host_;
  DriverFeatureOption a_{std::string("A")};
  DriverFeatureOption b_{std::string("B")};
  DriverFeatureOption c_{std::string("C")};
  DriverFeature feature_{std::string("Tray")};
};

TEST_F(OptionListTest, Options_KeepTheOrderOfAddition) {
  EXPECT_EQ(feature_.fetchNumberOfOptions(), 3);
  EXPECT_EQ(feature_.getFeatureOptionCount(), 3);
  EXPECT_EQ(feature_.fetchOptionIndexByName(std::string("A")), 0);
  EXPECT_EQ(feature_.fetchOptionIndexByName(std::string("B")), 1);
  EXPECT_EQ(feature_.fetchOptionIndexByName(std::string("C")), 2);
  EXPECT_EQ(feature_.fetchOptionByIndex(0), &a_);
  EXPECT_EQ(feature_.fetchOptionByIndex(2), &c_);
  EXPECT_EQ(feature_.fetchOptionByName(std::string("B")), &b_);
  EXPECT_EQ(feature_.fetchCurrentOption(), &a_);
  setCurrent(2);
  EXPECT_EQ(feature_.fetchCurrentOption(), &c_);
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(OptionListTest, Add_Option_TellsNobodyAndKeepsTheValue) {
  DriverFeatureOption second(std::string("B"));
  setCurrent(1);
  EXPECT_TRUE(feature_.addOptionToFeature(&second));
  EXPECT_EQ(feature_.fetchNumberOfOptions(), 4);
  EXPECT_EQ(feature_.fetchOptionByIndex(3), &second);
  // The first of a name is found.
  EXPECT_EQ(feature_.fetchOptionByName(std::string("B")), &b_);
  EXPECT_EQ(feature_.fetchCurrentOption(), &b_);
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(OptionListTest, Add_Null_IsRefused) {
  EXPECT_FALSE(feature_.addOptionToFeature(nullptr));
  feature_.setFeatureProperty(std::string("FeatureType"), 2);
  EXPECT_FALSE(feature_.addOptionToFeature(nullptr));
  const std::string line =
      logLine(2,
              "DriverFeature::addOptionToFeature() - Attempt to add null feature option to feature "
              "for feature \"Tray\".");
  EXPECT_THAT(host_.takeEvents(), ElementsAre(line, line));
}

TEST_F(OptionListTest, EveryOperation_OfAnotherType_IsRefused) {
  for (const int type : {0, 2, 3, 4, 5, 6}) {
    feature_.setFeatureProperty(std::string("FeatureType"), type);
    EXPECT_FALSE(feature_.addOptionToFeature(&a_));
    EXPECT_EQ(feature_.getFeatureOptionCount(), -1);
    EXPECT_EQ(feature_.fetchNumberOfOptions(), 0);
    EXPECT_EQ(feature_.fetchOptionIndexByName(std::string("A")), -1);
    EXPECT_EQ(feature_.fetchOptionIndexByName(std::string("Name"), std::string("A")), -1);
    EXPECT_EQ(feature_.fetchCurrentOption(), nullptr);
    EXPECT_EQ(feature_.fetchOptionByName(std::string("A")), nullptr);
    EXPECT_EQ(feature_.fetchOptionByName(std::string("Name"), std::string("A")), nullptr);
    EXPECT_EQ(feature_.fetchOptionByIndex(0), nullptr);
    const std::string index = misuse("fetchOptionIndexByName() - Attempt to get option index");
    const std::string byName = misuse("fetchOptionByName() - Attempt to fetch feature option");
    EXPECT_THAT(
        host_.takeEvents(),
        ElementsAre(
            logLine(2,
                    "DriverFeature::addOptionToFeature() - Attempt to add feature option \"A\" to "
                    "non-combobox feature \"Tray\"."),
            misuse("getFeatureOptionCount() - Attempt to get feature option count"),
            misuse("fetchNumberOfOptions() - Attempt to fetch nubmer of feature options"), index,
            index, misuse("fetchCurrentOption() - Attempt to fetch current feature option"), byName,
            byName, misuse("fetchOptionByIndex() - Attempt to fetch feature option")));
  }
}

TEST_F(OptionListTest, EmptyList_HasNoCurrentOption) {
  DriverFeature empty(std::string("Tray"));
  EXPECT_EQ(empty.fetchNumberOfOptions(), 0);
  EXPECT_EQ(empty.getFeatureOptionCount(), 0);
  EXPECT_EQ(empty.fetchCurrentOption(), nullptr);
  EXPECT_THAT(host_.takeEvents(), ElementsAre(outOfRange_));
}

TEST_F(OptionListTest, ByIndex_OutOfRange_IsLoggedAndNull) {
  for (const int index : {-1, 3, INT_MIN, INT_MAX}) {
    EXPECT_EQ(feature_.fetchOptionByIndex(index), nullptr);
    setCurrent(index);
    EXPECT_EQ(feature_.fetchCurrentOption(), nullptr);
    EXPECT_THAT(host_.takeEvents(), ElementsAre(outOfRange_, outOfRange_));
  }
}

TEST_F(OptionListTest, ByName_Absent_IsLoggedAndNull) {
  EXPECT_EQ(feature_.fetchOptionByName(std::string("D")), nullptr);
  EXPECT_EQ(feature_.fetchOptionByName(std::string("a")), nullptr);
  const std::string text = "DriverFeature::fetchOptionByName() - Option \"";
  EXPECT_THAT(host_.takeEvents(),
              ElementsAre(logLine(3, text + "D\" of feature \"Tray\" was not found."),
                          logLine(3, text + "a\" of feature \"Tray\" was not found.")));
  EXPECT_EQ(feature_.fetchOptionIndexByName(std::string("D")), -1);
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(OptionListTest, ByProperty_Value_FindsTheFirst) {
  b_.setOptionProperty(std::string("SNMPValue"), std::string("7"));
  c_.setOptionProperty(std::string("SNMPValue"), std::string("7"));
  const std::string attribute = "SNMPValue";
  EXPECT_EQ(feature_.fetchOptionIndexByName(attribute, std::string("7")), 1);
  EXPECT_EQ(feature_.fetchOptionByName(attribute, std::string("7")), &b_);
  EXPECT_EQ(feature_.fetchOptionIndexByName(attribute, std::string("8")), -1);
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
  EXPECT_EQ(feature_.fetchOptionByName(attribute, std::string("8")), nullptr);
  EXPECT_THAT(host_.takeEvents(),
              ElementsAre(logLine(3,
                                  "DriverFeature::fetchOptionByName() - Option with attribute "
                                  "\"SNMPValue\" = \"8\" was not found.")));
}

TEST_F(OptionListTest, ByUnknownProperty_EmptyValue_MatchesByIndexOnly) {
  const auto unread = [](const std::string& option) {
    return logLine(3,
                   "DriverFeatureOption::getOptionProperty(string&) - Unrecognized option "
                   "property:  \"Encrypted\" for option \"" +
                       option + "\".");
  };
  EXPECT_EQ(feature_.fetchOptionIndexByName(std::string("Encrypted"), std::string()), 0);
  EXPECT_THAT(host_.takeEvents(), ElementsAre(unread("A")));
  EXPECT_EQ(feature_.fetchOptionIndexByName(std::string("Encrypted"), std::string("x")), -1);
  EXPECT_THAT(host_.takeEvents(), ElementsAre(unread("A"), unread("B"), unread("C")));
  EXPECT_EQ(feature_.fetchOptionByName(std::string("Encrypted"), std::string()), nullptr);
  EXPECT_THAT(host_.takeEvents(),
              ElementsAre(unread("A"), unread("B"), unread("C"),
                          logLine(3,
                                  "DriverFeature::fetchOptionByName() - Option with attribute "
                                  "\"Encrypted\" = \"\" was not found.")));
}

TEST_F(OptionListTest, ByProperty_UnreadableOption_KeepsTheTextOfTheOneBefore) {
  UnreadableOption unreadable;
  DriverFeature feature(std::string("Tray"));
  feature.addOptionToFeature(&a_);
  feature.addOptionToFeature(&unreadable);
  a_.setOptionProperty(std::string("SNMPValue"), std::string("7"));
  EXPECT_EQ(feature.fetchOptionIndexByName(std::string("SNMPValue"), std::string("7")), 0);
  EXPECT_EQ(feature.fetchOptionIndexByName(std::string("SNMPValue"), std::string("")), -1);
  EXPECT_EQ(feature.fetchOptionByName(std::string("SNMPValue"), std::string("7")), &a_);
}

// Which options are available, and where the search starts and ends.
struct SearchRow {
  const char* what;
  bool available[3];
  int start;
  int found;  // -1 when none is.
};

TEST_F(OptionListTest, NextAvailable_AnyStart_WrapsAroundAndNeverAnswersTheStart) {
  const SearchRow rows[] = {
      {"the next", {true, true, true}, 0, 1},
      {"wraps from the last", {true, true, true}, 2, 0},
      {"over an unavailable one", {true, false, true}, 0, 2},
      {"tests C, then A", {true, false, false}, 1, 0},
      {"only the start", {false, true, false}, 1, -1},
      {"none", {false, false, false}, 0, -1},
      {"behind the last, all", {true, false, false}, 3, 0},
      {"behind the last, the last", {false, false, true}, 3, 2},
      {"far behind, all in the second pass", {false, true, false}, 100, 1},
      {"largest", {false, false, true}, INT_MAX, 2},
      {"before the first", {true, false, false}, -1, 0},
      {"far before", {false, true, false}, -100, 1},
      {"smallest", {false, false, true}, INT_MIN, 2},
  };
  DriverFeatureOption* const options[] = {&a_, &b_, &c_};
  for (const SearchRow& row : rows) {
    SCOPED_TRACE(row.what);
    for (int i = 0; i < 3; ++i) {
      options[i]->setOptionProperty(std::string("Sensitivity"), row.available[i]);
    }
    int position = row.start;
    LogMessageBuffer = "untouched";
    EXPECT_EQ(feature_.findNextAvailableOption(&position), row.found >= 0);
    EXPECT_EQ(position, row.found >= 0 ? row.found : row.start);
    EXPECT_EQ(LogMessageBuffer.utf8(), "untouched");
    if (row.found >= 0) {
      EXPECT_THAT(host_.takeEvents(), IsEmpty());
    } else {
      EXPECT_THAT(host_.takeEvents(),
                  ElementsAre(logLine(2,
                                      "DriverFeatureOption::findNextAvailableOption() - No options "
                                      "are available!")));
    }
  }
}

TEST_F(OptionListTest, NextAvailable_HiddenOption_IsAvailable) {
  b_.setOptionProperty(std::string("Visibility"), false);
  int position = 0;
  EXPECT_TRUE(feature_.findNextAvailableOption(&position));
  EXPECT_EQ(position, 1);
}

TEST_F(OptionListTest, NextAvailable_UnreadableOption_IsPassedOver) {
  UnreadableOption unreadable;
  DriverFeature feature;
  feature.addOptionToFeature(&a_);
  feature.addOptionToFeature(&unreadable);
  feature.addOptionToFeature(&c_);
  int position = 0;
  EXPECT_TRUE(feature.findNextAvailableOption(&position));
  EXPECT_EQ(position, 2);
}

TEST_F(OptionListTest, NextAvailable_OfAnotherType_SearchesAllTheSame) {
  feature_.setFeatureProperty(std::string("FeatureType"), 2);
  int position = 0;
  EXPECT_TRUE(feature_.findNextAvailableOption(&position));
  EXPECT_EQ(position, 1);
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(OptionListTest, NextAvailable_EmptyList_HasNone) {
  DriverFeature empty;
  int position = 0;
  EXPECT_FALSE(empty.findNextAvailableOption(&position));
  EXPECT_EQ(position, 0);
}

}  // namespace
}  // namespace driver_feature::testing
