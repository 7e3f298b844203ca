#include "programs/driver_feature/shell/wide_text.h"

#include <gtest/gtest.h>

#include <clocale>

namespace driver_feature::cli {

namespace {

// The locale of a test, and of the ones after it the one before.
class EncodingTest : public testing::Test {
 protected:
  void TearDown() override { std::setlocale(LC_CTYPE, before_.c_str()); }
  const std::string before_ = std::setlocale(LC_CTYPE, nullptr);
};

TEST_F(EncodingTest, Utf8_Text_IsOneElementACharacter) {
  ASSERT_NE(std::setlocale(LC_CTYPE, "C.UTF-8"), nullptr);
  EXPECT_EQ(toWide("a\xC3\xA4\xE2\x82\xAC"), L"a\u00E4\u20AC");
  EXPECT_EQ(toBytes(L"a\u00E4\u20AC"), "a\xC3\xA4\xE2\x82\xAC");
  EXPECT_EQ(toWide(std::string("\0b", 2)), std::wstring(L"\0b", 2));
}

TEST_F(EncodingTest, Utf8_BytesThatAreNotACharacter_ComeBack) {
  ASSERT_NE(std::setlocale(LC_CTYPE, "C.UTF-8"), nullptr);
  for (const std::string bytes : {"\xE4x", "x\xE2\x82", "\xFF\xC3\xA4\x80"}) {
    EXPECT_EQ(toBytes(toWide(bytes)), bytes);
  }
  EXPECT_EQ(toWide("\xE4x").size(), 2U);
}

TEST_F(EncodingTest, C_BytesThatAreNotACharacter_ComeBack) {
  ASSERT_NE(std::setlocale(LC_CTYPE, "C"), nullptr);
  EXPECT_EQ(toWide("\xC3\xA4").size(), 2U);
  EXPECT_EQ(toBytes(toWide("a\xC3\xA4\xFF")), "a\xC3\xA4\xFF");
}

TEST_F(EncodingTest, TakeCharacter_BeginOfOne_WaitsForTheRest) {
  ASSERT_NE(std::setlocale(LC_CTYPE, "C.UTF-8"), nullptr);
  std::string bytes = "\xE2\x82";
  EXPECT_EQ(takeCharacter(bytes), std::nullopt);
  EXPECT_EQ(bytes, "\xE2\x82");
  bytes += "\xACz";
  EXPECT_EQ(takeCharacter(bytes), L'\u20AC');
  EXPECT_EQ(bytes, "z");
}

}  // namespace

}  // namespace driver_feature::cli
