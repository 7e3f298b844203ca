// Constraints of the host on features and their options.

#include <climits>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/notification.h"
#include "model/driver_feature.h"
#include "model/driver_feature_option.h"
#include "support/recording_host.h"

namespace driver_feature::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ConstraintsTest : public ::testing::Test {
 protected:
  ConstraintsTest() {
    for (DriverFeatureOption* option : {&a_, &b_, &c_}) feature_.addOptionToFeature(option);
    host_.registerUpdateCallback();
  }

  static bool flag(DriverFeatureOption& option, const std::string& name) {
    bool value = false;
    EXPECT_TRUE(option.getOptionProperty(name, &value));
    return value;
  }

  int current() {
    int value = -99;
    EXPECT_TRUE(feature_.getFeatureProperty(std::string("CurrentIntValue"), &value));
    return value;
  }

  RecordingHost host_;
  DriverFeatureOption a_{std::string("A")};
  DriverFeatureOption b_{std::string("B")};
  DriverFeatureOption c_{std::string("C")};
  DriverFeature feature_{std::string("Tray")};
};

TEST_F(ConstraintsTest, ConstraintSet_TakesIdentifiersFromZero) {
  IntermediateCoreFeature& slots = feature_;
  EXPECT_TRUE(slots.isConstraintSetEmpty());
  EXPECT_TRUE(slots.addConstraint(0));
  EXPECT_TRUE(slots.addConstraint(LONG_MAX));
  EXPECT_FALSE(slots.addConstraint(0));
  EXPECT_FALSE(slots.addConstraint(-1));
  EXPECT_THAT(*slots.getConstraintSet(), ElementsAre(0, LONG_MAX));
  EXPECT_FALSE(slots.isConstraintSetEmpty());
  EXPECT_FALSE(slots.removeConstraint(1));
  EXPECT_TRUE(slots.removeConstraint(0));
  EXPECT_FALSE(slots.removeConstraint(0));
  EXPECT_TRUE(slots.removeConstraint(LONG_MAX));
  EXPECT_TRUE(slots.isConstraintSetEmpty());
  // It is the feature's own set, not a copy.
  slots.getConstraintSet()->insert(4);
  EXPECT_FALSE(slots.isConstraintSetEmpty());
  EXPECT_TRUE(slots.removeConstraint(4));
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(ConstraintsTest, Apply_OptionThatIsNotCurrent_DisablesItWithoutLogging) {
  EXPECT_TRUE(feature_.applyOptionConstraint("B", 7, false));
  EXPECT_FALSE(flag(b_, "Sensitivity"));
  EXPECT_TRUE(flag(b_, "Visibility"));
  EXPECT_TRUE(b_.removeConstraint(7));
  EXPECT_EQ(current(), 0);
  EXPECT_TRUE(feature_.isConstraintSetEmpty());
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(ConstraintsTest, Apply_WithHiding_HidesTheOptionToo) {
  EXPECT_TRUE(feature_.applyOptionConstraint("C", 0, true));
  EXPECT_FALSE(flag(c_, "Sensitivity"));
  EXPECT_FALSE(flag(c_, "Visibility"));
  EXPECT_TRUE(c_.removeConstraint(0));
}

TEST_F(ConstraintsTest, Apply_CurrentOption_MovesToTheNextAvailable) {
  notification().creationComplete = true;
  feature_.setFeatureProperty(std::string("AddCallbackRoutine"), std::string("RecordChange"));
  b_.setOptionProperty(std::string("Sensitivity"), false);
  EXPECT_TRUE(feature_.applyOptionConstraint("A", 7, false));
  EXPECT_EQ(current(), 2);
  EXPECT_FALSE(flag(a_, "Sensitivity"));
  EXPECT_FALSE(a_.isConstraintSetEmpty());
  EXPECT_THAT(host_.takeEvents(), ElementsAre(kChangeCalled, kUpdateCalled));
}

TEST_F(ConstraintsTest, Apply_SecondConstraint_IsRecordedToo) {
  EXPECT_TRUE(feature_.applyOptionConstraint("B", 7, false));
  EXPECT_TRUE(feature_.applyOptionConstraint("B", 8, false));
  EXPECT_TRUE(feature_.applyOptionConstraint("B", 8, false));
  EXPECT_TRUE(b_.removeConstraint(7));
  EXPECT_TRUE(b_.removeConstraint(8));
  EXPECT_TRUE(b_.isConstraintSetEmpty());
}

TEST_F(ConstraintsTest, Apply_OnlyAvailableOption_ChangesNothing) {
  b_.setOptionProperty(std::string("Sensitivity"), false);
  c_.setOptionProperty(std::string("Sensitivity"), false);
  EXPECT_FALSE(feature_.applyOptionConstraint("A", 7, true));
  EXPECT_TRUE(flag(a_, "Sensitivity"));
  EXPECT_TRUE(flag(a_, "Visibility"));
  EXPECT_TRUE(a_.isConstraintSetEmpty());
  EXPECT_EQ(current(), 0);
  EXPECT_THAT(host_.takeEvents(),
              ElementsAre(logLine(2,
                                  "DriverFeatureOption::findNextAvailableOption() - No options are "
                                  "available!")));
}

TEST_F(ConstraintsTest, Apply_NegativeIdentifier_ChangesNothingWithoutLogging) {
  EXPECT_FALSE(feature_.applyOptionConstraint("B", -1, true));
  EXPECT_FALSE(feature_.applyOptionConstraint("Missing", -1, true));
  EXPECT_TRUE(flag(b_, "Sensitivity"));
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(ConstraintsTest, Apply_UnknownOption_IsLoggedAndRefused) {
  EXPECT_FALSE(feature_.applyOptionConstraint("D", 1, false));
  EXPECT_THAT(host_.takeEvents(),
              ElementsAre(logLine(3,
                                  "DriverFeature::fetchOptionByName() - Option \"D\" of feature "
                                  "\"Tray\" was not found.")));
}

TEST_F(ConstraintsTest, Apply_FirstOfAName_IsTheOneDisabled) {
  DriverFeatureOption second(std::string("B"));
  feature_.addOptionToFeature(&second);
  EXPECT_TRUE(feature_.applyOptionConstraint("B", 7, true));
  EXPECT_FALSE(flag(b_, "Sensitivity"));
  EXPECT_TRUE(flag(second, "Sensitivity"));
  EXPECT_TRUE(second.isConstraintSetEmpty());
}

TEST_F(ConstraintsTest, Apply_LastOptionIsCurrent_WrapsToTheFirst) {
  feature_.setFeatureProperty(std::string("CurrentIntValue"), 2);
  host_.takeEvents();
  EXPECT_TRUE(feature_.applyOptionConstraint("C", 7, true));
  EXPECT_EQ(current(), 0);
  EXPECT_FALSE(flag(c_, "Visibility"));
  EXPECT_THAT(host_.takeEvents(), ElementsAre(kUpdateCalled));
}

TEST_F(ConstraintsTest, Apply_WithoutCurrentOption_DisablesTheOptionAllTheSame) {
  feature_.setFeatureProperty(std::string("CurrentIntValue"), 3);
  host_.takeEvents();
  EXPECT_TRUE(feature_.applyOptionConstraint("A", 7, false));
  EXPECT_EQ(current(), 3);
  EXPECT_FALSE(flag(a_, "Sensitivity"));
  EXPECT_TRUE(a_.removeConstraint(7));
  EXPECT_THAT(host_.takeEvents(),
              ElementsAre(logLine(2,
                                  "DriverFeature::fetchOptionByIndex() - Attempt to fetch feature "
                                  "option with index out of range for feature \"Tray\".")));
}

TEST_F(ConstraintsTest, Apply_TypeWithoutOptions_IsLoggedAndRefused) {
  feature_.setFeatureProperty(std::string("FeatureType"), 2);
  EXPECT_FALSE(feature_.applyOptionConstraint("A", 1, false));
  EXPECT_TRUE(flag(a_, "Sensitivity"));
  EXPECT_TRUE(a_.isConstraintSetEmpty());
  EXPECT_THAT(host_.takeEvents(),
              ElementsAre(logLine(2,
                                  "DriverFeature::fetchOptionByName() - Attempt to fetch feature "
                                  "option of non-combobox feature \"Tray\".")));
}

// Writes down what reaches the plain setter.
class PlainSetterFeature : public DriverFeature {
 public:
  using DriverFeature::DriverFeature;
  using DriverFeature::setFeatureProperty;
  bool setFeatureProperty(const std::string& name, int value) override {
    RecordingHost::record("set " + name + " " + std::to_string(value));
    return DriverFeature::setFeatureProperty(name, value);
  }
};

TEST_F(ConstraintsTest, Apply_CurrentOption_MovesThroughThePlainSetter) {
  PlainSetterFeature feature(std::string("Tray"));
  feature.addOptionToFeature(&a_);
  feature.addOptionToFeature(&b_);
  EXPECT_TRUE(feature.applyOptionConstraint("A", 7, false));
  EXPECT_THAT(host_.takeEvents(), ElementsAre("set CurrentIntValue 1", kUpdateCalled));
}

}  // namespace
}  // namespace driver_feature::testing
