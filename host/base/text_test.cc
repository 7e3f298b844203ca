#include "host/base/text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace driver_feature::host {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(TextTest, SplitCharacters_EmptyText_ReturnsNothing) {
  EXPECT_THAT(splitCharacters(""), IsEmpty());
}

TEST(TextTest, SplitCharacters_OneToFourBytes_KeepsEachCharacterWhole) {
  EXPECT_THAT(splitCharacters("a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80z"),
              ElementsAre("a", "\xC3\xA9", "\xE2\x82\xAC", "\xF0\x9F\x98\x80", "z"));
}

TEST(TextTest, SplitCharacters_InvalidBytes_EachCountsAsItself) {
  // A lone continuation, Latin-1, a cut character, an overlong slash, a
  // surrogate, and a code point beyond the last one.
  EXPECT_THAT(splitCharacters("\x80z"), ElementsAre("\x80", "z"));
  EXPECT_THAT(splitCharacters("\xE9z"), ElementsAre("\xE9", "z"));
  EXPECT_THAT(splitCharacters("\xE2\x82"), ElementsAre("\xE2", "\x82"));
  EXPECT_THAT(splitCharacters("\xC0\xAF"), ElementsAre("\xC0", "\xAF"));
  EXPECT_THAT(splitCharacters("\xE0\x80\xAF"), ElementsAre("\xE0", "\x80", "\xAF"));
  EXPECT_THAT(splitCharacters("\xED\xA0\x80"), ElementsAre("\xED", "\xA0", "\x80"));
  EXPECT_THAT(splitCharacters("\xF4\x90\x80\x80"), ElementsAre("\xF4", "\x90", "\x80", "\x80"));
}

TEST(TextTest, DisplayWidth_WideAndCombining_CountsColumns) {
  EXPECT_EQ(displayWidth(""), 0U);
  EXPECT_EQ(displayWidth("A4"), 2U);
  EXPECT_EQ(displayWidth("gr\xC3\xBC\xC3\x9F"), 4U);
  EXPECT_EQ(displayWidth("e\xCC\x81"), 1U);            // e, combining acute accent.
  EXPECT_EQ(displayWidth("\xE7\xB4\x99"), 2U);         // Paper, in Japanese.
  EXPECT_EQ(displayWidth("\xF0\x9F\x96\xA8 ok"), 5U);  // A printer emoji.
}

TEST(TextTest, Printable_ControlCharacters_AreSpelledOut) {
  using namespace std::string_literals;
  EXPECT_EQ(printable("a\nb\tc\rd"), "a\\nb\\tc\\rd");
  EXPECT_EQ(printable("\0\x1B[31m\x7F"s), "\\x00\\x1b[31m\\x7f");
  EXPECT_EQ(printable("gr\xC3\xBC\xC3\x9F \\n"), "gr\xC3\xBC\xC3\x9F \\n");
}

TEST(TextTest, SpellOutInvisible_WhatCannotBeSeen_IsNamed) {
  EXPECT_EQ(spellOutInvisible("a\xEF\x9C\x9B%"), "aU+F71B%");  // Private.
  EXPECT_EQ(spellOutInvisible("A\xC2\xA0"
                              "4"),
            "AU+00A04");  // A blank that does not break.
  EXPECT_EQ(spellOutInvisible("\xE2\x80\x8B\xE2\x80\xAE"), "U+200BU+202E");
  EXPECT_EQ(spellOutInvisible("\xF4\x8F\xBF\xBF"), "U+10FFFF");
  EXPECT_EQ(spellOutInvisible("\xC2\x80\xC2\x9F"), "U+0080U+009F");
}

TEST(TextTest, SpellOutInvisible_WhatIsSeenOrAscii_StaysAsItIs) {
  for (const std::string text : {"a b\n\x1B\x7F", "gr\xC3\xBC\xC3\x9F", "\xE7\xB4\x99\xE3\x80\x80",
                                 "\xF0\x9F\x96\xA8", "\xE9\x80", "\xC2\xA1"}) {
    EXPECT_EQ(spellOutInvisible(text), text);
  }
}

TEST(TextTest, Join_NoneOneAndMore_PutsSeparatorBetween) {
  EXPECT_EQ(join({}, ", "), "");
  EXPECT_EQ(join({"A4"}, ", "), "A4");
  EXPECT_EQ(join({"A4", "", "A4"}, ", "), "A4, , A4");
}

TEST(TextTest, Listed_UpToTenNames_AreAllThereAndMoreAreCounted) {
  std::vector<std::string> names = {"a", "b", "c", "d", "e", "f", "g", "h", "i", "j"};
  EXPECT_EQ(listed(names), "a, b, c, d, e, f, g, h, i, j");
  names.insert(names.end(), {"k", "l"});
  EXPECT_EQ(listed(names), "a, b, c, d, e, f, g, h, i, j and 2 more");
  EXPECT_EQ(listed({}), "");
}

TEST(TextTest, EscapedByte_AnyByte_HasTwoSmallDigits) {
  EXPECT_EQ(escapedByte('\0'), "\\x00");
  EXPECT_EQ(escapedByte('\xAF'), "\\xaf");
}

TEST(TextTest, PercentDecoded_CodesAndOtherText_DecodesTheCodesAlone) {
  EXPECT_EQ(percentDecoded("a%20b%c3%BC%41"),
            "a b\xC3\xBC"
            "A");
  EXPECT_EQ(percentDecoded("100%"), "100%");
  EXPECT_EQ(percentDecoded("%4"), "%4");
  EXPECT_EQ(percentDecoded("%4g%-1% 1%%41"), "%4g%-1% 1%A");
  EXPECT_EQ(percentDecoded("a+b"), "a+b");
  EXPECT_EQ(percentDecoded("a+b%2B", PlusSign::kBlank), "a b+");
}

TEST(TextTest, PercentEncoded_AnyByte_HasTwoCapitalDigits) {
  EXPECT_EQ(percentEncoded('\n'), "%0A");
  EXPECT_EQ(percentEncoded('\xAF'), "%AF");
}

TEST(TextTest, Counted_OneNoneAndMore_TakesTheWord) {
  EXPECT_EQ(counted(1, "file"), "1 file");
  EXPECT_EQ(counted(0, "file"), "0 files");
  EXPECT_EQ(counted(1, "part of it", "parts of it"), "1 part of it");
  EXPECT_EQ(counted(2, "part of it", "parts of it"), "2 parts of it");
}

TEST(TextTest, Trimmed_Blanks_AreTakenFromBothEndsOnly) {
  EXPECT_EQ(trimmed(" \ta b\t ", " \t"), "a b");
  EXPECT_EQ(trimmed("\na\n", " \t"), "\na\n");
  EXPECT_EQ(trimmed(" \t", " \t"), "");
  EXPECT_EQ(trimmed("", " "), "");
}

TEST(TextTest, ToLower_Text_ChangesAsciiOnly) {
  EXPECT_EQ(toLower(std::string("AZaz[@1\xC4")), "azaz[@1\xC4");
  EXPECT_EQ(inQuotes("a\"b"), "\"a\"b\"");
}

}  // namespace

}  // namespace driver_feature::host
