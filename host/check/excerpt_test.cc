#include "host/check/excerpt.h"

#include <gtest/gtest.h>

#include <string>

namespace driver_feature::check {
namespace {

std::string excerpt(const std::string& text, host::Position position) {
  return excerptOf(host::SourceText(text), position, "^");
}

TEST(ExcerptTest, Excerpt_Place_HasACaretUnderIt) {
  EXPECT_EQ(excerpt("<a>\n  <b x='1'/>\n", {2, 6}),
            "    2 |   <b x='1'/>\n"
            "      |      ^\n");
  EXPECT_EQ(excerpt("<a>", {1, 1}), "    1 | <a>\n      | ^\n");
  EXPECT_EQ(excerpt("<a>", {1, 9}), "    1 | <a>\n      |    ^\n");
}

TEST(ExcerptTest, Excerpt_UnusualCharacters_KeepTheCaretInPlace) {
  // Two columns for a wide one, none for an accent of its own.
  EXPECT_EQ(excerpt("\t\xE7\xB4\x99"
                    "e\xCC\x81\x01<b",
                    {1, 6}),
            "    1 |  \xE7\xB4\x99"
            "e\xCC\x81?<b\n"
            "      |      ^\n");
  EXPECT_EQ(excerpt("<b\r\n", {1, 2}), "    1 | <b\n      |  ^\n");
}

TEST(ExcerptTest, Excerpt_LongLine_IsCutAroundThePlace) {
  const std::string before(200, 'a');
  const std::string after(200, 'c');
  EXPECT_EQ(excerpt(before + "b" + after, {1, 201}), "    1 | ..." + before.substr(0, 64) + "b" +
                                                         after.substr(0, 31) + "...\n" +
                                                         "      | " + std::string(67, ' ') + "^\n");
  EXPECT_EQ(excerpt("b" + after, {1, 1}), "    1 | b" + after.substr(0, 95) + "...\n      | ^\n");
  EXPECT_EQ(excerpt(before + "b", {1, 201}),
            "    1 | ..." + before.substr(0, 95) + "b\n      | " + std::string(98, ' ') + "^\n");
  EXPECT_EQ(excerpt(std::string(95, 'a') + "b", {1, 96}),
            "    1 | " + std::string(95, 'a') + "b\n      | " + std::string(95, ' ') + "^\n");
}

TEST(ExcerptTest, Excerpt_NoSuchLine_IsEmpty) {
  EXPECT_EQ(excerpt("<a>", {2, 1}), "");
  EXPECT_EQ(excerpt("<a>", {0, 0}), "");
}

}  // namespace
}  // namespace driver_feature::check
