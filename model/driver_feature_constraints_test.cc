// Constraints of the host, and copies of features.

#include <climits>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "frame/state.h"
#include "model/driver_feature.h"
#include "model/driver_feature_option.h"
#include "support/recording_host.h"
#include "support/scripted_feature.h"

#include "Log.h"

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
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(ConstraintsTest, Apply_OptionThatIsNotCurrent_DisablesItInSilence) {
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
  libraryState().creationComplete = true;
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

TEST_F(ConstraintsTest, Apply_NegativeIdentifier_ChangesNothingInSilence) {
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

class CopyTest : public ConstraintsTest {};

TEST_F(CopyTest, Copy_TakesSixValuesAndTheNamesOfOptions) {
  feature_.setFeatureProperty(std::string("CurrentIntValue"), 1);
  feature_.setFeatureProperty(std::string("DefaultIntValue"), 2);
  feature_.setFeatureProperty(std::string("PSCommand"), std::string("ps"));
  feature_.setFeatureProperty(std::string("Sensitivity"), false);
  feature_.addConstraint(3);
  b_.setOptionProperty(std::string("PSCommand"), std::string("ps"));
  b_.setOptionProperty(std::string("Sensitivity"), false);
  host_.takeEvents();
  DriverFeature copy(&feature_);
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
  std::string text;
  EXPECT_TRUE(copy.getFeatureProperty(std::string("Name"), text));
  EXPECT_EQ(text, "Tray");
  int number = -1;
  EXPECT_TRUE(copy.getFeatureProperty(std::string("CurrentIntValue"), &number));
  EXPECT_EQ(number, 1);
  EXPECT_TRUE(copy.getFeatureProperty(std::string("DefaultIntValue"), &number));
  EXPECT_EQ(number, 0);
  EXPECT_TRUE(copy.getFeatureProperty(std::string("PSCommand"), text));
  EXPECT_EQ(text, "");
  bool sensitive = false;
  EXPECT_TRUE(copy.getFeatureProperty(std::string("Sensitivity"), &sensitive));
  EXPECT_TRUE(sensitive);
  EXPECT_TRUE(copy.isConstraintSetEmpty());

  ASSERT_EQ(copy.getFeatureOptionCount(), 3);
  CoreOption* option = copy.fetchOptionByIndex(1);
  EXPECT_NE(option, &b_);
  EXPECT_TRUE(option->getOptionProperty(std::string("Name"), text));
  EXPECT_EQ(text, "B");
  EXPECT_TRUE(option->getOptionProperty(std::string("PSCommand"), text));
  EXPECT_EQ(text, "");
  EXPECT_TRUE(option->getOptionProperty(std::string("Sensitivity"), &sensitive));
  EXPECT_TRUE(sensitive);
}

TEST_F(CopyTest, Copy_OfOtherTypes_TakesTheirValues) {
  DriverFeature source(std::string("Source"));
  source.setFeatureProperty(std::string("FeatureType"), 3);
  source.setFeatureProperty(std::string("CurrentTextValue"), std::string("text"));
  DriverFeature textCopy(&source);
  EXPECT_EQ(textCopy.getFeatureType(), 3);
  std::string text;
  EXPECT_TRUE(textCopy.getFeatureProperty(std::string("ValueString"), text));
  EXPECT_EQ(text, "text");
  source.setFeatureProperty(std::string("FeatureType"), 4);
  source.setFeatureProperty(std::string("CurrentFloatValue"), 2.5F);
  source.setFeatureProperty(std::string("FeatureType"), 5);
  DriverFeature floatCopy(&source);
  EXPECT_EQ(floatCopy.getFeatureType(), 5);
  EXPECT_TRUE(floatCopy.getFeatureProperty(std::string("ValueString"), text));
  EXPECT_EQ(text, "2.500000");
}

TEST_F(CopyTest, Copy_OfATypeWithoutOptions_AsksForNone) {
  feature_.setFeatureProperty(std::string("FeatureType"), 5);
  DriverFeature copy(&feature_);
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
  copy.setFeatureProperty(std::string("FeatureType"), 1);
  EXPECT_EQ(copy.getFeatureOptionCount(), 0);
}

TEST_F(CopyTest, Copy_UnreadableOption_StopsAtIt) {
  UnreadableOption unreadable;
  DriverFeature source(std::string("Source"));
  source.addOptionToFeature(&a_);
  source.addOptionToFeature(&unreadable);
  source.addOptionToFeature(&c_);
  LogMessageBuffer = "untouched";
  DriverFeature copy(&source);
  EXPECT_THAT(host_.takeEvents(),
              ElementsAre(logLine(4,
                                  "DriverFeature(DriverFeature*) - Cannot get MultiSelect feature "
                                  "option name")));
  EXPECT_EQ(LogMessageBuffer.utf8(), "untouched");
  EXPECT_EQ(copy.getFeatureOptionCount(), 1);
}

TEST_F(CopyTest, Copy_MissingOption_StopsAtIt) {
  class Holed : public DriverFeature {
   public:
    CoreOption* fetchOptionByIndex(int index) override {
      return index == 1 ? nullptr : DriverFeature::fetchOptionByIndex(index);
    }
  };
  Holed source;
  for (DriverFeatureOption* option : {&a_, &b_, &c_}) source.addOptionToFeature(option);
  DriverFeature copy(&source);
  EXPECT_THAT(host_.takeEvents(),
              ElementsAre(logLine(4,
                                  "DriverFeature(DriverFeature*) - Cannot get MultiSelect feature "
                                  "option name")));
  EXPECT_EQ(copy.getFeatureOptionCount(), 1);
}

}  // namespace
}  // namespace driver_feature::testing
