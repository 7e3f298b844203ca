#include "model/driver_feature_static_group.h"

#include <climits>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/driver_feature.h"
#include "support/property_facts.h"
#include "support/recording_host.h"
#include "support/scripted_feature.h"

namespace driver_feature::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const std::vector<std::string> kTextNames =
    namesOf(factsToRead(&PropertyFacts::staticGroup, Kind::kText));

class StaticGroupTest : public ::testing::Test {
 protected:
  StaticGroupTest() { host_.registerUpdateCallback(); }

  std::string read(const std::string& name) {
    std::string value = "unset";
    EXPECT_TRUE(group_.getFeatureProperty(name, value)) << name;
    return value;
  }

  int type() {
    int value = -1;
    EXPECT_TRUE(group_.getFeatureProperty(std::string("FeatureType"), &value));
    return value;
  }

  RecordingHost host_;
  DriverFeatureStaticGroup group_{std::string("Quality")};
};

TEST_F(StaticGroupTest, NewGroup_HasTheDefaults) {
  EXPECT_EQ(read("Name"), "Quality");
  EXPECT_EQ(type(), 6);
  EXPECT_EQ(group_.getFeatureType(), 6);
  bool inGroup = true;
  EXPECT_TRUE(group_.getFeatureProperty(std::string("FeatureInGroup"), &inGroup));
  EXPECT_FALSE(inGroup);
  EXPECT_EQ(group_.fetchNumberOfFeaturesInGroup(), 0);
  DriverFeatureStaticGroup unnamed;
  for (const std::string& name : kTextNames) {
    std::string value = "unset";
    EXPECT_TRUE(unnamed.getFeatureProperty(name, value)) << name;
    EXPECT_EQ(value, "") << name;
  }
}

