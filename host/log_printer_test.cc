#include "host/log_printer.h"

#include <gtest/gtest.h>

#include <string>

#include "Log.h"

namespace driver_feature {

namespace {

constexpr const char* kNoLoadRoutine =
    "FeatureXMLTagHandler() - No Custom Load VORN Callback Handler element";
constexpr const char* kNullLoadRoutine =
    "FeatureXMLTagHandler() - Null Custom Load VORN Callback Handler pointer";

void logEverything() {
  for (const int level : {1, 2, 3, 4}) LogMessage(level, "DriverFeature", "line");
  LogMessage(2, "DriverFeature", kNoLoadRoutine);
  LogMessage(1, "DriverFeature", kNullLoadRoutine);
  LogMessage(1, "DriverFeature", "FeatureXMLTagHandler() - Invalid element tag \"x\".");
}

std::string printedWith(LogDetail detail) {
  testing::internal::CaptureStderr();
  {
    const LogPrinter printer(detail);
    logEverything();
  }
  return testing::internal::GetCapturedStderr();
}

TEST(LogPrinterTest, Handle_Errors_PrintsLevelOneOnly) {
  EXPECT_EQ(printedWith(LogDetail::kErrors),
            "driver-feature: error: line\n"
            "driver-feature: error: FeatureXMLTagHandler() - Null Custom Load VORN Callback "
            "Handler pointer\n");
}

TEST(LogPrinterTest, Handle_Usual_LeavesOutTheNoticeOfAnOptionalSetting) {
  EXPECT_EQ(printedWith(LogDetail::kUsual),
            "driver-feature: error: line\n"
            "driver-feature: misuse: line\n"
            "driver-feature: error: FeatureXMLTagHandler() - Null Custom Load VORN Callback "
            "Handler pointer\n");
}

TEST(LogPrinterTest, Handle_All_LeavesOutOnlyWhatTheLibraryWritesItself) {
  EXPECT_EQ(printedWith(LogDetail::kAll),
            "driver-feature: error: line\n"
            "driver-feature: misuse: line\n"
            "driver-feature: warning: line\n"
            "driver-feature: info: line\n"
            "driver-feature: misuse: FeatureXMLTagHandler() - No Custom Load VORN Callback "
            "Handler element\n"
            "driver-feature: error: FeatureXMLTagHandler() - Null Custom Load VORN Callback "
            "Handler pointer\n");
}

TEST(LogPrinterTest, Handle_LineEndAndNulInTheText_StayOnOneLine) {
  testing::internal::CaptureStderr();
  {
    const LogPrinter printer(LogDetail::kUsual);
    LogMessageBuffer = std::string("a\nb\0c", 5);
    LogStringMessage(2, "DriverFeature", LogMessageBuffer);
  }
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "driver-feature: misuse: a\\nb\\x00c\n");
}

TEST(LogPrinterTest, Destructor_RestoresThePlatformsHandler) {
  { const LogPrinter printer(LogDetail::kAll); }
  testing::internal::CaptureStderr();
  LogMessage(3, "DriverFeature", "line");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "3 DriverFeature: line\n");
}

TEST(LogSilenceTest, WhileItLives_LinesAreDropped) {
  testing::internal::CaptureStderr();
  {
    const LogSilence silence;
    logEverything();
  }
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

}  // namespace

}  // namespace driver_feature
