#include "host/completion/place.h"

#include <gtest/gtest.h>

#include <CLI/CLI.hpp>

namespace driver_feature {

namespace {

class PlaceTest : public testing::Test {
 protected:
  PlaceTest() {
    program_.add_flag("-v,--verbose", flag_, "Talk");
    program_.add_option("--library", text_, "Library")->type_name("PATH");
    CLI::App* copy = program_.add_subcommand("copy", "Copy files");
    copy->add_option("DESC", text_, "First")->type_name("FILE");
    copy->add_option("TARGET", text_, "Second")->type_name("FILE");
    copy->add_option("-o,--option", texts_, "Set")
        ->type_name("NAME=VALUE")
        ->allow_extra_args(false);
    copy->add_option("--pair", texts_, "Two words")
        ->type_name("GROUP FILE")
        ->type_size(2)
        ->allow_extra_args(false);
    program_.add_subcommand("join", "Join files")->add_option("FILES", texts_, "All");
  }

  std::string argumentAt(const std::vector<std::string>& words) const {
    const Place place = findPlace(program_, words);
    return place.argument == nullptr ? ""
                                     : place.argument->get_name(place.argument->get_positional());
  }

  CLI::App program_;
  bool flag_ = false;
  std::string text_;
  std::vector<std::string> texts_;
};

struct Row {
  std::vector<std::string> words;
  const char* argument;
};

TEST_F(PlaceTest, FindPlace_Words_NamesTheArgument) {
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

TEST_F(PlaceTest, FindPlace_OptionWithItsText_SplitsTheWord) {
  const Place longForm = findPlace(program_, {"copy", "--option=A=1"});
  EXPECT_EQ(longForm.prefix, "--option=");
  EXPECT_EQ(longForm.word, "A=1");
  const Place shortForm = findPlace(program_, {"copy", "-oA=1"});
  EXPECT_EQ(shortForm.prefix, "-o");
  EXPECT_EQ(shortForm.word, "A=1");
  const Place earlier = findPlace(program_, {"copy", "--option=A=1", "b"});
  EXPECT_EQ(earlier.prefix, "");
  EXPECT_EQ(earlier.word, "b");
}

TEST_F(PlaceTest, FindPlace_TwoWordsBehindAnOption_CountsThem) {
  EXPECT_EQ(findPlace(program_, {"copy", "--pair", "G"}).item, 0);
  EXPECT_EQ(findPlace(program_, {"copy", "--pair", "G", "f"}).item, 1);
  EXPECT_EQ(findPlace(program_, {"copy", "--pair=G", "f"}).item, 1);
  EXPECT_EQ(findPlace(program_, {"copy", "--pair", "G", "f", "x"}).item, 0);
}

TEST_F(PlaceTest, FindPlace_DescriptionOnTheLine_IsKept) {
  EXPECT_EQ(findPlace(program_, {"copy", "a.xml", "-o", "A"}).description, "a.xml");
  EXPECT_EQ(findPlace(program_, {"copy", "-o", "A=1", "a.xml", "b", ""}).description, "a.xml");
  EXPECT_EQ(findPlace(program_, {"copy", "a.xml"}).description, "");
}

TEST_F(PlaceTest, OptionsAt_Command_ListsItsOwnAndTheGeneralOnesWithoutASecondHelp) {
  std::vector<std::string> names;
  for (const CLI::Option* option : optionsAt(program_, program_.get_subcommand("copy"))) {
    for (const std::string& spelling : spellingsOf(*option)) names.push_back(spelling);
  }
  EXPECT_EQ(names, (std::vector<std::string>{"-h", "--help", "-o", "--option", "--pair", "-v",
                                             "--verbose", "--library"}));
}

}  // namespace

}  // namespace driver_feature
