#include "host/ppd/queue/made_texts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace driver_feature::ppd {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class MadeTextsTest : public testing::Test {
 protected:
  // With the texts of one option and its only choice.
  MadeTexts textsOf(const std::vector<host::TextsOfLanguage>& languages) {
    MadeTexts texts(languages, losses_);
    option_ = texts.textFor("Translation Film", "Film");
    choice_ = texts.textFor("Film A", "Film.A");
    return texts;
  }

  std::vector<std::string> losses_;
  std::string option_;
  std::string choice_;
};

TEST_F(MadeTextsTest, None_IsEnglishWithoutTexts) {
  const MadeTexts texts = textsOf({});
  EXPECT_EQ(option_, "");
  EXPECT_EQ(texts.languageLines(), "*LanguageVersion: English\n*LanguageEncoding: ISOLatin1\n");
  EXPECT_EQ(texts.translationLines(), "");
}

TEST_F(MadeTextsTest, Translations_CompleteOnesAreNamed) {
  const MadeTexts texts =
      textsOf({{"en", {{"Film", "Foil"}}},
               {"zh-TW", {{"Film", "Folie"}, {"Film.A", "\xC3\x84"}, {"Other", "x"}}},
               {"fr", {{"Film.A", "f"}}}});
  EXPECT_EQ(option_, "/Foil");
  EXPECT_EQ(choice_, "");
  EXPECT_EQ(texts.languageLines(),
            "*LanguageVersion: English\n*LanguageEncoding: ISOLatin1\n*cupsLanguages: \"zh_TW\"\n");
  EXPECT_EQ(texts.translationLines(),
            "*zh_TW.Translation Film/Folie: \"\"\n*zh_TW.Film A/\xC3\x84: \"\"\n"
            "*fr.Film A/f: \"\"\n");
  EXPECT_THAT(losses_, IsEmpty());
}

TEST_F(MadeTextsTest, OwnLanguage_NotEnglishInAscii_NamesNoTranslations) {
  const host::TextsOfLanguage french = {"fr", {{"Film", "f"}, {"Film.A", "f"}}};
  EXPECT_EQ(textsOf({{"de-AT", {{"Film", "Folie"}}}, french}).languageLines(),
            "*LanguageVersion: German\n*LanguageEncoding: ISOLatin1\n");
  EXPECT_EQ(textsOf({{"en", {{"Film", "\xC3\x84"}}}, french}).languageLines(),
            "*LanguageVersion: English\n*LanguageEncoding: UTF-8\n");
}

TEST_F(MadeTextsTest, TextOfItsOwn_CountsWithoutOneInTheFirstLanguage) {
  MadeTexts texts({{"en", {{"panel:A", "a"}}}, {"de", {{"panel:B", "b"}}}}, losses_);
  EXPECT_EQ(texts.textFor("Translation A", "panel:A", "own"), "/a");
  EXPECT_EQ(texts.textFor("Translation B", "panel:B", "own"), "/own");
  EXPECT_EQ(texts.textFor("Translation C", "panel:C", ""), "");
}

TEST_F(MadeTextsTest, TwoOfOnePlace_FirstIsTranslated) {
  MadeTexts texts({{"en", {}}, {"de", {{"A", "eins"}, {"panel:A", "zwei"}}}}, losses_);
  texts.textFor("Translation A", "A");
  texts.textFor("Translation A", "panel:A", "");
  EXPECT_EQ(texts.translationLines(), "*de.Translation A/eins: \"\"\n");
}

TEST_F(MadeTextsTest, WhatEndsAText_IsWrittenAsDigits) {
  textsOf({{"en", {{"Film", "a: <b> \"c\"/d"}, {"Film.A", std::string(79, 'x') + "\xC3\x84"}}}});
  EXPECT_EQ(option_, "/a<3A> <3C>b<3E> <22>c<22>/d");
  EXPECT_EQ(choice_, "/" + std::string(79, 'x'));
}

TEST_F(MadeTextsTest, LanguageWithoutKeywords_IsALoss) {
  EXPECT_EQ(textsOf({{"zh-Hant", {{"Film", "f"}}}, {"gsw", {{"Film", "g"}}}}).translationLines(),
            "");
  EXPECT_EQ(option_, "/f");
  EXPECT_THAT(losses_, ElementsAre("the texts in gsw: a PPD has no keywords for the language"));
}

TEST_F(MadeTextsTest, SameLanguageTwice_TheFirstTextCounts) {
  textsOf({{"en", {{"Film", "one"}}}, {"en", {{"Film", "two"}, {"Film.A", "three"}}}});
  EXPECT_EQ(option_, "/one");
  EXPECT_EQ(choice_, "/three");
}

}  // namespace

}  // namespace driver_feature::ppd
