#include <climits>
#include <iostream>
#include <stdexcept>
#include <streambuf>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "frame/exports.h"
#include "frame/state.h"
#include "model/notification.h"
#include "model/driver_feature.h"
#include "support/recording_host.h"

namespace driver_feature::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::internal::CaptureStdout;
using ::testing::internal::GetCapturedStdout;

using Handler = int (*)(void* element);

// What the custom load routine does and has seen.
struct LoadScript {
  int result = 0;
  bool throws = false;
  DriverFeature* feature = nullptr;
  void* element = nullptr;
};
LoadScript script;

std::string flagText() {
  return notification().ticketLoading ? "flag up" : "flag down";
}

int loadRoutine(void* element, int mode) {
  script.element = element;
  RecordingHost::record("load " + std::to_string(mode) + ", " + flagText());
  if (script.feature != nullptr) {
    script.feature->setFeatureProperty(std::string("CurrentIntValue"), 5);
    script.feature->setFeatureProperty(std::string("Sensitivity"), false);
    script.feature->setFeatureProperty(std::string("Visibility"), false);
  }
  if (script.throws) throw std::runtime_error("the routine failed");
  return script.result;
}

bool recordFlagAtUpdate() {
  RecordingHost::record("update, " + flagText());
  return false;
}

bool recordFlagAtUpdateAndAgree() {
  RecordingHost::record("update, " + flagText());
  return true;
}

class TicketHandlersTest : public ::testing::Test {
 protected:
  TicketHandlersTest() {
    script = {};
    notification().updateCallback = recordFlagAtUpdate;
  }
  ~TicketHandlersTest() override { script = {}; }

  // Calls a handler and returns what it wrote to standard output.
  std::string outputOf(Handler handler, int expectedResult = 1) {
    CaptureStdout();
    const int result = handler(&element_);
    std::string output = GetCapturedStdout();
    EXPECT_EQ(result, expectedResult);
    return output;
  }

  static void registerLoadRoutine() { libraryState().loadCallback = loadRoutine; }

  RecordingHost host_;
  int element_ = 0;
};

TEST_F(TicketHandlersTest, EitherHandler_NoLoadRoutine_ReturnsOneAndDoesNothing) {
  for (const Handler handler : {InstOptVORNTagHandler, JobTicketVORNTagHandler}) {
    SCOPED_TRACE(handler == InstOptVORNTagHandler ? "installable options" : "job ticket");
    EXPECT_EQ(outputOf(handler), "");
    EXPECT_FALSE(notification().ticketLoading);
    EXPECT_THAT(host_.takeEvents(), IsEmpty());
  }
}

TEST_F(TicketHandlersTest, InstOpt_Success_RunsTheRoutineInModeOneAndNotifiesNobody) {
  registerLoadRoutine();
  EXPECT_EQ(outputOf(InstOptVORNTagHandler), "");
  EXPECT_EQ(script.element, &element_);
  EXPECT_FALSE(notification().ticketLoading);
  EXPECT_THAT(host_.takeEvents(), ElementsAre("load 1, flag up"));
}

TEST_F(TicketHandlersTest, InstOpt_RoutineFails_WritesToStandardOutputAndNotToTheLog) {
  registerLoadRoutine();
  for (const int result : {1, -1, 256, INT_MAX, INT_MIN}) {
    SCOPED_TRACE(result);
    script.result = result;
    EXPECT_EQ(outputOf(InstOptVORNTagHandler), "Queue Defaults Load Error\n");
    EXPECT_FALSE(notification().ticketLoading);
    EXPECT_THAT(host_.takeEvents(), ElementsAre("load 1, flag up"));
  }
}

TEST_F(TicketHandlersTest, JobTicket_AnyResult_RunsTheRoutineInModeZeroAndNotifiesOnce) {
  registerLoadRoutine();
  for (const int result : {0, 1, -1, INT_MIN}) {
    SCOPED_TRACE(result);
    script.result = result;
    script.element = nullptr;
    EXPECT_EQ(outputOf(JobTicketVORNTagHandler), "");
    EXPECT_EQ(script.element, &element_);
    EXPECT_FALSE(notification().ticketLoading);
    EXPECT_THAT(host_.takeEvents(), ElementsAre("load 0, flag up", "update, flag down"));
  }
}

TEST_F(TicketHandlersTest, JobTicket_UpdateCallbackReturnsTrue_ResultIsIgnored) {
  registerLoadRoutine();
  notification().updateCallback = recordFlagAtUpdateAndAgree;
  EXPECT_EQ(outputOf(JobTicketVORNTagHandler), "");
  EXPECT_THAT(host_.takeEvents(), ElementsAre("load 0, flag up", "update, flag down"));
}

