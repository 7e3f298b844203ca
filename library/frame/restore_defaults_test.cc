// Setting every feature back to its default.

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/notification.h"
#include "model/driver_feature.h"
#include "frame/driver_feature_set.h"
#include "support/model_builder.h"
#include "support/recording_host.h"

namespace driver_feature::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class RestoreDefaultsTest : public ::testing::Test {
 protected:
  RestoreDefaultsTest() { host_.registerUpdateCallback(); }

  DriverFeature& feature(const std::string& name, int type, const char* defaultName, auto value) {
    DriverFeature& feature = model_.feature(name, type);
    feature.setFeatureProperty(std::string(defaultName), value);
    return feature;
  }

  RecordingHost host_;
  ModelBuilder model_;
};

TEST_F(RestoreDefaultsTest, EachType_TakesItsDefaultAndReportsOnce) {
  DriverFeature& list = feature("List", 1, "DefaultIntValue", 4);
  DriverFeature& number = feature("Number", 2, "DefaultIntValue", 5);
  DriverFeature& text = feature("Text", 3, "DefaultTextValue", std::string("default"));
  DriverFeature& fraction = feature("Fraction", 4, "DefaultFloatValue", 2.5F);
  number.setFeatureProperty(std::string("AddCallbackRoutine"), std::string("RecordChange"));
  notification().creationComplete = true;
  masterSet().restoreDefaultFeatureValues();
  int value = 0;
  EXPECT_TRUE(list.getFeatureProperty(std::string("CurrentIntValue"), &value));
  EXPECT_EQ(value, 4);
  EXPECT_TRUE(number.getFeatureProperty(std::string("CurrentIntValue"), &value));
  EXPECT_EQ(value, 5);
  std::string textValue;
  EXPECT_TRUE(text.getFeatureProperty(std::string("CurrentTextValue"), textValue));
  EXPECT_EQ(textValue, "default");
  float fractionValue = 0;
  EXPECT_TRUE(fraction.getFeatureProperty(std::string("CurrentFloatValue"), &fractionValue));
  EXPECT_EQ(fractionValue, 2.5F);
  EXPECT_THAT(host_.takeEvents(), ElementsAre(kChangeCalled, kUpdateCalled));
}

TEST_F(RestoreDefaultsTest, OtherTypes_KeepTheirValues) {
  for (const int type : {0, 5, 6, 7, 8}) {
    DriverFeature& unchanged = feature("Label", 2, "DefaultIntValue", 4);
    unchanged.setFeatureProperty(std::string("FeatureType"), 3);
    unchanged.setFeatureProperty(std::string("DefaultTextValue"), std::string("text"));
    unchanged.setFeatureProperty(std::string("FeatureType"), 4);
    unchanged.setFeatureProperty(std::string("DefaultFloatValue"), 2.5F);
    unchanged.setFeatureProperty(std::string("FeatureType"), type);
    for (const int valueType : {0, 1, 2, 3}) {
      unchanged.setFeatureProperty(std::string("FeatureValueType"), valueType);
      masterSet().restoreDefaultFeatureValues();
      int number = -1;
      EXPECT_TRUE(unchanged.getFeatureProperty(std::string("CurrentIntValue"), &number));
      EXPECT_EQ(number, 0) << type;
      std::string text = "unset";
      EXPECT_TRUE(unchanged.getFeatureProperty(std::string("CurrentTextValue"), text));
      EXPECT_EQ(text, "") << type;
      float fraction = -1;
      EXPECT_TRUE(unchanged.getFeatureProperty(std::string("CurrentFloatValue"), &fraction));
      EXPECT_EQ(fraction, 0.0F) << type;
      EXPECT_THAT(host_.takeEvents(), ElementsAre(kUpdateCalled));
    }
  }
}

TEST_F(RestoreDefaultsTest, ValueOfAnotherType_IsLoggedAndTheRestRestored) {
  DriverFeature& odd = feature("A", 2, "DefaultIntValue", 5);
  odd.setFeatureProperty(std::string("FeatureValueType"), 2);
  DriverFeature& next = feature("B", 2, "DefaultIntValue", 6);
  masterSet().restoreDefaultFeatureValues();
  int value = -1;
  EXPECT_TRUE(odd.getFeatureProperty(std::string("CurrentIntValue"), &value));
  EXPECT_EQ(value, 0);
  EXPECT_TRUE(next.getFeatureProperty(std::string("CurrentIntValue"), &value));
  EXPECT_EQ(value, 6);
  EXPECT_THAT(host_.takeEvents(),
              ElementsAre(logLine(3,
                                  "DriverFeature::setFeatureProperty(int) - Attempt to set feature "
                                  "property:  \"CurrentIntValue\" for feature \"A\" to \x05where "
                                  "the feature is not a int valued feature."),
                          kUpdateCalled));
}

// Writes down how a value reaches it.
class ControlledFeature : public DriverFeature {
 public:
  using DriverFeature::DriverFeature;
  using DriverFeature::setFeaturePropertyWithConstraintControl;
  bool setFeaturePropertyWithConstraintControl(const std::string& name, int value,
                                               bool suppressUpdate) override {
    RecordingHost::record("set " + name + " " + std::to_string(value) +
                          (suppressUpdate ? " silently" : ""));
    return false;
  }
};

TEST_F(RestoreDefaultsTest, Set_IsSilentAndItsRefusalIgnored) {
  ControlledFeature first(std::string("A"));
  ControlledFeature second(std::string("B"));
  masterSet().addFeatureToFeatureList("A", &first);
  masterSet().addFeatureToFeatureList("B", &second);
  masterSet().restoreDefaultFeatureValues();
  EXPECT_THAT(host_.takeEvents(), ElementsAre("set CurrentIntValue 0 silently",
                                              "set CurrentIntValue 0 silently", kUpdateCalled));
}

TEST_F(RestoreDefaultsTest, EmptySet_ReportsAllTheSame) {
  masterSet().restoreDefaultFeatureValues();
  EXPECT_THAT(host_.takeEvents(), ElementsAre(kUpdateCalled));
  notification().ticketLoading = true;
  masterSet().restoreDefaultFeatureValues();
  EXPECT_THAT(host_.takeEvents(), ElementsAre(kUpdateCalled));
  notification().updateCallback = nullptr;
  masterSet().restoreDefaultFeatureValues();
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(RestoreDefaultsTest, MissingFeature_IsPassedOver) {
  class Holed : public DriverFeatureSet {
   public:
    DriverFeature* fetchFeatureByIndex(int index) override {
      return index == 0 ? nullptr : DriverFeatureSet::fetchFeatureByIndex(index);
    }
  };
  Holed set;
  DriverFeature& skipped = feature("A", 2, "DefaultIntValue", 5);
  DriverFeature& restored = feature("B", 2, "DefaultIntValue", 6);
  set.addFeatureToFeatureList("A", &skipped);
  set.addFeatureToFeatureList("B", &restored);
  set.restoreDefaultFeatureValues();
  int value = -1;
  skipped.getFeatureProperty(std::string("CurrentIntValue"), &value);
  EXPECT_EQ(value, 0);
  restored.getFeatureProperty(std::string("CurrentIntValue"), &value);
  EXPECT_EQ(value, 6);
}

}  // namespace
}  // namespace driver_feature::testing
