// Who is notified when a feature changes.

#include <limits>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/notification.h"
#include "model/driver_feature.h"
#include "support/recording_host.h"

namespace driver_feature::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class FeatureNotificationTest : public ::testing::Test {
 protected:
  FeatureNotificationTest() { host_.registerUpdateCallback(); }

  void setType(int type) { feature_.setFeatureProperty(std::string("FeatureType"), type); }

  template <class Value>
  bool set(const std::string& name, const Value& value) {
    return feature_.setFeatureProperty(name, value);
  }

  int readInt(const std::string& name) {
    int value = -99;
    EXPECT_TRUE(feature_.getFeatureProperty(name, &value)) << name;
    return value;
  }

  RecordingHost host_;
  DriverFeature feature_{std::string("Tray")};
};

TEST_F(FeatureNotificationTest, CurrentValue_Unchanged_NotifiesNobody) {
  notification().creationComplete = true;
  set("AddCallbackRoutine", std::string("RecordChange"));
  EXPECT_TRUE(set("CurrentIntValue", 0));
  setType(3);
  EXPECT_TRUE(set("CurrentTextValue", std::string("")));
  setType(4);
  EXPECT_TRUE(set("CurrentFloatValue", -0.0F));  // Equal to 0.
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
  EXPECT_TRUE(set("CurrentFloatValue", 0.5F));
  EXPECT_THAT(host_.takeEvents(), ElementsAre(kChangeCalled, kUpdateCalled));
}

TEST_F(FeatureNotificationTest, CurrentFloat_NotANumber_IsAlwaysAChange) {
  setType(4);
  const float nan = std::numeric_limits<float>::quiet_NaN();
  EXPECT_TRUE(set("CurrentFloatValue", nan));
  EXPECT_TRUE(set("CurrentFloatValue", nan));
  EXPECT_THAT(host_.takeEvents(), ElementsAre(kUpdateCalled, kUpdateCalled));
}

TEST_F(FeatureNotificationTest, Change_BeforeCreationIsComplete_SkipsTheChangeRoutine) {
  set("AddCallbackRoutine", std::string("RecordChange"));
  set("CurrentIntValue", 1);
  EXPECT_THAT(host_.takeEvents(), ElementsAre(kUpdateCalled));
  notification().creationComplete = true;
  set("CurrentIntValue", 2);
  EXPECT_THAT(host_.takeEvents(), ElementsAre(kChangeCalled, kUpdateCalled));
}

TEST_F(FeatureNotificationTest, Change_SilentOrWhileATicketIsLoaded_RunsTheChangeRoutineAlone) {
  notification().creationComplete = true;
  set("AddCallbackRoutine", std::string("RecordChange"));
  feature_.setFeaturePropertyWithConstraintControl(std::string("CurrentIntValue"), 1, true);
  EXPECT_THAT(host_.takeEvents(), ElementsAre(kChangeCalled));
  notification().ticketLoading = true;
  set("CurrentIntValue", 2);
  EXPECT_THAT(host_.takeEvents(), ElementsAre(kChangeCalled));
  set("Visibility", true);
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(FeatureNotificationTest, Flag_Stored_SkipsTheChangeRoutine) {
  notification().creationComplete = true;
  setType(3);
  set("AddCallbackRoutine", std::string("RecordChange"));
  for (const char* name : {"Sensitivity", "Visibility", "Encrypted"}) {
    EXPECT_TRUE(set(name, false));
    EXPECT_THAT(host_.takeEvents(), ElementsAre(kUpdateCalled)) << name;
  }
  EXPECT_TRUE(set("FeatureInGroup", true));
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(FeatureNotificationTest, Change_WithoutUpdateCallback_IsStored) {
  notification().updateCallback = nullptr;
  EXPECT_TRUE(set("CurrentIntValue", 3));
  EXPECT_TRUE(set("Sensitivity", false));
  EXPECT_EQ(readInt("CurrentIntValue"), 3);
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(FeatureNotificationTest, ChangeRoutine_UnknownName_ClearsTheOneBefore) {
  notification().creationComplete = true;
  EXPECT_TRUE(set("AddCallbackRoutine", std::string("RecordChange")));
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
  EXPECT_TRUE(set("AddCallbackRoutine", std::string("NoSuchRoutine")));
  EXPECT_THAT(host_.takeEvents(),
              ElementsAre(logLine(2,
                                  "DriverFeature::setFeatureProperty(string):  Failed to load "
                                  "custom feature callback:  NoSuchRoutine")));
  EXPECT_TRUE(set("AddCallbackRoutine", std::string()));
  EXPECT_THAT(host_.takeEvents(),
              ElementsAre(logLine(2,
                                  "DriverFeature::setFeatureProperty(string):  Failed to load "
                                  "custom feature callback:  ")));
  set("CurrentIntValue", 1);
  EXPECT_THAT(host_.takeEvents(), ElementsAre(kUpdateCalled));
}

DriverFeature* watched = nullptr;

void recordWatched(const std::string& who) {
  int value = -99;
  watched->getFeatureProperty(std::string("CurrentIntValue"), &value);
  RecordingHost::record(who + " sees " + std::to_string(value));
}

TEST_F(FeatureNotificationTest, Change_IsStoredBeforeAnybodyIsNotified) {
  watched = &feature_;
  notification().creationComplete = true;
  notification().updateCallback = [] {
    recordWatched("host");
    return true;
  };
  set("AddCallbackRoutine", std::string("RecordWatchedValue"));
  EXPECT_TRUE(set("CurrentIntValue", 4));
  EXPECT_THAT(host_.takeEvents(), ElementsAre("routine sees 4", "host sees 4"));
  watched = nullptr;
}

}  // namespace
}  // namespace driver_feature::testing

extern "C" void RecordWatchedValue() {
  driver_feature::testing::recordWatched("routine");
}
