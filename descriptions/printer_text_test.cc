#include "descriptions/printer_text.h"

#include <gtest/gtest.h>

namespace driver_feature {

namespace {

TEST(PrinterTextTest, PjlString_ReplacesWhatPjlCannotHold) {
  EXPECT_EQ(pjlString(""), "\"\"");
  EXPECT_EQ(pjlString("Plain text, 100%~ "), "\"Plain text, 100%~ \"");
  EXPECT_EQ(pjlString("say \"yes\""), "\"say 'yes'\"");
  EXPECT_EQ(pjlString("a\r\n@PJL\x1B\x7F\xC3\xBC"), "\"a??@PJL????\"");
  EXPECT_EQ(pjlString(std::string("a\0b", 3)), "\"a?b\"");
}

TEST(PrinterTextTest, PostScriptString_EscapesWhatWouldEndIt) {
  EXPECT_EQ(postScriptString(""), "()");
  EXPECT_EQ(postScriptString("Plain text, 100%~ "), "(Plain text, 100%~ )");
  EXPECT_EQ(postScriptString("a(b)c\\d"), "(a\\(b\\)c\\\\d)");
  EXPECT_EQ(postScriptString("\n\x1B\x7F\xFC"), "(\\012\\033\\177\\374)");
  EXPECT_EQ(postScriptString(std::string("a\0b", 3)), "(a\\000b)");
}

TEST(PrinterTextTest, PjlSet_IsOneLine) {
  EXPECT_EQ(pjlSet("COPIES", "2"), "@PJL SET COPIES = 2\r\n");
}

TEST(PrinterTextTest, DecimalText_HasTwoDecimals) {
  EXPECT_EQ(decimalText(0), "0.00");
  EXPECT_EQ(decimalText(-30.5F), "-30.50");
  EXPECT_EQ(decimalText(12345.678F), "12345.68");
}

TEST(PrinterTextTest, PointsOf_RoundsToTheNearest) {
  EXPECT_EQ(pointsOf(0), 0);
  EXPECT_EQ(pointsOf(25.4F), 72);
  EXPECT_EQ(pointsOf(210), 595);  // 595.28
  EXPECT_EQ(pointsOf(297), 842);  // 841.89
}

}  // namespace

}  // namespace driver_feature
