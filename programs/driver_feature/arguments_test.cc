#include "programs/driver_feature/arguments.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/problem_text.h"

namespace driver_feature::cli {

namespace {

using Texts = std::vector<std::string>;

constexpr ArgumentRow kGeneral[] = {{"-h,--help", "", "Help"},
                                    {"-v,--verbose", "", "Talk"},
                                    {"-q,--quiet", "", "Be quiet", kOptional, "--verbose"},
                                    {"--library", "PATH", "Library"}};
constexpr ArgumentRow kOwn[] = {{"DESC", "FILE", "First", kRequired},
                                {"MORE", "FILE", "Others", kRepeats}};
constexpr ArgumentRow kShared[] = {{"-o,--option", "NAME=VALUE", "Set", kRepeats},
                                   {"--pair", "GROUP FILE", "Two words", kRepeats},
                                   {"--to", "FORM", "Form", kRequired}};
constexpr CommandRow kCopy = {"copy", "Copy files", "The end.", kOwn, kShared, nullptr};
constexpr CommandRow kJoin = {"join", "Join files", "", {}, {}, nullptr};
constexpr const CommandRow* kCommands[] = {&kCopy, &kJoin};
const ProgramRows kProgram = {"tool", "About", "Footer.", kGeneral, kCommands};

host::Result<Line> read(std::vector<const char*> words) {
  words.insert(words.begin(), "tool");
  return readLine(kProgram, static_cast<int>(words.size()), words.data());
}

TEST(ArgumentsTest, ReadLine_EveryKindOfArgument_IsKeptUnderItsLastName) {
  const auto line = read({"copy", "a", "b", "c", "-o", "A=1", "--option=B=2", "--to", "ps",
                          "--pair", "G", "f", "--pair", "H", "g", "-v"});
  ASSERT_EQ(host::problemText(line), "");
  EXPECT_EQ(line->command, &kCopy);
  EXPECT_EQ(line->help, "");
  const Arguments& arguments = line->arguments;
  EXPECT_EQ(arguments.text("DESC"), "a");
  EXPECT_EQ(arguments.texts("MORE"), (Texts{"b", "c"}));
  EXPECT_EQ(arguments.texts("--option"), (Texts{"A=1", "B=2"}));
  EXPECT_EQ(arguments.texts("--pair"), (Texts{"G", "f", "H", "g"}));
  EXPECT_TRUE(arguments.has("--verbose"));
  EXPECT_FALSE(arguments.has("--quiet"));
  EXPECT_EQ(arguments.texts("--library"), Texts{});
  EXPECT_EQ(arguments.text("--library", "none"), "none");
}

TEST(ArgumentsTest, ReadLine_NoCommand_NamesNone) {
  const auto line = read({"--library", "x"});
  ASSERT_EQ(host::problemText(line), "");
  EXPECT_EQ(line->command, nullptr);
  EXPECT_EQ(line->arguments.text("--library"), "x");
}

TEST(ArgumentsTest, ReadLine_WhatDoesNotFit_IsRefused) {
  const std::pair<std::vector<const char*>, const char*> rows[] = {
      {{"copy", "a"}, "--to is required; tool copy --help explains the usage"},
      {{"copy", "--to", "ps"}, "DESC is required; tool copy --help explains the usage"},
      {{"join", "x"}, "\"x\" is not expected; tool join --help explains the usage"},
      {{"--wrong"}, "\"--wrong\" is not expected; tool --help explains the usage"},
      {{"jion"}, "there is no command \"jion\"; did you mean \"join\"?"},
      {{"other"}, "there is no command \"other\"; give one of copy, join"},
      {{"join", "-v", "-q"}, "--verbose excludes --quiet; tool join --help explains the usage"}};
  for (const auto& [words, reason] : rows) EXPECT_EQ(host::problemText(read(words)), reason);
}

TEST(ArgumentsTest, ReadLine_Help_IsThatOfTheCommand) {
  const auto program = read({"--help"});
  ASSERT_EQ(host::problemText(program), "");
  EXPECT_NE(program->help.find("Footer."), std::string::npos);
  EXPECT_NE(program->help.find("  copy "), std::string::npos);
  const auto copy = read({"copy", "-h"});
  ASSERT_EQ(host::problemText(copy), "");
  EXPECT_NE(copy->help.find("Usage: tool copy "), std::string::npos);
  EXPECT_NE(copy->help.find("--pair GROUP FILE"), std::string::npos);
  EXPECT_NE(copy->help.find("MORE FILE..."), std::string::npos);
  EXPECT_NE(copy->help.find("The end."), std::string::npos);
}

}  // namespace

}  // namespace driver_feature::cli
