#include <new>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "frame/exports.h"
#include "frame/master_set.h"
#include "frame/state.h"
#include "model/driver_feature.h"
#include "model/driver_feature_dynamic_group.h"
#include "model/driver_feature_static_group.h"
#include "support/recording_host.h"

#include "Log.h"

namespace driver_feature::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ValueAccessTest : public ::testing::Test {
 protected:
  ValueAccessTest() {
    host_.registerUpdateCallback();
    masterSet().addFeatureToFeatureList("Copies", &copies_);
    masterSet().addFeatureToFeatureList("Gamma", &gamma_);
    masterSet().addFeatureToFeatureList("Title", &title_);
    masterSet().addStaticGroupToFeatureList(&staticGroup_);
    masterSet().addDynamicGroupToFeatureList(&dynamicGroup_);
    copies_.setFeatureProperty(std::string("FeatureType"), 2);
    gamma_.setFeatureProperty(std::string("FeatureType"), 4);
    title_.setFeatureProperty(std::string("FeatureType"), 3);
  }

  RecordingHost host_;
  DriverFeature copies_{std::string("Copies")};
  DriverFeature gamma_{std::string("Gamma")};
  DriverFeature title_{std::string("Title")};
  DriverFeatureStaticGroup staticGroup_{std::string("Quality")};
  DriverFeatureDynamicGroup dynamicGroup_{std::string("Exceptions")};

  std::string copiesName_ = "Copies";
  std::string gammaName_ = "Gamma";
  std::string titleName_ = "Title";
  std::string staticName_ = "Quality";
  std::string dynamicName_ = "Exceptions";
  std::string missing_ = "Missing";
};

TEST_F(ValueAccessTest, SetThenGet_EachType_ReachesTheFeature) {
  EXPECT_EQ(SetFeatureIntValue(copiesName_, "CurrentIntValue", 7), 1);
  int number = 0;
  EXPECT_EQ(GetFeatureIntValue(copiesName_, "CurrentIntValue", &number), 1);
  EXPECT_EQ(number, 7);

  EXPECT_EQ(SetFeatureFloatValue(gammaName_, "CurrentFloatValue", 2.5F), 1);
  float fraction = 0;
  EXPECT_EQ(GetFeatureFloatValue(gammaName_, "CurrentFloatValue", &fraction), 1);
  EXPECT_EQ(fraction, 2.5F);

  EXPECT_EQ(SetFeatureTextValue(titleName_, "CurrentTextValue", std::string("Report")), 1);
  std::string text;
  EXPECT_EQ(GetFeatureTextValue(titleName_, "CurrentTextValue", text), 1);
  EXPECT_EQ(text, "Report");

  EXPECT_EQ(SetFeatureBoolValue(copiesName_, "Visibility", false), 1);
  bool visible = true;
  EXPECT_EQ(GetFeatureBoolValue(copiesName_, "Visibility", &visible), 1);
  EXPECT_FALSE(visible);

  // One notification of the feature's own setter for each of the four.
  EXPECT_THAT(host_.takeEvents(),
              ElementsAre(kUpdateCalled, kUpdateCalled, kUpdateCalled, kUpdateCalled));
}

