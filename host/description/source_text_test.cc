#include "host/description/source_text.h"

#include <gtest/gtest.h>

#include <string>

namespace driver_feature::host {
namespace {

TEST(SourceTextTest, Line_EachLine_IsWithoutItsEnd) {
  const std::string text = "one\r\n\nthree";
  const SourceText source(text);
  EXPECT_EQ(source.line(1), "one");
  EXPECT_EQ(source.line(2), "");
  EXPECT_EQ(source.line(3), "three");
  EXPECT_EQ(source.line(0), std::nullopt);
  EXPECT_EQ(source.line(4), std::nullopt);
}

TEST(SourceTextTest, OffsetOf_AnyOrder_CountsCharacters) {
  const std::string text =
      "a\n\xC3\xA4\xE2\x82\xAC"
      "b\n";
  const SourceText source(text);
  EXPECT_EQ(source.offsetOf({2, 4}), 8U);  // The end of the line.
  EXPECT_EQ(source.offsetOf({2, 2}), 4U);
  EXPECT_EQ(source.offsetOf({2, 3}), 7U);
  EXPECT_EQ(source.offsetOf({2, 1}), 2U);
  EXPECT_EQ(source.offsetOf({1, 2}), 1U);
  EXPECT_EQ(source.offsetOf({2, 5}), std::nullopt);
  EXPECT_EQ(source.offsetOf({2, 0}), std::nullopt);
  EXPECT_EQ(source.offsetOf({2, 3}), 7U);
}

}  // namespace
}  // namespace driver_feature::host
