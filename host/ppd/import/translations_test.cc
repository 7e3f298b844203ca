#include "host/ppd/import/translations.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace driver_feature::ppd {

namespace {

using ::testing::ElementsAre;

std::vector<std::string> translationTexts(std::string_view ppd) {
  std::vector<std::string> texts;
  for (const Translation& each : translationsOf(ppd)) {
    texts.push_back(each.language + "|" + each.keyword + "|" + each.spec + "|" + each.text);
  }
  return texts;
}

TEST(TranslationsTest, Statements_OfAnyLanguage_AreFound) {
  EXPECT_THAT(translationTexts("*PPD-Adobe: \"4.3\"\r\n"
                               "*de.Translation PageSize/Gr<C3B6>\xC3\x9F"
                               "e<3A>: \"\"\r\n"
                               "*PageSize A4/x: \"code\n*fr.PageSize A4/no: x\n\"\n"
                               "*zh_cn.PageSize  A4 /a/b: \"\"\n"
                               "*de.CustomPageSize True/Frei: \"\"\n"),
              ElementsAre("de|Translation|PageSize|Gr\xC3\xB6\xC3\x9F"
                          "e:",
                          "zh-CN|PageSize|A4|a/b", "de|CustomPageSize|True|Frei"));
}

TEST(TranslationsTest, OtherStatements_AreNone) {
  EXPECT_THAT(translationTexts(
                  "*De.PageSize A4/x: \"\"\n*deu.PageSize A4/x: \"\"\n"
                  "*de.PageSize A4: \"x/y\"\n*de.PageSize A4/: \"\"\n"
                  "*%de.PageSize A4/x: \"\"\n*d1.PageSize A4/x: \"\"\n*de.PageSize A4/x\n*de.\n*"),
              ElementsAre());
}

}  // namespace

}  // namespace driver_feature::ppd
