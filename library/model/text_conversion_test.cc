#include "model/text_conversion.h"

#include <cmath>
#include <limits>
#include <string>

#include <gtest/gtest.h>

namespace driver_feature {
namespace {

struct IntRow {
  const char* text;
  int value;
};

TEST(TextConversionTest, ToInt_AnyText_ReadsTheNumberAtItsStart) {
  constexpr int kHighest = std::numeric_limits<int>::max();
  constexpr int kLowest = std::numeric_limits<int>::min();
  constexpr IntRow kRows[] = {
      {"12", 12},
      {"12abc", 12},
      {"  \t\n\v\f\r-7", -7},
      {"+5", 5},
      {"", 0},
      {"abc", 0},
      {"- 5", 0},
      {"--5", 0},
      {"+-5", 0},
      {"3.9", 3},
      {"0x10", 0},
      {"007", 7},
      {"2147483647", kHighest},
      {"2147483648", kHighest},
      {"99999999999999999999", kHighest},
      {"-2147483648", kLowest},
      {"-2147483649", kLowest},
      {"-99999999999999999999", kLowest},
  };
  for (const IntRow& row : kRows) EXPECT_EQ(toInt(row.text), row.value) << '"' << row.text << '"';
}

struct FloatRow {
  const char* text;
  float value;
};

TEST(TextConversionTest, ToFloat_AnyText_ReadsTheNumberAtItsStart) {
  constexpr float kInfinity = std::numeric_limits<float>::infinity();
  const std::string manyZeros(400, '0');
  const std::string tiny = "0." + manyZeros + "1e10";
  const std::string huge = "1" + manyZeros + "e-10";
  const std::string balanced = "1" + manyZeros + "e-400";
  // A hexadecimal digit counts as four binary ones against the exponent.
  const std::string hexHuge = "0x1" + std::string(999, '0') + "p-2000";
  const std::string hexTiny = "0x1" + std::string(1999, '0') + "p-9500";
  const std::string tinyAfterAll = "1" + manyZeros + "e-900";
  const FloatRow rows[] = {
      {"2.5", 2.5F},
      {"2.5abc", 2.5F},
      {" \t+0.1", 0.1F},
      {"-1e3", -1000.0F},
      {"1e", 1.0F},
      {".5", 0.5F},
      {"5.", 5.0F},
      {"", 0.0F},
      {"x", 0.0F},
      {"- 5", 0.0F},
      {"--5", 0.0F},
      {"-+5", 0.0F},
      {"++5", 0.0F},
      {"2,5", 2.0F},
      {"0x10", 16.0F},
      {"0x1.8p1", 3.0F},
      {"-0X.8", -0.5F},
      {"0xg", 0.0F},
      {"0x", 0.0F},
      {"0x8", 8.0F},
      {"1x10", 1.0F},
      {"0x.", 0.0F},
      {"0x.g", 0.0F},
      {"inf", kInfinity},
      {"-Infinity", -kInfinity},
      {"1e39", kInfinity},
      {"-1e39", -kInfinity},
      {"1e999", kInfinity},
      {"-1e999", -kInfinity},
      {"1e99999999999999999999", kInfinity},
      {"1e-99999999999999999999", 0.0F},
      {"1e-999", 0.0F},
      {"1E999", kInfinity},
      {"1E-999", 0.0F},
      {"0e999", 0.0F},
      {"0x0p99999999999999999999", 0.0F},
      {"0x1p9999", kInfinity},
      {"0x1p-9999", 0.0F},
      {"0x1P9999", kInfinity},
      {"0x1P-9999", 0.0F},
      {tiny.c_str(), 0.0F},
      {huge.c_str(), kInfinity},
      {balanced.c_str(), 1.0F},
      {hexHuge.c_str(), kInfinity},
      {hexTiny.c_str(), 0.0F},
      {tinyAfterAll.c_str(), 0.0F},
  };
  for (const FloatRow& row : rows)
    EXPECT_EQ(toFloat(row.text), row.value) << '"' << row.text << '"';
  EXPECT_TRUE(std::isnan(toFloat("nan")));
}

TEST(TextConversionTest, ToFloat_SignWithoutANumber_IsPlusZero) {
  for (const char* text : {"-", "-x", "- 5", "--5", "-+5", " -", "-."}) {
    EXPECT_EQ(toFloat(text), 0.0F) << text;
    EXPECT_FALSE(std::signbit(toFloat(text))) << text;
  }
  for (const char* text : {"-0", "-0x", "-0xg", "-0x.", "-0x.g", "-.0", "-1e-999"}) {
    EXPECT_TRUE(std::signbit(toFloat(text))) << text;
  }
}

TEST(TextConversionTest, ToFixedText_AnyValue_HasSixDecimals) {
  EXPECT_EQ(toFixedText(2.5), "2.500000");
  EXPECT_EQ(toFixedText(static_cast<double>(0.1F)), "0.100000");
  EXPECT_EQ(toFixedText(-0.0000004), "-0.000000");
  EXPECT_EQ(toFixedText(16777216.0), "16777216.000000");
  EXPECT_EQ(toFixedText(std::numeric_limits<double>::max()).size(), 309U + 7U);
  EXPECT_EQ(toFixedText(std::numeric_limits<double>::infinity()), "inf");
}

TEST(TextConversionTest, ToDecimalText_Limits_AreWritten) {
  EXPECT_EQ(toDecimalText(0), "0");
  EXPECT_EQ(toDecimalText(-3), "-3");
  EXPECT_EQ(toDecimalText(std::numeric_limits<int>::min()), "-2147483648");
  EXPECT_EQ(toDecimalText(std::numeric_limits<int>::max()), "2147483647");
}

}  // namespace
}  // namespace driver_feature
