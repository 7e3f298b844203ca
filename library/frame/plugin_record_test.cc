#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "frame/exports.h"
#include "frame/state.h"
#include "model/notification.h"
#include "model/driver_feature.h"
#include "frame/driver_feature_set.h"
#include "support/recording_host.h"

namespace driver_feature::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

bool recordOtherUpdate() {
  RecordingHost::record("other update callback");
  return true;
}

TEST(PluginRecordTest, Texts_EachSymbol_PointsToItsText) {
  EXPECT_STREQ(_KirvoSOVersion, "v1.0");
  EXPECT_STREQ(_KirvoSODisplayName, "Driver Feature Library");
  EXPECT_STREQ(_KirvoNDTagHandlerFunction, "FeatureXMLTagHandler");
}

TEST(MasterFeatureListTest, FirstCall_FreshLibrary_MakesAnEmptySet) {
  RecordingHost host;
  ASSERT_EQ(libraryState().masterSet, nullptr);
  auto* set = static_cast<CoreFeatureSet*>(GetMasterFeatureList());
  ASSERT_NE(set, nullptr);
  EXPECT_EQ(set, static_cast<CoreFeatureSet*>(libraryState().masterSet));
  EXPECT_EQ(set->fetchNumberOfFeatures(), 0);
  EXPECT_EQ(libraryState().masterSet->fetchStaticGroupByIndex(0), nullptr);
  EXPECT_THAT(host.takeEvents(), IsEmpty());
}

TEST(MasterFeatureListTest, LaterCalls_ReturnTheSameSet) {
  RecordingHost host;
  void* set = GetMasterFeatureList();
  DriverFeature feature(std::string("Copies"));
  libraryState().masterSet->addFeatureToFeatureList("Copies", &feature);
  EXPECT_EQ(GetMasterFeatureList(), set);
  EXPECT_EQ(GetMasterFeatureList(), set);
  EXPECT_EQ(static_cast<CoreFeatureSet*>(set)->fetchNumberOfFeatures(), 1);
}

TEST(UpdateCallbackTest, Set_Routine_IsCalledOnAChange) {
  RecordingHost host;
  setDriverFeatureUpdateCallback(RecordUpdate);
  DriverFeature feature;
  feature.setFeatureProperty(std::string("CurrentIntValue"), 2);
  EXPECT_THAT(host.takeEvents(), ElementsAre(kUpdateCalled));
}

TEST(UpdateCallbackTest, Set_SecondRoutine_ReplacesTheFirst) {
  RecordingHost host;
  setDriverFeatureUpdateCallback(RecordUpdate);
  setDriverFeatureUpdateCallback(recordOtherUpdate);
  EXPECT_EQ(notification().updateCallback, recordOtherUpdate);
  DriverFeature feature;
  feature.setFeatureProperty(std::string("CurrentIntValue"), 2);
  EXPECT_THAT(host.takeEvents(), ElementsAre("other update callback"));
}

TEST(UpdateCallbackTest, Set_Null_IsStoredAndNotCalled) {
  RecordingHost host;
  setDriverFeatureUpdateCallback(RecordUpdate);
  setDriverFeatureUpdateCallback(nullptr);
  EXPECT_EQ(notification().updateCallback, nullptr);
  DriverFeature feature;
  EXPECT_TRUE(feature.setFeatureProperty(std::string("CurrentIntValue"), 2));
  EXPECT_THAT(host.takeEvents(), IsEmpty());
}

TEST(CreationCompleteTest, Flag_BeforeAndAfter_DecidesAboutTheChangeRoutine) {
  RecordingHost host;
  host.registerUpdateCallback();
  DriverFeature feature;
  feature.setFeatureProperty(std::string("AddCallbackRoutine"), std::string("RecordChange"));
  ASSERT_FALSE(notification().creationComplete);
  feature.setFeatureProperty(std::string("CurrentIntValue"), 1);
  EXPECT_THAT(host.takeEvents(), ElementsAre(kUpdateCalled));

  SetFeatureCreationCompleteFlag();
  feature.setFeatureProperty(std::string("CurrentIntValue"), 2);
  EXPECT_THAT(host.takeEvents(), ElementsAre(kChangeCalled, kUpdateCalled));
}

TEST(CreationCompleteTest, Flag_SetTwice_StaysSet) {
  RecordingHost host;
  SetFeatureCreationCompleteFlag();
  SetFeatureCreationCompleteFlag();
  EXPECT_TRUE(notification().creationComplete);
  EXPECT_THAT(host.takeEvents(), IsEmpty());
}

TEST(CreationCompleteTest, Flag_SetWhenNothingIsLoaded_MakesNoSet) {
  RecordingHost host;
  SetFeatureCreationCompleteFlag();
  EXPECT_EQ(libraryState().masterSet, nullptr);
}

}  // namespace
}  // namespace driver_feature::testing
