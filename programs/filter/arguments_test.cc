#include "programs/filter/arguments.h"

#include <gmock/gmock.h>

#include <array>
#include <utility>

#include "programs/filter/option_text.h"
#include "support/problem_text.h"

namespace driver_feature::filter {
namespace {

using Pairs = std::vector<std::pair<std::string, std::string>>;

Pairs pairsOf(const std::string& text) {
  Pairs pairs;
  for (const host::Setting& option : parseOptions(text))
    pairs.emplace_back(option.name, option.value);
  return pairs;
}

TEST(FilterArguments, SixArguments_AreAJobFromStandardInput) {
  const std::array<const char*, 6> words{"filter", "12", "jane", "A title", "3", "A=b"};
  const auto arguments = readArguments(6, words.data(), &parseOptions);
  ASSERT_TRUE(arguments);
  EXPECT_EQ(arguments->job, 12);
  EXPECT_EQ(arguments->user, "jane");
  EXPECT_EQ(arguments->title, "A title");
  EXPECT_EQ(arguments->copies, 3);
  EXPECT_EQ(arguments->options.size(), 1U);
  EXPECT_EQ(arguments->file, "");
}

TEST(FilterArguments, SeventhArgument_IsTheFile) {
  const std::array<const char*, 7> words{"filter", "1", "", "", "1", "", "job.ps"};
  const auto arguments = readArguments(7, words.data(), &parseOptions);
  ASSERT_TRUE(arguments);
  EXPECT_EQ(arguments->file, "job.ps");
}

TEST(FilterArguments, WhatIsNoNumber_IsRefused) {
  struct Row {
    const char* job;
    const char* copies;
    const char* problem;
  };
  for (const Row& row :
       {Row{"x", "1", "the job \"x\" is not a number; give the number of the job"},
        Row{"-1", "1", "the job \"-1\" is not a number; give the number of the job"},
        Row{"1", "0", "the copies \"0\" are not a number from 1 up; give 1 or more"},
        Row{"1", "2x", "the copies \"2x\" are not a number from 1 up; give 1 or more"},
        Row{"1", "99999999999",
            "the copies \"99999999999\" are not a number from 1 up; give 1 or more"}}) {
    const std::array<const char*, 6> words{"filter", row.job, "", "", row.copies, ""};
    EXPECT_EQ(problemText(readArguments(6, words.data(), &parseOptions)), row.problem);
  }
}

TEST(FilterArguments, OtherNumberOfArguments_IsRefused) {
  const std::array<const char*, 8> words{"filter", "1", "u", "t", "1", "", "f", "g"};
  for (const int count : {1, 5, 8}) {
    EXPECT_EQ(problemText(readArguments(count, words.data(), &parseOptions)),
              "wrong usage; give JOB USER TITLE COPIES OPTIONS [FILE], as a print scheduler does");
  }
}

TEST(FilterOptions, EveryForm_IsRead) {
  EXPECT_EQ(pairsOf("A=b C='d e' F=\"g h\" I=j\\ k"),
            (Pairs{{"A", "b"}, {"C", "d e"}, {"F", "g h"}, {"I", "j k"}}));
  EXPECT_EQ(pairsOf("Collate noDuplex"), (Pairs{{"Collate", "true"}, {"Duplex", "false"}}));
  EXPECT_EQ(pairsOf("S={Width=10 Height=20}"), (Pairs{{"S", "{Width=10 Height=20}"}}));
  EXPECT_EQ(pairsOf("A=b A=c"), (Pairs{{"A", "c"}}));
  EXPECT_EQ(pairsOf(""), Pairs());
}

TEST(HarmlessText, ControlsAndQuotes_AreReplaced) {
  EXPECT_EQ(harmless("a\"b\r\n@PJL\x1b\x7f\xc3\xa4"), "a'b  @PJL  \xc3\xa4");
}

}  // namespace
}  // namespace driver_feature::filter
