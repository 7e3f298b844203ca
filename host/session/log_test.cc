#include "host/session/log.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <functional>
#include <string>

#include "Log.h"

#include "host/base/text.h"

namespace driver_feature::host {

namespace {

// As a program reports a line.
void printError(const std::string& line) {
  std::fputs(("driver-feature: " + printable(line) + "\n").c_str(), stderr);
}

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
    const LogPrinter printer(detail, printError);
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
    const LogPrinter printer(LogDetail::kUsual, printError);
    LogMessageBuffer = std::string("a\nb\0c", 5);
    LogStringMessage(2, "DriverFeature", LogMessageBuffer);
  }
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "driver-feature: misuse: a\\nb\\x00c\n");
}

// Standard error after a line of that level has been held, and after `then`.
std::string printedAfterHolding(int level, LogDetail detail,
                                const std::function<void(LogPrinter&)>& then) {
  testing::internal::CaptureStderr();
  {
    LogPrinter printer(detail, printError);
    printer.hold();
    LogMessage(level, "DriverFeature", "held");
    printError("between");
    then(printer);
  }
  return testing::internal::GetCapturedStderr();
}

TEST(LogPrinterTest, Hold_ThenReleased_PrintsLater) {
  EXPECT_EQ(printedAfterHolding(2, LogDetail::kUsual,
                                [](LogPrinter& printer) {
                                  printer.release();
                                  LogMessage(2, "DriverFeature", "next");
                                  printError("last");
                                }),
            "driver-feature: between\n"
            "driver-feature: misuse: held\n"
            "driver-feature: misuse: next\n"
            "driver-feature: last\n");
}

TEST(LogPrinterTest, Hold_ThenDiscarded_PrintsOnlyWhatFollows) {
  EXPECT_EQ(printedAfterHolding(2, LogDetail::kUsual,
                                [](LogPrinter& printer) {
                                  printer.discard();
                                  LogMessage(2, "DriverFeature", "next");
                                  printError("last");
                                }),
            "driver-feature: between\n"
            "driver-feature: misuse: next\n"
            "driver-feature: last\n");
}

TEST(LogPrinterTest, Hold_AnError_ReportsWhatIsHeld) {
  EXPECT_EQ(printedAfterHolding(2, LogDetail::kUsual,
                                [](LogPrinter& printer) {
                                  LogMessage(1, "DriverFeature", "fatal");
                                  printer.discard();
                                }),
            "driver-feature: between\n"
            "driver-feature: misuse: held\n"
            "driver-feature: error: fatal\n");
  EXPECT_EQ(printedAfterHolding(1, LogDetail::kUsual, [](LogPrinter&) {}),
            "driver-feature: error: held\n"
            "driver-feature: between\n");
}

TEST(LogPrinterTest, Hold_EveryLineIsToBeShown_HoldsNothing) {
  EXPECT_EQ(printedAfterHolding(4, LogDetail::kAll, [](LogPrinter&) {}),
            "driver-feature: info: held\n"
            "driver-feature: between\n");
}

TEST(LogPrinterTest, Destructor_HeldLines_ArePrinted) {
  EXPECT_EQ(printedAfterHolding(2, LogDetail::kUsual, [](LogPrinter&) {}),
            "driver-feature: between\n"
            "driver-feature: misuse: held\n");
}

TEST(LogPrinterTest, Destructor_RestoresThePlatformsHandler) {
  { const LogPrinter printer(LogDetail::kAll, printError); }
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

}  // namespace driver_feature::host
