#include "host/base/utf16.h"

#include <gtest/gtest.h>

namespace driver_feature::host {
namespace {

// One byte, two, three and four.
constexpr std::string_view kMixed = "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x96\xA8z";

TEST(Utf16Test, Units_AreThoseOfCharacters) {
  EXPECT_EQ(utf16Units(""), 0U);
  EXPECT_EQ(utf16Units("abc"), 3U);
  EXPECT_EQ(utf16Units(kMixed), 6U);
}

TEST(Utf16Test, BytesBeforeUnits_AreWholeCharacters) {
  const std::size_t bytes[] = {0, 1, 3, 6, 6, 10, 11, 11};
  for (std::size_t units = 0; units < std::size(bytes); ++units) {
    EXPECT_EQ(bytesBeforeUnits(kMixed, units), bytes[units]) << units;
  }
}

}  // namespace
}  // namespace driver_feature::host
