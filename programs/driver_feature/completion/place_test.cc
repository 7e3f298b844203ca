#include "programs/driver_feature/completion/place.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace driver_feature::cli {

namespace {

constexpr ArgumentRow kPlaceArguments[] = {
    {"-h,--help", "", "Help"}, {"-v,--verbose", "", "Talk"}, {"--library", "PATH", "Library"}};
constexpr ArgumentRow kCopyRows[] = {{"DESC", "FILE", "First"},
                                     {"TARGET", "FILE", "Second"},
                                     {"-o,--option", "NAME=VALUE", "Set", kRepeats},
                                     {"--pair", "GROUP FILE", "Two words", kRepeats}};
constexpr ArgumentRow kJoinRows[] = {{"FILES", "FILE", "All", kRepeats}};
constexpr CommandRow kCopy = {"copy", "Copy files", "", kCopyRows, {}, nullptr};
constexpr CommandRow kJoin = {"join", "Join files", "", kJoinRows, {}, nullptr};
constexpr const CommandRow* kPlaceCommands[] = {&kCopy, &kJoin};
const ProgramRows kPlaceProgram = {"tool", "About", "", kPlaceArguments, kPlaceCommands};

std::string argumentAt(const std::vector<std::string>& words) {
  const Place place = findPlace(kPlaceProgram, words);
  return place.argument == nullptr ? "" : spellingsOf(*place.argument).back();
}

struct Row {
  std::vector<std::string> words;
  const char* argument;
};

TEST(PlaceTest, FindPlace_Words_NamesTheArgument) {
  const Row kRows[] = {
      {{}, ""},
      {{""}, ""},
      {{"copy", ""}, "DESC"},
      {{"copy", "a", ""}, "TARGET"},
      {{"copy", "a", "b", ""}, ""},
      {{"join", "a", "b", ""}, "FILES"},
      {{"copy", "-"}, ""},
      {{"copy", "--", "-"}, "DESC"},
      {{"copy", "--", "-o", ""}, "TARGET"},
      {{"copy", "-v", ""}, "DESC"},
      {{"-v", "copy", ""}, "DESC"},
      {{"--library", ""}, "--library"},
      {{"--library", "copy", ""}, ""},
      {{"--library", "x", "copy", ""}, "DESC"},
      {{"copy", "--library", ""}, "--library"},
      {{"copy", "-o", ""}, "--option"},
      {{"copy", "-o", "-v"}, "--option"},
      {{"copy", "-o", "A=1", ""}, "DESC"},
      {{"copy", "-oA=1", ""}, "DESC"},
      {{"copy", "--option=A=1", ""}, "DESC"},
      {{"copy", "--pair", "G", ""}, "--pair"},
      {{"copy", "--pair", "G", "f", ""}, "DESC"},
      {{"copy", "--pair=G", ""}, "--pair"},
      {{"copy", "--pair=G", "f", ""}, "DESC"},
      {{"copy", "--option=A"}, "--option"},
      {{"copy", "-oA"}, "--option"},
      {{"copy", "--option"}, ""},
      {{"copy", "-o"}, ""},
      {{"copy", "-vA"}, ""},
      {{"copy", "--verbose=A"}, ""},
      {{"copy", "--unknown=A"}, ""},
      {{"copy", "--unknown", ""}, "DESC"},
      {{"unknown", ""}, ""},
  };
  for (const Row& row : kRows) {
    EXPECT_EQ(argumentAt(row.words), row.argument) << testing::PrintToString(row.words);
  }
}

TEST(PlaceTest, FindPlace_OptionWithItsText_SplitsTheWord) {
  const Place longForm = findPlace(kPlaceProgram, {"copy", "--option=A=1"});
  EXPECT_EQ(longForm.prefix, "--option=");
  EXPECT_EQ(longForm.word, "A=1");
  const Place shortForm = findPlace(kPlaceProgram, {"copy", "-oA=1"});
  EXPECT_EQ(shortForm.prefix, "-o");
  EXPECT_EQ(shortForm.word, "A=1");
  const Place earlier = findPlace(kPlaceProgram, {"copy", "--option=A=1", "b"});
  EXPECT_EQ(earlier.prefix, "");
  EXPECT_EQ(earlier.word, "b");
}

TEST(PlaceTest, FindPlace_TwoWordsAfterAnOption_CountsThem) {
  EXPECT_EQ(findPlace(kPlaceProgram, {"copy", "--pair", "G"}).item, 0);
  EXPECT_EQ(findPlace(kPlaceProgram, {"copy", "--pair", "G", "f"}).item, 1);
  EXPECT_EQ(findPlace(kPlaceProgram, {"copy", "--pair=G", "f"}).item, 1);
  EXPECT_EQ(findPlace(kPlaceProgram, {"copy", "--pair", "G", "f", "x"}).item, 0);
}

TEST(PlaceTest, FindPlace_DescriptionOnTheLine_IsKept) {
  EXPECT_EQ(findPlace(kPlaceProgram, {"copy", "a.xml", "-o", "A"}).description, "a.xml");
  EXPECT_EQ(findPlace(kPlaceProgram, {"copy", "-o", "A=1", "a.xml", "b", ""}).description, "a.xml");
  EXPECT_EQ(findPlace(kPlaceProgram, {"copy", "a.xml"}).description, "");
}

TEST(PlaceTest, OptionsAt_Command_ListsItsOwnAndTheGeneralOnes) {
  std::vector<std::string> names;
  for (const ArgumentRow* option : optionsAt(kPlaceProgram, &kCopy)) {
    for (const std::string& spelling : spellingsOf(*option)) names.push_back(spelling);
  }
  EXPECT_EQ(names, (std::vector<std::string>{"-o", "--option", "--pair", "-h", "--help", "-v",
                                             "--verbose", "--library"}));
}

}  // namespace

}  // namespace driver_feature::cli
