#include <new>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "frame/exports.h"
#include "frame/master_set.h"
#include "frame/state.h"
#include "model/notification.h"
#include "model/driver_feature.h"
#include "model/driver_feature_option.h"
#include "model/driver_feature_static_group.h"
#include "support/recording_host.h"

#include "AttributeMap.h"

namespace driver_feature::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// A feature that cannot be read, as a damaged one.
class UnreadableFeature : public DriverFeature {
 public:
  using DriverFeature::DriverFeature;
  bool getFeatureProperty(const std::string&, std::string&) override { return false; }
  bool getFeatureProperty(const std::string&, int*) override { return false; }
  bool getFeatureProperty(const std::string&, bool*) override { return false; }
  bool getFeatureProperty(const std::string&, float*) override { return false; }
  int number(const std::string& name) { return read<int>(name); }
  float fraction(const std::string& name) { return read<float>(name); }
  std::string text(const std::string& name) {
    std::string value;
    DriverFeature::getFeatureProperty(name, value);
    return value;
  }

 private:
  template <class Value>
  Value read(const std::string& name) {
    Value value{};
    DriverFeature::getFeatureProperty(name, &value);
    return value;
  }
};

class SavedValuesTest : public ::testing::Test {
 protected:
  void file(DriverFeature& feature, int type) {
    std::string name;
    feature.DriverFeature::getFeatureProperty(std::string("Name"), name);
    feature.setFeatureProperty(std::string("FeatureType"), type);
    masterSet().addFeatureToFeatureList(name, &feature);
    names_[name];
  }

  template <class Value>
  static Value read(DriverFeature& feature, const char* property) {
    Value value{};
    EXPECT_TRUE(feature.getFeatureProperty(std::string(property), &value)) << property;
    return value;
  }

  static std::string readText(DriverFeature& feature, const char* property) {
    std::string value;
    EXPECT_TRUE(feature.getFeatureProperty(std::string(property), value)) << property;
    return value;
  }

  RecordingHost host_;
  AttributeMap names_;
};

TEST_F(SavedValuesTest, SaveThenRestore_EachType_BringsTheValueBack) {
  DriverFeature list(std::string("List"));
  DriverFeature number(std::string("Number"));
  DriverFeature text(std::string("Text"));
  DriverFeature fraction(std::string("Fraction"));
  file(list, 1);
  file(number, 2);
  file(text, 3);
  file(fraction, 4);
  list.setFeatureProperty(std::string("CurrentIntValue"), 3);
  number.setFeatureProperty(std::string("CurrentIntValue"), 8);
  text.setFeatureProperty(std::string("CurrentTextValue"), std::string("saved"));
  fraction.setFeatureProperty(std::string("CurrentFloatValue"), 1.5F);

  host_.registerUpdateCallback();
  SaveCurrentFeatureValues(names_);
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
  EXPECT_EQ(read<int>(list, "OriginalIntValue"), 3);
  EXPECT_EQ(read<int>(number, "OriginalIntValue"), 8);
  EXPECT_EQ(readText(text, "OriginalTextValue"), "saved");
  EXPECT_EQ(read<float>(fraction, "OriginalFloatValue"), 1.5F);

  list.setFeaturePropertyWithConstraintControl(std::string("CurrentIntValue"), 0, true);
  std::string numberName = "Number";
  SetFeatureIntValue(numberName, "CurrentIntValue", 9);
  text.setFeaturePropertyWithConstraintControl(std::string("CurrentTextValue"),
                                               std::string("other"), true);
  fraction.setFeaturePropertyWithConstraintControl(std::string("CurrentFloatValue"), 0.5F, true);
  host_.takeEvents();

  RestoreOriginalFeatureValues(names_);
  EXPECT_EQ(read<int>(list, "CurrentIntValue"), 3);
  EXPECT_EQ(read<int>(number, "CurrentIntValue"), 8);
  EXPECT_EQ(readText(text, "CurrentTextValue"), "saved");
  EXPECT_EQ(read<float>(fraction, "CurrentFloatValue"), 1.5F);
  // Each change is reported by the feature itself.
  EXPECT_THAT(host_.takeEvents(),
              ElementsAre(kUpdateCalled, kUpdateCalled, kUpdateCalled, kUpdateCalled));
}

