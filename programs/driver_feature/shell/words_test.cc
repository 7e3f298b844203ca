#include "programs/driver_feature/shell/words.h"

#include <gtest/gtest.h>

#include "support/problem_text.h"

namespace driver_feature::cli {

namespace {

Words split(const std::string& line) {
  Words words;
  EXPECT_EQ(problemText(splitWords(line, words)), "") << line;
  return words;
}

std::string refusalOf(const std::string& line) {
  Words words;
  return problemText(splitWords(line, words));
}

TEST(Words_SplitWords, BlanksAndTabs_Separate) {
  EXPECT_EQ(split(""), Words{});
  EXPECT_EQ(split(" \t "), Words{});
  EXPECT_EQ(split("  set\tCopies  2 "), (Words{"set", "Copies", "2"}));
}

TEST(Words_SplitWords, Comment_BeginsAtAWord) {
  EXPECT_EQ(split("# set Copies 2"), Words{});
  EXPECT_EQ(split("get A#1 # the size"), (Words{"get", "A#1"}));
  EXPECT_EQ(split("get '#' \\# \"#\""), (Words{"get", "#", "#", "#"}));
}

TEST(Words_SplitWords, Quotes_KeepBlanksAndJoin) {
  EXPECT_EQ(split("set Owner \"a b\""), (Words{"set", "Owner", "a b"}));
  EXPECT_EQ(split("set Owner 'a \"b\\n\"'"), (Words{"set", "Owner", "a \"b\\n\""}));
  EXPECT_EQ(split("a\" \"b' 'c"), (Words{"a b c"}));
  EXPECT_EQ(split("\"\" ''"), (Words{"", ""}));
}

TEST(Words_SplitWords, Escapes_MeanCharacters) {
  EXPECT_EQ(split("\\n\\r\\t\\e\\x41\\xfF\\\\\\\"\\'\\ x\\#"), (Words{"\n\r\t\x1B"
                                                                      "A\xFF\\\"' x#"}));
  EXPECT_EQ(split("\"\\n\\x00\""), (Words{std::string("\n\0", 2)}));
}

TEST(Words_SplitWords, WhatIsNotClosed_IsRefused) {
  EXPECT_EQ(refusalOf("set \"a b"), "a quote is not closed; end the word with \"");
  EXPECT_EQ(refusalOf("set 'a"), "a quote is not closed; end the word with '");
}

TEST(Words_SplitWords, UnknownEscape_IsRefused) {
  const std::string remedy = "; give \\n, \\r, \\t, \\e, \\xNN or \\\\";
  EXPECT_EQ(refusalOf("a\\q"), "there is no escape \"\\q\"" + remedy);
  EXPECT_EQ(refusalOf("a\\x4"), "there is no escape \"\\x4\"" + remedy);
  EXPECT_EQ(refusalOf("a\\x4 b"), "there is no escape \"\\x4 \"" + remedy);
  EXPECT_EQ(refusalOf("a\\x-1"), "there is no escape \"\\x-1\"" + remedy);
  EXPECT_EQ(refusalOf("a\\"), "there is no escape \"\\\"" + remedy);
}

TEST(Words_SplitWords, Refusal_KeepsTheWordsBefore) {
  Words words;
  EXPECT_FALSE(splitWords("set Owner \"a", words));
  EXPECT_EQ(words, (Words{"set", "Owner"}));
}

TEST(Words_SplitUnfinished, LastWord_IsTheUnfinishedOne) {
  struct Row {
    std::string line;
    Words before;
    std::string word;
    std::size_t begin;
    char quote;
  };
  const Row rows[] = {
      {"", {}, "", 0, 0},
      {"se", {}, "se", 0, 0},
      {"set ", {"set"}, "", 4, 0},
      {"set  Co", {"set"}, "Co", 5, 0},
      {"set \"A ", {"set"}, "A ", 4, '"'},
      {"set 'A \"", {"set"}, "A \"", 4, '\''},
      {"set A'B", {"set"}, "AB", 4, '\''},
      {"set \"A B\"", {"set"}, "A B", 4, 0},
      {"set \"A B\" ", {"set", "A B"}, "", 10, 0},
      {"set a\\", {"set"}, "a", 4, 0},
  };
  for (const Row& row : rows) {
    const UnfinishedLine unfinished = splitUnfinished(row.line);
    EXPECT_EQ(unfinished.before, row.before) << row.line;
    EXPECT_EQ(unfinished.word, row.word) << row.line;
    EXPECT_EQ(unfinished.begin, row.begin) << row.line;
    EXPECT_EQ(unfinished.quote, row.quote) << row.line;
  }
}

TEST(Words_QuoteWord, Text_IsReadBack) {
  struct Row {
    std::string text;
    std::string written;
  };
  const Row rows[] = {
      {"A4", "A4"},
      {"", "\"\""},
      {"a b", "\"a b\""},
      {"it's", "\"it's\""},
      {"#1", "\"#1\""},
      {"a#1", "a#1"},
      {"say \"a\\b\"", "\"say \\\"a\\\\b\\\"\""},
      {"\x1B%-12345X\r\n", "\"\\e%-12345X\\r\\n\""},
      {"M\xC3\xBCller", "M\xC3\xBCller"},
      {"M\xFCller", "\"M\\xfcller\""},
      {std::string("\0\x7F", 2), "\"\\x00\\x7f\""},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(quoteWord(row.text), row.written);
    EXPECT_EQ(split(row.written), Words{row.text});
  }
}

}  // namespace

}  // namespace driver_feature::cli