TEST_F(TicketHandlersTest, JobTicket_NoUpdateCallback_ReturnsOne) {
  registerLoadRoutine();
  notification().updateCallback = nullptr;
  EXPECT_EQ(outputOf(JobTicketVORNTagHandler), "");
  EXPECT_THAT(host_.takeEvents(), ElementsAre("load 0, flag up"));
}

TEST_F(TicketHandlersTest, InstOpt_RoutineChangesValues_NotifiesNobody) {
  registerLoadRoutine();
  DriverFeature feature;
  script.feature = &feature;
  outputOf(InstOptVORNTagHandler);
  EXPECT_THAT(host_.takeEvents(), ElementsAre("load 1, flag up"));
}

TEST_F(TicketHandlersTest, JobTicket_RoutineChangesValues_NotifiesOnceAtTheEnd) {
  registerLoadRoutine();
  DriverFeature feature;
  script.feature = &feature;
  outputOf(JobTicketVORNTagHandler);
  EXPECT_THAT(host_.takeEvents(), ElementsAre("load 0, flag up", "update, flag down"));
  int value = 0;
  EXPECT_TRUE(feature.getFeatureProperty(std::string("CurrentIntValue"), &value));
  EXPECT_EQ(value, 5);
}

TEST_F(TicketHandlersTest, JobTicket_RoutineChangesValues_ChangeRoutineStillRuns) {
  registerLoadRoutine();
  SetFeatureCreationCompleteFlag();
  DriverFeature feature;
  feature.setFeatureProperty(std::string("AddCallbackRoutine"), std::string("RecordChange"));
  script.feature = &feature;
  outputOf(JobTicketVORNTagHandler);
  EXPECT_THAT(host_.takeEvents(),
              ElementsAre("load 0, flag up", kChangeCalled, "update, flag down"));
}

TEST_F(TicketHandlersTest, EitherHandler_Afterwards_ChangesNotifyAgain) {
  registerLoadRoutine();
  for (const Handler handler : {InstOptVORNTagHandler, JobTicketVORNTagHandler}) {
    SCOPED_TRACE(handler == InstOptVORNTagHandler ? "installable options" : "job ticket");
    script.result = 1;
    outputOf(handler);
    host_.takeEvents();
    DriverFeature feature;
    feature.setFeatureProperty(std::string("CurrentIntValue"), 1);
    EXPECT_THAT(host_.takeEvents(), ElementsAre("update, flag down"));
  }
}

TEST_F(TicketHandlersTest, EitherHandler_RoutineThrows_ReturnsZeroAndLowersTheFlag) {
  registerLoadRoutine();
  script.throws = true;
  EXPECT_EQ(outputOf(InstOptVORNTagHandler, 0), "");
  EXPECT_FALSE(notification().ticketLoading);
  EXPECT_THAT(host_.takeEvents(), ElementsAre("load 1, flag up"));

  EXPECT_EQ(outputOf(JobTicketVORNTagHandler, 0), "");
  EXPECT_FALSE(notification().ticketLoading);
  EXPECT_THAT(host_.takeEvents(), ElementsAre("load 0, flag up"));
}

// Writes down the flag when a text goes through.
class FlagBuffer : public std::streambuf {
 public:
  FlagBuffer() : before_(std::cout.rdbuf(this)) {}
  ~FlagBuffer() override { std::cout.rdbuf(before_); }
  FlagBuffer(const FlagBuffer&) = delete;
  FlagBuffer& operator=(const FlagBuffer&) = delete;

 protected:
  std::streamsize xsputn(const char* text, std::streamsize size) override {
    RecordingHost::record("writes " + std::string(text, static_cast<std::size_t>(size)) + ", " +
                          flagText());
    return size;
  }
  int overflow(int c) override { return c; }

 private:
  std::streambuf* before_;
};

TEST_F(TicketHandlersTest, InstOpt_RoutineFails_FlagIsUpUntilTheTextIsWritten) {
  registerLoadRoutine();
  script.result = 1;
  {
    const FlagBuffer buffer;
    EXPECT_EQ(InstOptVORNTagHandler(&element_), 1);
  }
  EXPECT_FALSE(notification().ticketLoading);
  EXPECT_THAT(host_.takeEvents(),
              ElementsAre("load 1, flag up", "writes Queue Defaults Load Error, flag up"));
}

}  // namespace
}  // namespace driver_feature::testing