TEST_F(SavedValuesTest, SaveAndRestore_EmptyMap_DoNothing) {
  SaveCurrentFeatureValues(names_);
  RestoreOriginalFeatureValues(names_);
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(SavedValuesTest, SaveAndRestore_TypesWithoutValue_AreLeftAlone) {
  DriverFeature label(std::string("Label"));
  DriverFeature list(std::string("List"));
  DriverFeatureStaticGroup group(std::string("Group"));
  file(label, 0);
  file(list, 5);
  masterSet().addStaticGroupToFeatureList(&group);
  names_["Group"];
  list.setFeatureProperty(std::string("CurrentIntValue"), 3);
  SaveCurrentFeatureValues(names_);
  EXPECT_EQ(read<int>(list, "OriginalIntValue"), 0);
  list.setFeatureProperty(std::string("OriginalIntValue"), 9);
  RestoreOriginalFeatureValues(names_);
  EXPECT_EQ(read<int>(list, "CurrentIntValue"), 3);
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(SavedValuesTest, SaveAndRestore_UnknownName_IsLoggedAndPassedOver) {
  DriverFeature number(std::string("Number"));
  file(number, 2);
  number.setFeatureProperty(std::string("CurrentIntValue"), 8);
  names_["Missing"] = "ignored";
  SaveCurrentFeatureValues(names_);
  EXPECT_THAT(
      host_.takeEvents(),
      ElementsAre(logLine(3, "FindFeatureInFeatureList() - Did not find feature \"Missing\"."),
                  logLine(2, "SaveCurrentFeatureValues() - Cannot find feature \"Missing\"")));
  EXPECT_EQ(read<int>(number, "OriginalIntValue"), 8);
  number.setFeatureProperty(std::string("OriginalIntValue"), 5);
  RestoreOriginalFeatureValues(names_);
  EXPECT_THAT(
      host_.takeEvents(),
      ElementsAre(logLine(3, "FindFeatureInFeatureList() - Did not find feature \"Missing\"."),
                  logLine(2, "RestoreOriginalFeatureValues() - Cannot find feature \"Missing\"")));
  EXPECT_EQ(read<int>(number, "CurrentIntValue"), 5);
}

TEST_F(SavedValuesTest, Save_UnreadableValue_WritesTheOneBefore) {
  DriverFeature first(std::string("A"));
  UnreadableFeature second(std::string("B"));
  file(first, 2);
  file(second, 2);
  first.setFeatureProperty(std::string("CurrentIntValue"), 8);
  second.setFeatureProperty(std::string("CurrentIntValue"), 1);
  second.setFeatureProperty(std::string("OriginalIntValue"), 2);
  SaveCurrentFeatureValues(names_);
  EXPECT_EQ(second.number("OriginalIntValue"), 8);
}

TEST_F(SavedValuesTest, Save_UnreadableValueFirst_WritesZeroOrNothing) {
  UnreadableFeature number(std::string("A"));
  UnreadableFeature fraction(std::string("B"));
  UnreadableFeature text(std::string("C"));
  file(number, 2);
  file(fraction, 4);
  file(text, 3);
  number.setFeatureProperty(std::string("OriginalIntValue"), 2);
  fraction.setFeatureProperty(std::string("OriginalFloatValue"), 2.0F);
  text.setFeatureProperty(std::string("OriginalTextValue"), std::string("old"));
  SaveCurrentFeatureValues(names_);
  EXPECT_EQ(number.number("OriginalIntValue"), 0);
  EXPECT_EQ(fraction.fraction("OriginalFloatValue"), 0.0F);
  EXPECT_EQ(text.text("OriginalTextValue"), "");
}

TEST_F(SavedValuesTest, SaveAndRestore_ThatThrowInside_EndWithoutLogging) {
  class Throwing : public DriverFeature {
   public:
    using DriverFeature::DriverFeature;
    using DriverFeature::getFeatureProperty;
    bool getFeatureProperty(const std::string&, int*) override { throw std::bad_alloc(); }
  };
  Throwing feature(std::string("Number"));
  file(feature, 2);
  EXPECT_NO_THROW(SaveCurrentFeatureValues(names_));
  EXPECT_NO_THROW(RestoreOriginalFeatureValues(names_));
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(SavedValuesTest, Restore_WhileATicketIsLoaded_NotifiesNobody) {
  DriverFeature number(std::string("Number"));
  file(number, 2);
  number.setFeatureProperty(std::string("OriginalIntValue"), 8);
  host_.registerUpdateCallback();
  notification().ticketLoading = true;
  RestoreOriginalFeatureValues(names_);
  EXPECT_EQ(read<int>(number, "CurrentIntValue"), 8);
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(SavedValuesTest, Restore_ChangedValue_RunsTheChangeRoutineOnce) {
  DriverFeature number(std::string("Number"));
  file(number, 2);
  number.setFeatureProperty(std::string("AddCallbackRoutine"), std::string("RecordChange"));
  number.setFeatureProperty(std::string("OriginalIntValue"), 8);
  SetFeatureCreationCompleteFlag();
  RestoreOriginalFeatureValues(names_);
  EXPECT_THAT(host_.takeEvents(), ElementsAre(kChangeCalled));
  RestoreOriginalFeatureValues(names_);
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(SavedValuesTest, BeforeASetExists_MakesItAndFindsNothing) {
  libraryState().masterSet = nullptr;
  names_["Copies"];
  SaveCurrentFeatureValues(names_);
  RestoreOriginalFeatureValues(names_);
  const std::string notFound =
      logLine(3, "FindFeatureInFeatureList() - Did not find feature \"Copies\".");
  EXPECT_THAT(
      host_.takeEvents(),
      ElementsAre(
          notFound, logLine(2, "SaveCurrentFeatureValues() - Cannot find feature \"Copies\""),
          notFound, logLine(2, "RestoreOriginalFeatureValues() - Cannot find feature \"Copies\"")));
  EXPECT_NE(libraryState().masterSet, nullptr);
}

}  // namespace
}  // namespace driver_feature::testing
