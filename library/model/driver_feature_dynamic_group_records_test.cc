// Adding, loading, removing and comparing records.

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/notification.h"
#include "model/driver_feature.h"
#include "model/driver_feature_dynamic_group.h"
#include "model/driver_feature_option.h"
#include "support/recording_host.h"
#include "support/scripted_feature.h"

#include "AttributeMap.h"
#include "Log.h"

namespace driver_feature::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// A template with one feature of each type that records copy.
class RecordsTest : public ::testing::Test {
 protected:
  RecordsTest() {
    host_.registerUpdateCallback();
    size_.addOptionToFeature(&a4_);
    size_.addOptionToFeature(&letter_);
    setType(first_, 2);
    setType(title_, 3);
    setType(scale_, 4);
    for (DriverFeature* member : {&size_, &first_, &title_, &scale_}) {
      shape_.addFeatureToGroup(member);
    }
    shape_.setFeatureProperty(std::string("FeatureType"), 7);
    group_.addDefaultStaticGroupTemplate(&shape_);
    host_.takeEvents();
    LogMessageBuffer = "untouched";
  }

  static void setType(DriverFeature& feature, int type) {
    feature.setFeatureProperty(std::string("FeatureType"), type);
  }

  static AttributeMap values(const std::string& size, const std::string& first,
                             const std::string& title, const std::string& scale) {
    AttributeMap map;
    map["Size"] = size;
    map["First"] = first;
    map["Title"] = title;
    map["Scale"] = scale;
    return map;
  }

  static std::string valueOf(CoreFeature& feature) {
    std::string value;
    feature.getFeatureProperty(std::string("ValueString"), value);
    return value;
  }

  RecordingHost host_;
  DriverFeatureOption a4_{std::string("A4")};
  DriverFeatureOption letter_{std::string("Letter")};
  DriverFeature size_{std::string("Size")};
  DriverFeature first_{std::string("First")};
  DriverFeature title_{std::string("Title")};
  DriverFeature scale_{std::string("Scale")};
  DriverFeatureStaticGroup shape_{std::string("Shape")};
  DriverFeatureDynamicGroup group_{std::string("Pages")};
};

