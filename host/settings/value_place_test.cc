#include "host/settings/value_place.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace driver_feature::host {
namespace {

using enum ValuePlace;
using Texts = std::vector<std::string>;

struct PlaceRow {
  Texts templates;
  ValuePlace place;
};

void expectPlaces(CommandLanguage language, const std::vector<PlaceRow>& rows) {
  for (const PlaceRow& row : rows) {
    const auto value = findValue(language, row.templates);
    ASSERT_TRUE(value) << row.templates.back();
    EXPECT_STREQ(wordsOf(value->place), wordsOf(row.place)) << row.templates.back();
  }
}

TEST(ValuePlaceTest, FindValue_Pjl_DistinguishesStringsLinesAndTheirBeginnings) {
  expectPlaces(CommandLanguage::kPjl, {
                                          {{"%s\r\n"}, kPjlLineStart},
                                          {{"@PJL\r\n%s\r\n"}, kPjlLineStart},
                                          {{"\x1B%%-12345X%s"}, kPjlLineStart},
                                          {{"%%-12345X%s"}, kPjlLine},
                                          {{"@PJL SET A = %s"}, kPjlLine},
                                          {{"@PJL SET A = \"%s\""}, kPjlString},
                                          {{"@PJL SET A = \"x=%-9.9s"}, kPjlString},
                                          {{"@PJL SET A = \"\" %s"}, kPjlLine},
                                          {{"@PJL \"a\" \"%s"}, kPjlString},
                                          {{"\"open\n@PJL %s"}, kPjlLine},
                                      });
}

TEST(ValuePlaceTest, FindValue_PostScript_DistinguishesStringsFromTheRest) {
  expectPlaces(CommandLanguage::kPostScript, {
                                                 {{"%s"}, kPostScriptToken},
                                                 {{"/%s def"}, kPostScriptToken},
                                                 {{"<< /A %s >>"}, kPostScriptToken},
                                                 {{"{ %s }"}, kPostScriptToken},
                                                 {{"(%s)"}, kPostScriptString},
                                                 {{"(a(b) %s)"}, kPostScriptString},
                                                 {{"(a(b %s))"}, kPostScriptString},
                                                 {{"(a) %s"}, kPostScriptToken},
                                                 {{"(\\) %s)"}, kPostScriptString},
                                                 {{"(\\\\) %s"}, kPostScriptToken},
                                                 {{"(\\( a) %s"}, kPostScriptToken},
                                                 {{"(%% %s)"}, kPostScriptString},
                                                 {{"(<) %s"}, kPostScriptToken},
                                             });
}

TEST(ValuePlaceTest, FindValue_PostScript_FindsEncodedStringsAndComments) {
  expectPlaces(CommandLanguage::kPostScript, {
                                                 {{"<%s>"}, kPostScriptHexString},
                                                 {{"<4a%s>"}, kPostScriptHexString},
                                                 {{"<4a> %s"}, kPostScriptToken},
                                                 {{"<4a<<%s"}, kPostScriptHexString},
                                                 {{"<</A <%s>>>"}, kPostScriptHexString},
                                                 {{"<> %s"}, kPostScriptToken},
                                                 {{"<~%s~>"}, kPostScriptBase85String},
                                                 {{"<~a>~b%s"}, kPostScriptBase85String},
                                                 {{"<~a~> %s"}, kPostScriptToken},
                                                 {{"<a~%s"}, kPostScriptHexString},
                                                 {{"%%%%Title: %s\n"}, kPostScriptComment},
                                                 {{"%% (\n%s"}, kPostScriptToken},
                                                 {{"%%\r%s"}, kPostScriptToken},
                                                 {{"%%\f%s"}, kPostScriptToken},
                                             });
}

TEST(ValuePlaceTest, FindValue_GroupsAround_AreReadBeforeTheFeature) {
  expectPlaces(CommandLanguage::kPostScript, {
                                                 {{"(%s)", "%s"}, kPostScriptString},
                                                 {{"(%s)", ") %s"}, kPostScriptToken},
                                                 {{"<< %s >>", "%s", "<%s>"}, kPostScriptHexString},
                                             });
  expectPlaces(CommandLanguage::kPjl,
               {{{"%s", "%s"}, kPjlLineStart}, {{"\"%s", "A%s"}, kPjlString}});
}

TEST(ValuePlaceTest, FindValue_NoConversion_ReturnsNothing) {
  for (const Texts& templates : {Texts{""}, Texts{"100%%"}, Texts{"lone %"}, Texts{"%5000s"},
                                 Texts{"", "%s"}, Texts{"%s", "none"}}) {
    EXPECT_FALSE(findValue(CommandLanguage::kPjl, templates)) << templates.back();
    EXPECT_FALSE(findValue(CommandLanguage::kPostScript, templates)) << templates.back();
  }
}

TEST(ValuePlaceTest, FindValue_LetterOfTheConversion_IsThatOfTheLastTemplate) {
  EXPECT_EQ(findValue(CommandLanguage::kPjl, {"%s", "%%d %-3c"})->letter, 'c');
  EXPECT_EQ(findValue(CommandLanguage::kPjl, {"%s"})->letter, 's');
}

// All bytes that are not allowed as a value of one byte.
std::string unsafeBytes(ValuePlace place) {
  std::string bytes;
  for (int code = 0; code < 256; ++code) {
    const char byte = static_cast<char>(code);
    const auto found = findUnsafeByte(place, {&byte, 1});
    if (!found) continue;
    EXPECT_EQ(*found, code);
    bytes.push_back(byte);
  }
  return bytes;
}

std::string range(int first, int last) {
  std::string bytes;
  for (int code = first; code <= last; ++code) bytes.push_back(static_cast<char>(code));
  return bytes;
}

TEST(ValuePlaceTest, FindUnsafeByte_EveryByte_IsJudgedByThePlace) {
  const std::string control = range(0, 31);
  EXPECT_EQ(unsafeBytes(kPjlLineStart), control + "@\x7F");
  EXPECT_EQ(unsafeBytes(kPjlLine), control + "\x7F");
  EXPECT_EQ(unsafeBytes(kPjlString), control + "\"\x7F");
  EXPECT_EQ(unsafeBytes(kPostScriptToken), control + " %()/<>[]{}" + range(0x7F, 0xFF));
  EXPECT_EQ(unsafeBytes(kPostScriptString), control + "()\\\x7F");
  EXPECT_EQ(unsafeBytes(kPostScriptHexString),
            range(0, '/') + range(':', '@') + range('G', '`') + range('g', 255));
  EXPECT_EQ(unsafeBytes(kPostScriptBase85String),
            range(0, ' ') + range('v', 'y') + range('{', 255));
  EXPECT_EQ(unsafeBytes(kPostScriptComment), control + "\x7F");
}

TEST(ValuePlaceTest, FindUnsafeByte_LongerValues_ReturnsTheFirst) {
  EXPECT_EQ(findUnsafeByte(kPjlString, "a\"b\n"), '"');
  EXPECT_EQ(findUnsafeByte(kPjlString, "a\nb\""), '\n');
  EXPECT_EQ(findUnsafeByte(kPjlLineStart, "a@PJL"), std::nullopt);
  EXPECT_EQ(findUnsafeByte(kPostScriptString, "gr\xC3\xBC\xC3\x9F"), std::nullopt);
  EXPECT_EQ(findUnsafeByte(kPostScriptString, ""), std::nullopt);
}

}  // namespace
}  // namespace driver_feature::host
