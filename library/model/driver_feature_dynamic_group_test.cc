// Properties, selection and template of a dynamic group.

#include "model/driver_feature_dynamic_group.h"

#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/notification.h"
#include "support/property_facts.h"
#include "support/recording_host.h"

#include "Log.h"

namespace driver_feature::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const std::vector<std::string> kSettableTexts =
    namesOf(factsToSet(&PropertyFacts::dynamicGroup, Kind::kText));
const std::vector<std::string> kReadableTexts =
    namesOf(factsToRead(&PropertyFacts::dynamicGroup, Kind::kText));

// Sets through one of the three ways: the plain setter, and the one with
// constraint control with and without notification.
enum class GroupSetter { kPlain, kNotifying, kSilent };
constexpr GroupSetter kGroupSetters[] = {GroupSetter::kPlain, GroupSetter::kNotifying,
                                         GroupSetter::kSilent};

template <class Value>
bool set(DriverFeatureDynamicGroup& group, GroupSetter way, const std::string& name,
         const Value& value) {
  if (way == GroupSetter::kPlain) return group.setFeatureProperty(name, value);
  return group.setFeaturePropertyWithConstraintControl(name, value, way == GroupSetter::kSilent);
}

class DynamicGroupTest : public ::testing::Test {
 protected:
  DynamicGroupTest() { host_.registerUpdateCallback(); }

  RecordingHost host_;
  DriverFeatureDynamicGroup group_{std::string("Pages")};
};