TEST_F(ValueAccessTest, Set_SameValueAgain_NotifiesNobody) {
  copies_.setFeaturePropertyWithConstraintControl(std::string("CurrentIntValue"), 7, true);
  EXPECT_EQ(SetFeatureIntValue(copiesName_, "CurrentIntValue", 7), 1);
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(ValueAccessTest, Get_StaticGroup_IsPassedToTheGroup) {
  int type = 0;
  EXPECT_EQ(GetFeatureIntValue(staticName_, "FeatureType", &type), 1);
  EXPECT_EQ(type, 6);
  EXPECT_EQ(GetFeatureIntValue(staticName_, "CurrentIntValue", &type), 0);
  EXPECT_EQ(type, 6);
  EXPECT_THAT(host_.takeEvents(),
              ElementsAre(logLine(3,
                                  "DriverFeatureStaticGroup::getFeatureProperty(int*) - "
                                  "Unrecognized feature property:  \"CurrentIntValue\" for feature "
                                  "\"Quality.")));
}

TEST_F(ValueAccessTest, Set_DynamicGroup_IsPassedToTheGroup) {
  EXPECT_EQ(SetFeatureIntValue(dynamicName_, "RecordInFocus", 4), 1);
  int record = 0;
  EXPECT_EQ(GetFeatureIntValue(dynamicName_, "RecordInFocus", &record), 1);
  EXPECT_EQ(record, 4);
  EXPECT_THAT(host_.takeEvents(), ElementsAre(kUpdateCalled));
}

TEST_F(ValueAccessTest, Set_UnknownProperty_ReturnsOnlyTheFeaturesRefusal) {
  EXPECT_EQ(SetFeatureTextValue(titleName_, "Titel", std::string("Report")), 0);
  EXPECT_THAT(host_.takeEvents(),
              ElementsAre(logLine(3,
                                  "DriverFeature::setFeatureProperty(string) - Unrecognized "
                                  "feature property:  \"Titel\" for feature \"Title.")));
}

TEST_F(ValueAccessTest, AnyFunction_UnknownTarget_LogsTwoLinesAndReturnsZero) {
  const auto expectRefusal = [this] {
    EXPECT_THAT(
        host_.takeEvents(),
        ElementsAre(logLine(3, "FindFeatureInFeatureList() - Did not find feature \"Missing\"."),
                    logLine(2, "Couldn't attach to feature:  Missing")));
    EXPECT_EQ(LogMessageBuffer.utf8(), "Couldn't attach to feature:  Missing");
  };
  int number = 5;
  EXPECT_EQ(GetFeatureIntValue(missing_, "CurrentIntValue", &number), 0);
  EXPECT_EQ(number, 5);
  expectRefusal();
  float fraction = 5;
  EXPECT_EQ(GetFeatureFloatValue(missing_, "CurrentFloatValue", &fraction), 0);
  EXPECT_EQ(fraction, 5);
  expectRefusal();
  bool flag = true;
  EXPECT_EQ(GetFeatureBoolValue(missing_, "Visibility", &flag), 0);
  EXPECT_TRUE(flag);
  expectRefusal();
  std::string text = "kept";
  EXPECT_EQ(GetFeatureTextValue(missing_, "CurrentTextValue", text), 0);
  EXPECT_EQ(text, "kept");
  expectRefusal();
  EXPECT_EQ(SetFeatureIntValue(missing_, "CurrentIntValue", 1), 0);
  expectRefusal();
  EXPECT_EQ(SetFeatureFloatValue(missing_, "CurrentFloatValue", 1), 0);
  expectRefusal();
  EXPECT_EQ(SetFeatureBoolValue(missing_, "Visibility", true), 0);
  expectRefusal();
  EXPECT_EQ(SetFeatureTextValue(missing_, "CurrentTextValue", text), 0);
  expectRefusal();
}

TEST_F(ValueAccessTest, AnyFunction_ThatThrowsInside_ReturnsZero) {
  class Throwing : public DriverFeature {
   public:
    using DriverFeature::DriverFeature;
    using DriverFeature::getFeatureProperty;
    using DriverFeature::setFeatureProperty;
    bool getFeatureProperty(const std::string&, int*) override { throw std::bad_alloc(); }
    bool setFeatureProperty(const std::string&, int) override { throw std::bad_alloc(); }
  };
  Throwing feature(std::string("Missing"));
  masterSet().addFeatureToFeatureList("Missing", &feature);
  int number = 5;
  EXPECT_EQ(GetFeatureIntValue(missing_, "CurrentIntValue", &number), 0);
  EXPECT_EQ(SetFeatureIntValue(missing_, "CurrentIntValue", 1), 0);
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(ValueAccessTest, Set_RefusedTypeOfValue_ReturnsTheFeaturesTrue) {
  EXPECT_EQ(SetFeatureTextValue(copiesName_, "CurrentTextValue", std::string("x")), 1);
  EXPECT_THAT(host_.takeEvents(),
              ElementsAre(logLine(3,
                                  "DriverFeature::setFeatureProperty(string) - Attempt to set "
                                  "feature property:  \"CurrentTextValue\" for feature \"Copies\" "
                                  "to xwhere the feature is not a text valued feature.")));
}

TEST_F(ValueAccessTest, AnyFunction_NullPropertyName_IsTheEmptyName) {
  int number = 3;
  EXPECT_EQ(GetFeatureIntValue(copiesName_, nullptr, &number), 0);
  EXPECT_EQ(number, 3);
  EXPECT_EQ(SetFeatureTextValue(copiesName_, nullptr, "text"), 0);
  EXPECT_THAT(host_.takeEvents(),
              ElementsAre(logLine(3,
                                  "DriverFeature::getFeatureProperty(int*) - Unrecognized feature "
                                  "property:  \"\" for feature \"Copies."),
                          logLine(3,
                                  "DriverFeature::setFeatureProperty(string) - Unrecognized "
                                  "feature property:  \"\" for feature \"Copies.")));
  float fraction = 3;
  bool flag = true;
  std::string text = "before";
  EXPECT_EQ(GetFeatureFloatValue(gammaName_, nullptr, &fraction), 0);
  EXPECT_EQ(GetFeatureBoolValue(gammaName_, nullptr, &flag), 0);
  EXPECT_EQ(GetFeatureTextValue(gammaName_, nullptr, text), 0);
  EXPECT_EQ(SetFeatureIntValue(gammaName_, nullptr, 1), 0);
  EXPECT_EQ(SetFeatureFloatValue(gammaName_, nullptr, 1), 0);
  EXPECT_EQ(SetFeatureBoolValue(gammaName_, nullptr, true), 0);
  EXPECT_EQ(host_.takeEvents().size(), 6U);
  EXPECT_EQ(fraction, 3);
  EXPECT_TRUE(flag);
  EXPECT_EQ(text, "before");
}

TEST_F(ValueAccessTest, Get_NullValuePointer_ReturnsZero) {
  EXPECT_EQ(GetFeatureIntValue(copiesName_, "CurrentIntValue", nullptr), 0);
  EXPECT_EQ(GetFeatureFloatValue(gammaName_, "CurrentFloatValue", nullptr), 0);
  EXPECT_EQ(GetFeatureBoolValue(copiesName_, "Sensitivity", nullptr), 0);
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(ValueAccessTest, AnyFunction_BeforeASetExists_MakesItAndFindsNothing) {
  // The set stays in sight of the check for leaks.
  static DriverFeatureSet* const kBefore = libraryState().masterSet;
  libraryState().masterSet = nullptr;
  EXPECT_EQ(SetFeatureIntValue(copiesName_, "CurrentIntValue", 7), 0);
  EXPECT_THAT(
      host_.takeEvents(),
      ElementsAre(logLine(3, "FindFeatureInFeatureList() - Did not find feature \"Copies\"."),
                  logLine(2, "Couldn't attach to feature:  Copies")));
  EXPECT_NE(libraryState().masterSet, nullptr);
  EXPECT_NE(libraryState().masterSet, kBefore);
}

}  // namespace
}  // namespace driver_feature::testing
