#include <climits>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/driver_feature.h"
#include "model/driver_feature_option.h"
#include "support/recording_host.h"
#include "support/scripted_feature.h"

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

TEST_F(OptionListTest, Add_Option_NotifiesNobodyAndKeepsTheValue) {
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
  for (const int type : {0, 2, 3, 4, 5, 6, 7, 8}) {
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

TEST_F(OptionListTest, Current_IsFetchedThroughTheSlot) {
  class Asked : public DriverFeature {
   public:
    explicit Asked(CoreOption& only) : only_(only) {}
    CoreOption* fetchOptionByIndex(int index) override { return index == 5 ? &only_ : nullptr; }

   private:
    CoreOption& only_;
  };
  Asked feature(a_);
  EXPECT_EQ(feature.fetchCurrentOption(), nullptr);
  feature.setFeaturePropertyWithConstraintControl(std::string("CurrentIntValue"), 5, true);
  EXPECT_EQ(feature.fetchCurrentOption(), &a_);
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
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

// The text of the read before counts for an option that cannot be read.
TEST_F(OptionListTest, OptionByName_ReadFails_ComparesWhatWasReadBefore) {
  UnreadableOption unreadable;
  DriverFeature feature(std::string("Tray"));
  feature.addOptionToFeature(&unreadable);
  feature.addOptionToFeature(&b_);
  EXPECT_EQ(feature.fetchOptionByName(std::string()), &unreadable);
  EXPECT_EQ(feature.fetchOptionByName(std::string("B")), &b_);
  EXPECT_EQ(feature.fetchOptionByName(std::string("Name"), std::string("B")), &b_);
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
  EXPECT_EQ(feature.fetchOptionByName(std::string("Name"), std::string()), nullptr);
  EXPECT_THAT(host_.takeEvents(),
              ElementsAre(logLine(3,
                                  "DriverFeature::fetchOptionByName() - Option with attribute "
                                  "\"Name\" = \"\" was not found.")));
}

// A feature of a host that replaces the search by any property (slot 25), and
// not the one by name (slot 10).
class OtherSearch : public DriverFeature {
 public:
  using DriverFeature::DriverFeature;
  using DriverFeature::fetchOptionIndexByName;
  int fetchOptionIndexByName(const std::string& /*attribute*/,
                             const std::string& /*value*/) override {
    return 1;
  }
};

TEST_F(OptionListTest, SearchByAnyPropertyReplaced_SearchByNameStays) {
  OtherSearch feature(std::string("Tray"));
  for (DriverFeatureOption* option : {&a_, &b_, &c_}) feature.addOptionToFeature(option);
  EXPECT_EQ(feature.fetchOptionIndexByName(std::string("C")), 2);
  EXPECT_EQ(feature.fetchOptionIndexByName(std::string("Name"), std::string("C")), 1);
  EXPECT_TRUE(feature.setFeatureProperty(std::string("ValueString"), std::string("C")));
  EXPECT_EQ(feature.fetchCurrentOption(), &c_);
}

}  // namespace
}  // namespace driver_feature::testing
