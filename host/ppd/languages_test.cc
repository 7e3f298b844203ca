#include "host/ppd/languages.h"

#include <gtest/gtest.h>

namespace driver_feature::ppd {

namespace {

TEST(LanguagesTest, LanguageVersions_HaveTags) {
  EXPECT_EQ(tagOfLanguageVersion("English"), "en");
  EXPECT_EQ(tagOfLanguageVersion("GERMAN"), "de");
  EXPECT_EQ(tagOfLanguageVersion("Simplified Chinese"), "zh-CN");
  EXPECT_EQ(tagOfLanguageVersion("Klingon"), "en");
  EXPECT_EQ(languageVersionOf("de"), "German");
  EXPECT_EQ(languageVersionOf("zh-tw"), "Chinese");
  EXPECT_EQ(languageVersionOf("tlh"), "");
}

TEST(LanguagesTest, Locales_AreTagsWithALine) {
  EXPECT_EQ(localeOfTag("de"), "de");
  EXPECT_EQ(localeOfTag("zh-tw"), "zh_TW");
  for (const char* tag : {"", "d", "deu", "zh-Hant", "zh_TW", "DE", "de-A1"}) {
    EXPECT_EQ(localeOfTag(tag), "") << tag;
  }
  EXPECT_EQ(tagOfLocale("zh_cn"), "zh-CN");
  EXPECT_EQ(tagOfLocale("pt"), "pt");
  for (const char* locale : {"", "de.", "Kw", "zh-CN", "zh_C", "12"}) {
    EXPECT_EQ(tagOfLocale(locale), "") << locale;
  }
}

}  // namespace

}  // namespace driver_feature::ppd