TEST_F(StaticGroupTest, Text_OtherNames_AreRefusedWithoutALine) {
  for (const std::string& name : namesBut(kTextNames)) {
    EXPECT_FALSE(group_.setFeatureProperty(name, std::string("stored"))) << name;
    std::string value = "kept";
    EXPECT_FALSE(group_.getFeatureProperty(name, value)) << name;
    EXPECT_EQ(value, "kept") << name;
  }
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(StaticGroupTest, Text_EachProperty_HasAPlaceOfItsOwn) {
  for (const std::string& name : kTextNames) {
    EXPECT_TRUE(group_.setFeatureProperty(name, std::string("text of " + name)));
  }
  for (const std::string& name : kTextNames) EXPECT_EQ(read(name), "text of " + name);
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(StaticGroupTest, Int_EveryOtherName_IsLoggedAndRefused) {
  for (const std::string& name : namesBut({"FeatureType"})) {
    SCOPED_TRACE(name);
    EXPECT_FALSE(group_.setFeatureProperty(name, 1));
    int value = 77;
    EXPECT_FALSE(group_.getFeatureProperty(name, &value));
    EXPECT_EQ(value, 77);
    EXPECT_THAT(host_.takeEvents(),
                ElementsAre(logLine(3,
                                    "DriverFeatureStaticGroup::setFeatureProperty(int) - "
                                    "Unrecognized feature property:  \"" +
                                        name + "\" for feature \"Quality."),
                            logLine(3,
                                    "DriverFeatureStaticGroup::getFeatureProperty(int*) - "
                                    "Unrecognized feature property:  \"" +
                                        name + "\" for feature \"Quality.")));
  }
}

TEST_F(StaticGroupTest, Bool_EveryOtherName_IsLoggedAndRefused) {
  for (const std::string& name : namesBut({"FeatureInGroup"})) {
    SCOPED_TRACE(name);
    EXPECT_FALSE(group_.setFeatureProperty(name, true));
    for (const bool before : {true, false}) {
      bool value = before;
      EXPECT_FALSE(group_.getFeatureProperty(name, &value));
      EXPECT_EQ(value, before);
    }
    const std::string getLine = logLine(
        3,
        "DriverFeatureStaticGroup::getFeatureProperty(bool*) - Unrecognized feature property:  "
        "\"" +
            name + "\" for feature \"Quality.");
    EXPECT_THAT(host_.takeEvents(),
                ElementsAre(logLine(3,
                                    "DriverFeatureStaticGroup::setFeatureProperty(bool) - "
                                    "Unrecognized feature property:  \"" +
                                        name + "\" for feature \"Quality."),
                            getLine, getLine));
  }
}

TEST_F(StaticGroupTest, Float_EveryName_IsLoggedAndRefused) {
  for (const std::string& name : namesBut({})) {
    SCOPED_TRACE(name);
    EXPECT_FALSE(group_.setFeatureProperty(name, 1.0F));
    float value = 7.5F;
    EXPECT_FALSE(group_.getFeatureProperty(name, &value));
    EXPECT_EQ(value, 7.5F);
    EXPECT_THAT(host_.takeEvents(),
                ElementsAre(logLine(3,
                                    "DriverFeatureStaticGroup::setFeatureProperty(float) - No "
                                    "float group properties for group:  \"Quality."),
                            logLine(3,
                                    "DriverFeatureStaticGroup::getFeatureProperty(float) - No "
                                    "float group properties for group:  \"Quality.")));
  }
}

TEST_F(StaticGroupTest, FeatureType_InRange_IsStoredWithoutLogging) {
  for (const int value : {0, 1, 5, 7, 8}) {
    EXPECT_TRUE(group_.setFeatureProperty(std::string("FeatureType"), value));
    EXPECT_EQ(type(), value);
    EXPECT_EQ(group_.getFeatureType(), value);
  }
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(StaticGroupTest, FeatureType_OutOfRange_IsRefusedAndKept) {
  for (const int value : {9, -1, INT_MAX, INT_MIN}) {
    EXPECT_FALSE(group_.setFeatureProperty(std::string("FeatureType"), value));
    EXPECT_EQ(type(), 6);
    EXPECT_THAT(host_.takeEvents(),
                ElementsAre(logLine(3,
                                    "DriverFeatureStaticGroup::setFeatureProperty(int) - Invalid "
                                    "feature property value \"" +
                                        std::to_string(value) +
                                        "\" for feature property \"FeatureType\" for feature "
                                        "\"Quality.")));
  }
}

TEST_F(StaticGroupTest, FeatureInGroup_IsStoredWithoutLogging) {
  EXPECT_TRUE(group_.setFeatureProperty(std::string("FeatureInGroup"), true));
  bool inGroup = false;
  EXPECT_TRUE(group_.getFeatureProperty(std::string("FeatureInGroup"), &inGroup));
  EXPECT_TRUE(inGroup);
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(StaticGroupTest, Options_AreNone) {
  EXPECT_EQ(group_.fetchNumberOfOptions(), 0);
  EXPECT_EQ(group_.fetchOptionIndexByName(std::string("A")), -1);
  EXPECT_EQ(group_.fetchCurrentOption(), nullptr);
  EXPECT_EQ(group_.fetchOptionByName(std::string("Name"), std::string("A")), nullptr);
  EXPECT_EQ(group_.fetchOptionByName(std::string("A")), nullptr);
  EXPECT_EQ(group_.fetchOptionByIndex(0), nullptr);
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(StaticGroupTest, AddFeature_Any_IsListedInOrderAndNotified) {
  DriverFeature a(std::string("A"));
  DriverFeatureStaticGroup b(std::string("B"));
  EXPECT_TRUE(group_.addFeatureToGroup(&a));
  EXPECT_TRUE(group_.addFeatureToGroup(&b));
  EXPECT_TRUE(group_.addFeatureToGroup(&a));
  EXPECT_EQ(group_.fetchNumberOfFeaturesInGroup(), 3);
  EXPECT_EQ(group_.fetchFeatureInGroupByIndex(0), &a);
  EXPECT_EQ(group_.fetchFeatureInGroupByIndex(1), &b);
  EXPECT_EQ(group_.fetchFeatureInGroupByIndex(2), &a);
  for (CoreFeature* member : {static_cast<CoreFeature*>(&a), static_cast<CoreFeature*>(&b)}) {
    bool inGroup = false;
    EXPECT_TRUE(member->getFeatureProperty(std::string("FeatureInGroup"), &inGroup));
    EXPECT_TRUE(inGroup);
  }
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(StaticGroupTest, AddFeature_Null_IsRefused) {
  EXPECT_FALSE(group_.addFeatureToGroup(nullptr));
  EXPECT_EQ(group_.fetchNumberOfFeaturesInGroup(), 0);
}

TEST_F(StaticGroupTest, AddFeature_RefusesItsGroup_FailsAndStays) {
  ScriptedFeature member(2);
  member.acceptsFlags = false;
  EXPECT_FALSE(group_.addFeatureToGroup(&member));
  EXPECT_EQ(group_.fetchNumberOfFeaturesInGroup(), 1);
  EXPECT_EQ(group_.fetchFeatureInGroupByIndex(0), &member);
}

TEST_F(StaticGroupTest, FetchByIndex_OutOfRange_IsNull) {
  DriverFeature a(std::string("A"));
  // Memory that the members get next, with something other than null after them.
  { const std::vector<CoreFeature*> earlier(4, &a); }
  for (int i = 0; i < 3; ++i) group_.addFeatureToGroup(&a);
  EXPECT_EQ(group_.fetchFeatureInGroupByIndex(3), nullptr);
  EXPECT_EQ(group_.fetchFeatureInGroupByIndex(static_cast<unsigned>(-1)), nullptr);
}

TEST_F(StaticGroupTest, FetchByName_Any_IsTheFirstOfThatName) {
  DriverFeature a(std::string("A"));
  DriverFeature b(std::string("B"));
  DriverFeature otherB(std::string("B"));
  for (DriverFeature* member : {&a, &b, &otherB}) group_.addFeatureToGroup(member);
  EXPECT_EQ(group_.fetchFeatureInGroupByName(std::string("B")), &b);
  EXPECT_EQ(group_.fetchFeatureInGroupByName(std::string("b")), nullptr);
  EXPECT_EQ(group_.fetchFeatureInGroupByName(std::string("")), nullptr);
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(StaticGroupTest, FetchByName_UnreadableName_IsComparedWithTheOneBefore) {
  ScriptedFeature nameless(2);
  DriverFeature a(std::string("A"));
  ScriptedFeature follower(2);
  group_.addFeatureToGroup(&nameless);
  group_.addFeatureToGroup(&a);
  group_.addFeatureToGroup(&follower);
  EXPECT_EQ(group_.fetchFeatureInGroupByName(std::string("")), &nameless);
  a.setFeatureProperty(std::string("Name"), std::string("B"));
  EXPECT_EQ(group_.fetchFeatureInGroupByName(std::string("B")), &a);
}

}  // namespace
}  // namespace driver_feature::testing
