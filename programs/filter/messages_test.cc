#include "programs/filter/messages.h"

#include <gtest/gtest.h>

#include <string>

namespace driver_feature::filter {
namespace {

std::string written(Message kind, const std::string& text) {
  testing::internal::CaptureStderr();
  writeMessage(kind, text);
  return testing::internal::GetCapturedStderr();
}

TEST(Messages, Text_IsOneLineAfterItsWord) {
  EXPECT_EQ(written(Message::kError, "a\nPAGE: 1 1"), "ERROR: a\\nPAGE: 1 1\n");
  EXPECT_EQ(written(Message::kWarning, ""), "WARNING: \n");
  EXPECT_EQ(written(Message::kDebug, "\xC3\xA4"), "DEBUG: \xC3\xA4\n");
}

// The scheduler would take the bytes after the 2047th for a message.
TEST(Messages, LongText_IsCut) {
  EXPECT_EQ(written(Message::kError, std::string(1500, 'x')),
            "ERROR: " + std::string(1500, 'x') + "\n");
  EXPECT_EQ(written(Message::kError, std::string(2040, 'x') + "STATE: paused"),
            "ERROR: " + std::string(1500, 'x') + " ...\n");
  // A character of three bytes is not cut.
  for (const std::size_t before : {1498U, 1499U}) {
    EXPECT_EQ(written(Message::kDebug, std::string(before, 'x') + "\xE2\x82\xAC and more"),
              "DEBUG: " + std::string(before, 'x') + " ...\n");
  }
  EXPECT_EQ(written(Message::kDebug, std::string(1497, 'x') + "\xE2\x82\xAC and more"),
            "DEBUG: " + std::string(1497, 'x') + "\xE2\x82\xAC ...\n");
}

TEST(Messages, Page_HasItsNumberAndCopies) {
  testing::internal::CaptureStderr();
  writePageMessage(3, 2);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "PAGE: 3 2\n");
}

}  // namespace
}  // namespace driver_feature::filter
