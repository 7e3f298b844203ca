#include "host/description/texts.h"

#include <gtest/gtest.h>

namespace driver_feature::host {

namespace {

const std::vector<TextsOfLanguage> kLanguages = {
    {"en", {{"A", "a in English"}, {"B", "b in English"}, {"C", "c in English"}}},
    {"de", {{"A", "a auf Deutsch"}, {"B", "b auf Deutsch"}, {"C", ""}}},
    {"de-AT", {{"A", "a in \xC3\x96sterreich"}}},
    {"de", {{"D", "d auf Deutsch"}}},
};

struct LookUpRow {
  const char* language;
  const char* key;
  const char* text;
};

constexpr LookUpRow kLookUpRows[] = {
    {"", "A", "a in English"},
    {"en", "A", "a in English"},
    {"de", "A", "a auf Deutsch"},
    {"DE_at", "A", "a in \xC3\x96sterreich"},
    {"de_AT.UTF-8", "A", "a in \xC3\x96sterreich"},
    {"de-AT", "B", "b auf Deutsch"},
    {"de-CH", "A", "a auf Deutsch"},
    {"de", "C", "c in English"},  // An empty text says nothing.
    {"de", "D", "d auf Deutsch"},
    {"fr", "A", "a in English"},
    {"fr", "D", "otherwise"},
    {"en", "E", "otherwise"},
};

TEST(TextLookUpTest, TextOf_Rows_LanguageThenWithoutRegionThenTheFirst) {
  for (const LookUpRow& row : kLookUpRows) {
    EXPECT_EQ(TextLookUp(kLanguages, row.language).textOf(row.key, "otherwise"), row.text)
        << row.language << " " << row.key;
  }
}

TEST(TextLookUpTest, TextOf_NoLanguages_IsTheOtherText) {
  EXPECT_EQ(TextLookUp({}, "de").textOf("A", "otherwise"), "otherwise");
}

TEST(TextKeysTest, Keys_OfEachKind_HaveTheirForm) {
  EXPECT_EQ(optionKey("Duplex", "None"), "Duplex.None");
  EXPECT_EQ(ruleKey("film"), "rule:film");
  EXPECT_EQ(presetKey("draft"), "preset:draft");
}

}  // namespace

}  // namespace driver_feature::host
