#include "Log.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "platform/recorded_log.h"

namespace {

using driver_feature::testing::RecordedLog;
using namespace std::string_literals;
using ::testing::ElementsAre;
using ::testing::internal::CaptureStderr;
using ::testing::internal::GetCapturedStderr;

UnicodeString textOf(const std::string& text) {
  UnicodeString result;
  result = text;
  return result;
}

TEST(LogTest, LogMessage_DefaultHandler_WritesALineToStandardError) {
  CaptureStderr();
  LogMessage(2, "DriverFeature", "Gone.");
  LogMessage(-7, "", "");
  EXPECT_EQ(GetCapturedStderr(), "2 DriverFeature: Gone.\n-7 : \n");
}

TEST(LogTest, LogStringMessage_DefaultHandler_WritesEveryByte) {
  CaptureStderr();
  LogStringMessage(3, "DriverFeature", textOf("a\0b \xC3\xA4"s));
  EXPECT_EQ(GetCapturedStderr(), "3 DriverFeature: a\0b \xC3\xA4\n"s);
}

TEST(LogTest, LogMessage_NullCategoryOrText_CountsAsEmpty) {
  CaptureStderr();
  LogMessage(1, nullptr, "text");
  LogMessage(1, "category", nullptr);
  LogMessage(1, nullptr, nullptr);
  LogStringMessage(1, nullptr, textOf("text"));
  EXPECT_EQ(GetCapturedStderr(), "1 : text\n1 category: \n1 : \n1 : text\n");
}

TEST(LogTest, SetLogHandler_Handler_TakesEveryLineInsteadOfStandardError) {
  CaptureStderr();
  RecordedLog log;
  LogMessage(4, "one", "a");
  LogStringMessage(1, "two", textOf("b\0c"s));
  LogMessage(2, nullptr, nullptr);
  EXPECT_EQ(GetCapturedStderr(), "");
  EXPECT_THAT(log.take(), ElementsAre("4 one: a", "1 two: b\0c"s, "2 : "));
}

struct Arrival {
  std::string text;
  char after = 'x';
};

void keepArrival(int /*level*/, const char* /*category*/, const char* text, std::size_t length,
                 void* context) {
  *static_cast<Arrival*>(context) = {std::string(text, length), text[length]};
}

TEST(LogTest, SetLogHandler_Handler_GetsATerminatedText) {
  Arrival arrival;
  SetLogHandler(keepArrival, &arrival);
  LogMessage(1, "category", "fixed");
  EXPECT_EQ(arrival.text, "fixed");
  EXPECT_EQ(arrival.after, '\0');
  LogStringMessage(1, "category", textOf("built\0up"s));
  EXPECT_EQ(arrival.text, "built\0up"s);
  EXPECT_EQ(arrival.after, '\0');
  SetLogHandler(nullptr, nullptr);
}

TEST(LogTest, SetLogHandler_Null_RestoresTheDefault) {
  Arrival arrival;
  SetLogHandler(keepArrival, &arrival);
  SetLogHandler(nullptr, &arrival);
  CaptureStderr();
  LogMessage(1, "category", "text");
  EXPECT_EQ(GetCapturedStderr(), "1 category: text\n");
  EXPECT_EQ(arrival.text, "");
}

TEST(LogTest, LogMessageBuffer_Logged_KeepsItsText) {
  RecordedLog log;
  LogMessageBuffer = "composed";
  LogStringMessage(3, "DriverFeature", LogMessageBuffer);
  LogMessage(3, "DriverFeature", "fixed");
  EXPECT_EQ(LogMessageBuffer.utf8(), "composed");
  EXPECT_THAT(log.take(), ElementsAre("3 DriverFeature: composed", "3 DriverFeature: fixed"));
}

TEST(UnicodeStringTest, New_IsEmpty) {
  EXPECT_EQ(UnicodeString().utf8(), "");
}

TEST(UnicodeStringTest, AssignText_KeepsEveryByte) {
  UnicodeString text;
  text = "a\0b\xFF"s;
  EXPECT_EQ(text.utf8(), "a\0b\xFF"s);
  text = std::string();
  EXPECT_EQ(text.utf8(), "");
}

TEST(UnicodeStringTest, AssignCharacters_ReadsToTheirEnd) {
  UnicodeString text;
  text = "before";
  EXPECT_EQ(text.utf8(), "before");
  text = static_cast<const char*>(nullptr);
  EXPECT_EQ(text.utf8(), "");
}

TEST(UnicodeStringTest, AssignItsOwnBytes_KeepsThem) {
  UnicodeString text;
  text = "long enough to be on the heap, not in place";
  text = text.utf8();
  EXPECT_EQ(text.utf8(), "long enough to be on the heap, not in place");
}

}  // namespace
