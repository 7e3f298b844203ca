#include "host/ipp/words.h"

#include <gtest/gtest.h>

#include <string>

namespace driver_feature::ipp {
namespace {

TEST(WordsTest, KeywordFor_Names_AreWordsWithHyphens) {
  EXPECT_EQ(keywordFor("TonerSaveMode"), "toner-save-mode");
  EXPECT_EQ(keywordFor("BRPrintQuality"), "br-print-quality");
  EXPECT_EQ(keywordFor("ThickPaper2"), "thick-paper2");
  EXPECT_EQ(keywordFor("2 Holes"), "n-2-holes");
  EXPECT_EQ(keywordFor("+3"), "plus-3");
  EXPECT_EQ(keywordFor("-3"), "minus-3");
  EXPECT_EQ(keywordFor("A4.Fullbleed"), "a4.fullbleed");
  EXPECT_EQ(keywordFor("\xC3\xA4"), "unnamed");
  EXPECT_EQ(keywordFor(std::string(400, 'a')).size(), 200U);
}

TEST(WordsTest, DistinctWords_SameWordAgain_GetsTheNextFreeNumber) {
  DistinctWords words;
  EXPECT_EQ(words.add("tray"), "tray");
  EXPECT_EQ(words.add("tray-3"), "tray-3");
  EXPECT_EQ(words.add("tray"), "tray-2");
  EXPECT_EQ(words.add("tray"), "tray-4");
  EXPECT_EQ(words.add("tray-3"), "tray-3-2");
  EXPECT_TRUE(words.has("tray-4"));
  EXPECT_FALSE(words.has("tray-5"));
}

}  // namespace
}  // namespace driver_feature::ipp