TEST_F(RecordsTest, Add_FittingMap_CopiesTheValuesAndReports) {
  AttributeMap map = values("Letter", "3", "Cover", "1.5");
  EXPECT_TRUE(group_.addStaticGroupToDynamicGroup(map));
  EXPECT_EQ(group_.fetchNumberOfDynamicEntries(), 1);
  EXPECT_THAT(host_.takeEvents(), ElementsAre(kUpdateCalled));
  // The template keeps its own values until a record is loaded.
  EXPECT_EQ(valueOf(size_), "A4");
  EXPECT_EQ(group_.getDynamicEntryByIndex(0), &shape_);
  EXPECT_EQ(valueOf(size_), "Letter");
  EXPECT_EQ(valueOf(first_), "3");
  EXPECT_EQ(valueOf(title_), "Cover");
  EXPECT_EQ(valueOf(scale_), "1.500000");
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(RecordsTest, Add_WhileATicketIsLoaded_ReportsAllTheSame) {
  notification().ticketLoading = true;
  AttributeMap map = values("A4", "1", "", "1");
  EXPECT_TRUE(group_.addStaticGroupToDynamicGroup(map));
  EXPECT_TRUE(group_.removeDynamicEntryByIndex(0));
  EXPECT_TRUE(group_.addStaticGroupToDynamicGroupWithSort(map, false));
  EXPECT_TRUE(group_.removeAllDynamicEntries());
  EXPECT_THAT(host_.takeEvents(),
              ElementsAre(kUpdateCalled, kUpdateCalled, kUpdateCalled, kUpdateCalled));
}

TEST_F(RecordsTest, Add_WithoutTemplate_IsRefused) {
  DriverFeatureDynamicGroup group;
  AttributeMap map;
  EXPECT_FALSE(group.addStaticGroupToDynamicGroup(map));
  EXPECT_EQ(group.getDynamicEntryByIndex(0), nullptr);
  EXPECT_FALSE(group.detectDuplicateRecord(map));
  EXPECT_THAT(
      host_.takeEvents(),
      ElementsAre(logLine(2, "addStaticGroupToDynamicGroupWithSort() - Null static group template"),
                  logLine(2, "getDynamicEntryByIndex() - Null static group template")));
  EXPECT_EQ(LogMessageBuffer.utf8(), "untouched");
}

TEST_F(RecordsTest, Add_WrongNumberOfEntries_IsRefused) {
  AttributeMap few;
  few["Size"] = "A4";
  few["First"] = "1";
  few["Title"] = "x";
  AttributeMap many = values("A4", "1", "x", "1");
  many["More"] = "x";
  for (AttributeMap* map : {&few, &many}) {
    EXPECT_FALSE(group_.addStaticGroupToDynamicGroup(*map));
    EXPECT_EQ(group_.fetchNumberOfDynamicEntries(), 0);
    EXPECT_THAT(host_.takeEvents(),
                ElementsAre(logLine(2,
                                    "addStaticGroupToDynamicGroupWithSort() - Wrong number of "
                                    "entries in map")));
  }
  EXPECT_EQ(LogMessageBuffer.utf8(), "untouched");
}

TEST_F(RecordsTest, Add_MissingName_IsRefused) {
  AttributeMap map;
  for (const char* name : {"Size", "First", "Titel", "Scale"}) map[name] = "1";
  EXPECT_FALSE(group_.addStaticGroupToDynamicGroup(map));
  EXPECT_EQ(group_.fetchNumberOfDynamicEntries(), 0);
  const std::string text =
      "addStaticGroupToDynamicGroupWithSort() - Feature not found in map:Title";
  // The option "1" of the first member is searched for and not found, without a log line.
  EXPECT_THAT(host_.takeEvents(), ElementsAre(logLine(2, text)));
  EXPECT_EQ(LogMessageBuffer.utf8(), text);
}

TEST_F(RecordsTest, Add_MembersOfOtherTypes_AreNotCopied) {
  DriverFeature label(std::string("Label"));
  DriverFeature list(std::string("List"));
  DriverFeatureStaticGroup nested(std::string("Nested"));
  ScriptedFeature foreign(2);
  foreign.texts["Name"] = "Foreign";
  setType(label, 0);
  setType(list, 5);
  DriverFeatureStaticGroup shape;
  shape.addFeatureToGroup(&label);
  shape.addFeatureToGroup(&list);
  shape.addFeatureToGroup(&nested);
  shape.addFeatureToGroup(&foreign);
  shape.addFeatureToGroup(&first_);
  DriverFeatureDynamicGroup group;
  group.addDefaultStaticGroupTemplate(&shape);
  AttributeMap map;
  for (const char* name : {"Label", "List", "Nested", "Foreign", "First"}) map[name] = "4";
  EXPECT_TRUE(group.addStaticGroupToDynamicGroup(map));
  // The record holds one value, so the whole map is not a duplicate of it.
  EXPECT_FALSE(group.detectDuplicateRecord(map));
  EXPECT_THAT(host_.takeEvents(),
              ElementsAre(kUpdateCalled,
                          logLine(3,
                                  "DriverFeatureDynamicGroup::detectDuplicateRecord() - Cannot "
                                  "find test feature name in static group record")));
  EXPECT_EQ(group.getDynamicEntryByIndex(0), &shape);
  EXPECT_EQ(valueOf(first_), "4");
}

TEST_F(RecordsTest, Add_ValueThatIsNoOption_KeepsTheTemplatesValue) {
  AttributeMap map = values("Legal", "1", "", "1");
  EXPECT_TRUE(group_.addStaticGroupToDynamicGroup(map));
  size_.setFeatureProperty(std::string("CurrentIntValue"), 1);
  EXPECT_EQ(group_.getDynamicEntryByIndex(0), &shape_);
  EXPECT_EQ(valueOf(size_), "A4");
}

TEST_F(RecordsTest, Add_CopiesAreSilent_WhateverTheyAreSetTo) {
  for (DriverFeature* member : {&size_, &first_, &title_, &scale_}) {
    member->setFeatureProperty(std::string("AddCallbackRoutine"), std::string("RecordChange"));
  }
  notification().creationComplete = true;
  AttributeMap map = values("Letter", "3", "Cover", "1.5");
  EXPECT_TRUE(group_.addStaticGroupToDynamicGroup(map));
  EXPECT_THAT(host_.takeEvents(), ElementsAre(kUpdateCalled));
  // Loading changes the template's own features, whose routines run.
  EXPECT_EQ(group_.getDynamicEntryByIndex(0), &shape_);
  EXPECT_THAT(host_.takeEvents(),
              ElementsAre(kChangeCalled, kChangeCalled, kChangeCalled, kChangeCalled));
}

TEST_F(RecordsTest, Load_OutOfRange_IsNullAndNotLogged) {
  AttributeMap map = values("A4", "1", "", "1");
  group_.addStaticGroupToDynamicGroup(map);
  host_.takeEvents();
  EXPECT_EQ(group_.getDynamicEntryByIndex(1), nullptr);
  EXPECT_EQ(group_.getDynamicEntryByIndex(static_cast<unsigned>(-1)), nullptr);
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(RecordsTest, Load_TemplateMemberRenamed_IsRefused) {
  AttributeMap map = values("Letter", "3", "Cover", "1.5");
  group_.addStaticGroupToDynamicGroup(map);
  host_.takeEvents();
  first_.setFeatureProperty(std::string("Name"), std::string("Renamed"));
  EXPECT_EQ(group_.getDynamicEntryByIndex(0), nullptr);
  EXPECT_THAT(host_.takeEvents(),
              ElementsAre(logLine(2,
                                  "getDynamicEntryByIndex() - Null feature pointer in real feature "
                                  "group record")));
  // The members before it have been loaded.
  EXPECT_EQ(valueOf(size_), "Letter");
  EXPECT_EQ(LogMessageBuffer.utf8(), "untouched");
}

TEST_F(RecordsTest, Remove_One_MovesTheLaterOnesUp) {
  for (const char* first : {"1", "2", "3"}) {
    AttributeMap map = values("A4", first, "", "1");
    group_.addStaticGroupToDynamicGroup(map);
  }
  host_.takeEvents();
  EXPECT_FALSE(group_.removeDynamicEntryByIndex(3));
  EXPECT_FALSE(group_.removeDynamicEntryByIndex(static_cast<unsigned>(-1)));
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
  EXPECT_TRUE(group_.removeDynamicEntryByIndex(1));
  EXPECT_THAT(host_.takeEvents(), ElementsAre(kUpdateCalled));
  EXPECT_EQ(group_.fetchNumberOfDynamicEntries(), 2);
  group_.getDynamicEntryByIndex(1);
  EXPECT_EQ(valueOf(first_), "3");
}

TEST_F(RecordsTest, RemoveAll_ClearsTheFocusAndReportsOnlyALoss) {
  EXPECT_TRUE(group_.removeAllDynamicEntries());
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
  AttributeMap map = values("A4", "1", "", "1");
  group_.addStaticGroupToDynamicGroup(map);
  group_.setFeaturePropertyWithConstraintControl(std::string("RecordInFocus"), 0, true);
  group_.selectDynamicEntry(0);
  host_.takeEvents();
  EXPECT_TRUE(group_.removeAllDynamicEntries());
  EXPECT_EQ(group_.fetchNumberOfDynamicEntries(), 0);
  int record = 0;
  group_.getFeatureProperty(std::string("RecordInFocus"), &record);
  EXPECT_EQ(record, -1);
  EXPECT_FALSE(group_.isSelectionEmpty());
  EXPECT_THAT(host_.takeEvents(), ElementsAre(kUpdateCalled));
}

TEST_F(RecordsTest, Duplicate_EqualRecord_IsFoundByteForByte) {
  AttributeMap one = values("A4", "1", "Cover", "1");
  AttributeMap two = values("Letter", "2", "Back", "2");
  AttributeMap asStored = values("Letter", "2", "Back", "2.000000");
  EXPECT_FALSE(group_.detectDuplicateRecord(one));
  group_.addStaticGroupToDynamicGroup(one);
  group_.addStaticGroupToDynamicGroup(two);
  host_.takeEvents();
  EXPECT_TRUE(group_.detectDuplicateRecord(asStored));
  // Records hold "2.000000", which is another text.
  EXPECT_FALSE(group_.detectDuplicateRecord(two));
  AttributeMap otherCase = values("Letter", "2", "back", "2.000000");
  EXPECT_FALSE(group_.detectDuplicateRecord(otherCase));
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(RecordsTest, Duplicate_MapOfAnotherSize_IsNotADuplicateAndNotLogged) {
  AttributeMap map = values("A4", "1", "", "1");
  group_.addStaticGroupToDynamicGroup(map);
  host_.takeEvents();
  AttributeMap small;
  small["First"] = "1";
  EXPECT_FALSE(group_.detectDuplicateRecord(small));
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

// A member of a template that writes down what it is asked.
class AskedMember : public ScriptedFeature {
 public:
  AskedMember() : ScriptedFeature(0) { texts["Name"] = "asked"; }
  using ScriptedFeature::getFeatureProperty;
  bool getFeatureProperty(const std::string& name, std::string& value) override {
    RecordingHost::record("reads " + name);
    return ScriptedFeature::getFeatureProperty(name, value);
  }
  int getFeatureType() override {
    RecordingHost::record("reads the type");
    return ScriptedFeature::getFeatureType();
  }
};

TEST_F(RecordsTest, Add_MemberNotInTheMap_ItsNameAndTypeWereReadBefore) {
  AskedMember member;
  DriverFeatureStaticGroup shape;
  shape.addFeatureToGroup(&member);
  DriverFeatureDynamicGroup group;
  group.addDefaultStaticGroupTemplate(&shape);
  AttributeMap map;
  map["other"] = "1";
  EXPECT_FALSE(group.addStaticGroupToDynamicGroup(map));
  EXPECT_THAT(host_.takeEvents(),
              ElementsAre("reads Name", "reads the type",
                          logLine(2,
                                  "addStaticGroupToDynamicGroupWithSort() - Feature not found in "
                                  "map:asked")));
}

TEST_F(RecordsTest, Duplicate_FloatMadeOfASignAlone_EqualsPlusZero) {
  AttributeMap signOnly = values("A4", "1", "Report", "-");
  EXPECT_TRUE(group_.addStaticGroupToDynamicGroup(signOnly));
  AttributeMap zero = values("A4", "1", "Report", "0.000000");
  EXPECT_TRUE(group_.detectDuplicateRecord(zero));
}

}  // namespace
}  // namespace driver_feature::testing