TEST_F(DynamicGroupTest, NewGroup_HasTheDefaults) {
  std::string value;
  EXPECT_TRUE(group_.getFeatureProperty(std::string("Name"), value));
  EXPECT_EQ(value, "Pages");
  DriverFeatureDynamicGroup unnamed{std::string()};
  for (const std::string& name : kReadableTexts) {
    value = "unset";
    EXPECT_TRUE(unnamed.getFeatureProperty(name, value)) << name;
    EXPECT_EQ(value, "") << name;
  }
  EXPECT_EQ(group_.getFeatureType(), 8);
  int record = 0;
  EXPECT_TRUE(group_.getFeatureProperty(std::string("RecordInFocus"), &record));
  EXPECT_EQ(record, -1);
  for (const std::string name : {"Sensitivity", "Visibility"}) {
    bool flag = false;
    EXPECT_TRUE(group_.getFeatureProperty(name, &flag)) << name;
    EXPECT_TRUE(flag) << name;
  }
  EXPECT_EQ(group_.fetchStaticGroupTemplate(), nullptr);
  EXPECT_EQ(group_.fetchNumberOfDynamicEntries(), 0);
  EXPECT_TRUE(group_.isSelectionEmpty());
  EXPECT_EQ(group_.fetchNumberOfOptions(), 0);
  EXPECT_EQ(group_.fetchOptionIndexByName(std::string("A")), -1);
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(DynamicGroupTest, Text_SettableNames_HaveAPlaceEach) {
  for (const GroupSetter way : kGroupSetters) {
    for (const std::string& name : kSettableTexts) {
      EXPECT_TRUE(set(group_, way, name, "text of " + name)) << name;
    }
    for (const std::string& name : kReadableTexts) {
      std::string value;
      EXPECT_TRUE(group_.getFeatureProperty(name, value)) << name;
      EXPECT_EQ(value, "text of " + name);
      EXPECT_TRUE(set(group_, way, name, std::string())) << name;
    }
  }
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(DynamicGroupTest, Text_OtherNames_AreRefusedWithoutALine) {
  for (const std::string& name : namesBut(kSettableTexts)) {
    EXPECT_FALSE(set(group_, GroupSetter::kPlain, name, std::string("stored"))) << name;
    EXPECT_FALSE(set(group_, GroupSetter::kNotifying, name, std::string("stored"))) << name;
  }
  for (const std::string& name : namesBut(kReadableTexts)) {
    std::string value = "kept";
    EXPECT_FALSE(group_.getFeatureProperty(name, value)) << name;
    EXPECT_EQ(value, "kept") << name;
  }
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(DynamicGroupTest, Int_EveryOtherName_IsLoggedWithTheGroupAlone) {
  for (const GroupSetter way : kGroupSetters) {
    for (const std::string& name : namesBut({"RecordInFocus"})) {
      SCOPED_TRACE(name);
      EXPECT_FALSE(set(group_, way, name, 1));
      int value = 77;
      EXPECT_FALSE(group_.getFeatureProperty(name, &value));
      EXPECT_EQ(value, 77);
      EXPECT_THAT(
          host_.takeEvents(),
          ElementsAre(
              logLine(3,
                      "DriverFeatureDynamicGroup::setFeaturePropertyWithConstraintControl(int) - "
                      "Unrecognized property for group:  \"Pages."),
              logLine(3,
                      "DriverFeatureDynamicGroup::getFeatureProperty(int) - Unrecognized property "
                      "for group:  \"Pages.")));
    }
  }
}

TEST_F(DynamicGroupTest, Float_EveryName_IsLoggedWithTheGroupAlone) {
  for (const GroupSetter way : kGroupSetters) {
    for (const std::string& name : namesBut({})) {
      SCOPED_TRACE(name);
      EXPECT_FALSE(set(group_, way, name, 1.0F));
      float value = 7.5F;
      EXPECT_FALSE(group_.getFeatureProperty(name, &value));
      EXPECT_EQ(value, 7.5F);
      EXPECT_THAT(
          host_.takeEvents(),
          ElementsAre(
              logLine(3,
                      "DriverFeatureDynamicGroup::setFeaturePropertyWithConstraintControl(float) - "
                      "No float group properties for group:  \"Pages."),
              logLine(3,
                      "DriverFeatureDynamicGroup::getFeatureProperty(float) - No float group "
                      "properties for group:  \"Pages.")));
    }
  }
}

TEST_F(DynamicGroupTest, Bool_EveryOtherName_IsLoggedWithTheProperty) {
  for (const GroupSetter way : kGroupSetters) {
    for (const std::string& name : namesBut({"Sensitivity", "Visibility"})) {
      SCOPED_TRACE(name);
      EXPECT_FALSE(set(group_, way, name, true));
      bool value = true;
      EXPECT_FALSE(group_.getFeatureProperty(name, &value));
      EXPECT_TRUE(value);
      EXPECT_THAT(
          host_.takeEvents(),
          ElementsAre(
              logLine(3,
                      "DriverFeatureDynamicGroup::setFeaturePropertyWithConstraintControl(bool) - "
                      "Unrecognized feature property:  \"" +
                          name + "\" for feature \"Pages."),
              logLine(3,
                      "DriverFeatureDynamicGroup::getFeatureProperty(bool*) - Unrecognized feature "
                      "property:  \"" +
                          name + "\" for feature \"Pages.")));
    }
  }
}

// Every store is reported, changed or not, unless silence is asked for.
struct WayRow {
  GroupSetter way;
  std::vector<std::string> events;
};
const WayRow kReports[] = {{GroupSetter::kPlain, {kUpdateCalled}},
                           {GroupSetter::kNotifying, {kUpdateCalled}},
                           {GroupSetter::kSilent, {}}};

TEST_F(DynamicGroupTest, RecordInFocus_EveryWay_IsStoredAndReported) {
  for (const WayRow& row : kReports) {
    EXPECT_TRUE(set(group_, row.way, "RecordInFocus", 5));
    int record = 0;
    EXPECT_TRUE(group_.getFeatureProperty(std::string("RecordInFocus"), &record));
    EXPECT_EQ(record, 5);
    EXPECT_EQ(host_.takeEvents(), row.events);
  }
}

TEST_F(DynamicGroupTest, Flags_EveryWay_AreStoredAndReported) {
  const std::pair<const char*, const char*> names[] = {{"Sensitivity", "Visibility"},
                                                       {"Visibility", "Sensitivity"}};
  for (const auto& [name, other] : names) {
    for (const WayRow& row : kReports) {
      for (const bool wanted : {false, true}) {
        EXPECT_TRUE(set(group_, row.way, name, wanted));
        EXPECT_EQ(host_.takeEvents(), row.events);
        bool flag = !wanted;
        EXPECT_TRUE(group_.getFeatureProperty(std::string(name), &flag));
        EXPECT_EQ(flag, wanted);
        EXPECT_TRUE(group_.getFeatureProperty(std::string(other), &flag));
        EXPECT_TRUE(flag);
      }
    }
  }
}

TEST_F(DynamicGroupTest, NumbersAndFlags_WhileATicketIsLoaded_AreStoredWithoutLogging) {
  notification().ticketLoading = true;
  EXPECT_TRUE(group_.setFeatureProperty(std::string("RecordInFocus"), 2));
  EXPECT_TRUE(group_.setFeatureProperty(std::string("Visibility"), false));
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(DynamicGroupTest, NumbersAndFlags_WithoutUpdateCallback_AreStored) {
  notification().updateCallback = nullptr;
  EXPECT_TRUE(group_.setFeatureProperty(std::string("RecordInFocus"), 2));
  EXPECT_TRUE(group_.removeAllDynamicEntries());
}

TEST_F(DynamicGroupTest, Selection_BySlotAndByName_IsOneSet) {
  IntermediateDynamicFeatureGroup& slots = group_;
  EXPECT_TRUE(group_.selectDynamicEntry(3));
  EXPECT_FALSE(slots.addConstraint(3));
  EXPECT_TRUE(slots.addConstraint(0));
  EXPECT_FALSE(group_.isSelectionEmpty());
  EXPECT_FALSE(slots.isConstraintSetEmpty());
  EXPECT_THAT(*slots.fetchSelectedEntries(), ElementsAre(0, 3));
  EXPECT_TRUE(slots.removeConstraint(3));
  EXPECT_FALSE(group_.deselectDynamicEntry(3));
  EXPECT_TRUE(group_.deselectDynamicEntry(0));
  EXPECT_TRUE(group_.isSelectionEmpty());
  EXPECT_TRUE(slots.isConstraintSetEmpty());
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(DynamicGroupTest, Selection_NegativeIndex_IsRefused) {
  EXPECT_FALSE(group_.selectDynamicEntry(-1));
  EXPECT_FALSE(group_.deselectDynamicEntry(-1));
  EXPECT_TRUE(group_.isSelectionEmpty());
}

TEST_F(DynamicGroupTest, Template_SetOnce_Stays) {
  DriverFeatureStaticGroup first;
  DriverFeatureStaticGroup second;
  LogMessageBuffer = "untouched";
  EXPECT_FALSE(group_.addDefaultStaticGroupTemplate(nullptr));
  EXPECT_THAT(host_.takeEvents(),
              ElementsAre(logLine(3,
                                  "DriverFeatureDynamicGroup::addDefaultStaticGroupTemplate(bool) "
                                  "- Null static group template pointer")));
  EXPECT_TRUE(group_.addDefaultStaticGroupTemplate(&first));
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
  EXPECT_FALSE(group_.addDefaultStaticGroupTemplate(&second));
  EXPECT_EQ(group_.fetchStaticGroupTemplate(), &first);
  EXPECT_THAT(host_.takeEvents(),
              ElementsAre(logLine(3,
                                  "DriverFeatureDynamicGroup::addDefaultStaticGroupTemplate() - "
                                  "Dynamic group static template already assigned")));
  EXPECT_EQ(LogMessageBuffer.utf8(), "untouched");
}

}  // namespace
}  // namespace driver_feature::testing
