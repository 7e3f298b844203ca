#include "Text.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <string>

namespace {

struct NumberRow {
  int value;
  int radix;
  const char* text;
};

constexpr NumberRow kNumbers[] = {
    {0, 10, "0"},
    {7, 10, "7"},
    {-7, 10, "-7"},
    {INT_MAX, 10, "2147483647"},
    {INT_MIN, 10, "-2147483648"},
    {255, 16, "ff"},
    {-255, 16, "-ff"},
    {8, 8, "10"},
    {5, 2, "101"},
    {INT_MIN, 2, "-10000000000000000000000000000000"},
    {35, 36, "z"},
    {36, 36, "10"},
    {7, 1, ""},
    {7, 0, ""},
    {7, -10, ""},
    {7, 37, ""},
};

TEST(ItoaTest, Itoa_ValueAndRadix_WritesATerminatedText) {
  for (const NumberRow& row : kNumbers) {
    char text[40];
    std::memset(text, '#', sizeof text);
    const std::string where = std::to_string(row.value) + " radix " + std::to_string(row.radix);
    EXPECT_EQ(itoa(row.value, text, row.radix), text) << where;
    EXPECT_STREQ(text, row.text) << where;
    for (std::size_t i = std::strlen(row.text) + 1; i < sizeof text; ++i) {
      EXPECT_EQ(text[i], '#') << where << ", byte " << i;
    }
  }
}

}  // namespace
