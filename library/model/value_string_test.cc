// "ValueString": the current value of whatever type, as text.

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/notification.h"
#include "model/driver_feature.h"
#include "model/driver_feature_option.h"
#include "support/recording_host.h"
#include "support/scripted_feature.h"

namespace driver_feature::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ValueStringTest : public ::testing::Test {
 protected:
  ValueStringTest() {
    feature_.addOptionToFeature(&a4_);
    feature_.addOptionToFeature(&letter_);
    host_.registerUpdateCallback();
    feature_.setFeatureProperty(std::string("AddCallbackRoutine"), std::string("RecordChange"));
    notification().creationComplete = true;
  }

  void setType(int type) { feature_.setFeatureProperty(std::string("FeatureType"), type); }

  bool set(const std::string& text) {
    return feature_.setFeatureProperty(std::string("ValueString"), text);
  }

  // The text, or "none" when the read is refused.
  std::string get() {
    std::string text = "left alone";
    return feature_.getFeatureProperty(std::string("ValueString"), text) ? text : "none";
  }

  int currentInt() {
    int value = -99;
    feature_.getFeatureProperty(std::string("CurrentIntValue"), &value);
    return value;
  }

  RecordingHost host_;
  DriverFeatureOption a4_{std::string("A4")};
  DriverFeatureOption letter_{std::string("Letter")};
  DriverFeature feature_{std::string("Tray")};
};

TEST_F(ValueStringTest, MultiSelect_OptionName_SelectsIt) {
  EXPECT_EQ(get(), "A4");
  EXPECT_TRUE(set("Letter"));
  EXPECT_EQ(currentInt(), 1);
  EXPECT_EQ(get(), "Letter");
  EXPECT_THAT(host_.takeEvents(), ElementsAre(kChangeCalled, kUpdateCalled));
  EXPECT_TRUE(set("Letter"));
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(ValueStringTest, MultiSelect_UnknownOption_IsRefusedWithoutLogging) {
  EXPECT_FALSE(set("Legal"));
  EXPECT_FALSE(set(""));
  EXPECT_EQ(currentInt(), 0);
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(ValueStringTest, MultiSelect_UnknownOptionAtPositionMinusOne_IsNoChange) {
  feature_.setFeatureProperty(std::string("CurrentIntValue"), -1);
  host_.takeEvents();
  EXPECT_TRUE(set("Legal"));
  EXPECT_EQ(currentInt(), -1);
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(ValueStringTest, MultiSelect_WithoutCurrentOption_ReturnsTrueAndNothing) {
  feature_.setFeatureProperty(std::string("CurrentIntValue"), 2);
  host_.takeEvents();
  EXPECT_EQ(get(), "left alone");
  EXPECT_THAT(host_.takeEvents(),
              ElementsAre(logLine(2,
                                  "DriverFeature::fetchOptionByIndex() - Attempt to fetch feature "
                                  "option with index out of range for feature \"Tray\".")));
}

TEST_F(ValueStringTest, MultiSelect_UnreadableOption_ReturnsTrueAndNothing) {
  UnreadableOption unreadable;
  feature_.addOptionToFeature(&unreadable);
  feature_.setFeatureProperty(std::string("CurrentIntValue"), 2);
  host_.takeEvents();
  EXPECT_EQ(get(), "left alone");
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(ValueStringTest, TypeWithoutOptions_IsRefusedByTheOptionList) {
  setType(5);
  EXPECT_FALSE(set("A4"));
  EXPECT_EQ(get(), "left alone");
  EXPECT_THAT(host_.takeEvents(),
              ElementsAre(logLine(2,
                                  "DriverFeature::fetchOptionIndexByName() - Attempt to get option "
                                  "index of non-combobox feature \"Tray\"."),
                          logLine(2,
                                  "DriverFeature::fetchCurrentOption() - Attempt to fetch current "
                                  "feature option of non-combobox feature \"Tray\".")));
  feature_.setFeatureProperty(std::string("CurrentIntValue"), -1);
  host_.takeEvents();
  EXPECT_TRUE(set("A4"));
  EXPECT_EQ(host_.takeEvents().size(), 1U);
}

TEST_F(ValueStringTest, IntEntry_Text_IsReadAsANumber) {
  setType(2);
  EXPECT_EQ(get(), "0");
  EXPECT_TRUE(set("12abc"));
  EXPECT_EQ(currentInt(), 12);
  EXPECT_EQ(get(), "12");
  EXPECT_THAT(host_.takeEvents(), ElementsAre(kChangeCalled, kUpdateCalled));
  EXPECT_TRUE(set(" +12"));
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
  EXPECT_TRUE(set("99999999999"));
  EXPECT_EQ(get(), "2147483647");
  EXPECT_TRUE(set("-99999999999"));
  EXPECT_EQ(get(), "-2147483648");
  EXPECT_TRUE(set("none"));
  EXPECT_EQ(get(), "0");
}

TEST_F(ValueStringTest, FloatEntry_Text_IsReadAsANumber) {
  setType(4);
  EXPECT_TRUE(set("2.5mm"));
  EXPECT_EQ(get(), "2.500000");
  EXPECT_THAT(host_.takeEvents(), ElementsAre(kChangeCalled, kUpdateCalled));
  EXPECT_TRUE(set("2.5"));
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
  EXPECT_TRUE(set("0.1"));
  float value = 0;
  EXPECT_TRUE(feature_.getFeatureProperty(std::string("CurrentFloatValue"), &value));
  EXPECT_EQ(value, 0.1F);
  host_.takeEvents();
  EXPECT_TRUE(set("nan"));
  EXPECT_TRUE(set("nan"));
  EXPECT_THAT(host_.takeEvents(),
              ElementsAre(kChangeCalled, kUpdateCalled, kChangeCalled, kUpdateCalled));
}

TEST_F(ValueStringTest, TextEntry_Text_IsTheValue) {
  setType(3);
  EXPECT_TRUE(set("Report"));
  EXPECT_EQ(get(), "Report");
  EXPECT_THAT(host_.takeEvents(), ElementsAre(kChangeCalled, kUpdateCalled));
  EXPECT_TRUE(set("Report"));
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
  const std::string binary("a\0b", 3);
  EXPECT_TRUE(set(binary));
  EXPECT_EQ(get(), binary);
}

TEST_F(ValueStringTest, UIOnly_AcceptsAnythingAndReadsNothing) {
  setType(0);
  EXPECT_TRUE(set("anything"));
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
  EXPECT_EQ(get(), "none");
  EXPECT_THAT(host_.takeEvents(),
              ElementsAre(logLine(3,
                                  "DriverFeature::getFeatureProperty(string&) - Unrecognized value "
                                  "type for feature property: \"ValueString\" for feature "
                                  "\"Tray\".")));
}

TEST_F(ValueStringTest, ValueType_DecidesOverTheFeatureType) {
  feature_.setFeatureProperty(std::string("FeatureValueType"), 2);
  EXPECT_TRUE(set("free text"));
  EXPECT_EQ(get(), "free text");
}

TEST_F(ValueStringTest, SilentStore_CallsTheChangeRoutineAlone) {
  EXPECT_TRUE(feature_.setFeaturePropertyWithConstraintControl(std::string("ValueString"),
                                                               std::string("Letter"), true));
  EXPECT_THAT(host_.takeEvents(), ElementsAre(kChangeCalled));
}

}  // namespace
}  // namespace driver_feature::testing
