#include "host/manual/manual_page.h"

#include <gtest/gtest.h>

#include <CLI/CLI.hpp>

#include "host/manual/roff.h"

namespace driver_feature {

namespace {

TEST(RoffTest, RoffText_SpecialCharacters_AreEscaped) {
  EXPECT_EQ(roffText("-o 'a' \"b\" c\\d ^~`"),
            "\\-o \\(aqa\\(aq \\(dqb\\(dq c\\ed \\(ha\\(ti\\(ga");
  EXPECT_EQ(roffText(".so x\n.x.y"), "\\&.so x\n\\&.x.y");
  EXPECT_EQ(roffArgument("a b"), "\"a b\"");
}

TEST(RoffTest, RoffParagraphs_IndentedLines_StayAsTheyAre) {
  EXPECT_EQ(roffParagraphs("One\ntwo.\n\nExamples:\n  a  b\n    c\n\nEnd"),
            ".PP\nOne\ntwo.\n.PP\nExamples:\n.RS 4\n.nf\na  b\n  c\n.fi\n.RE\n.PP\nEnd\n");
  EXPECT_EQ(roffParagraphs("Examples:\n  a"), ".PP\nExamples:\n.RS 4\n.nf\na\n.fi\n.RE\n");
}

TEST(ManualPageTest, ManualParts_SmallProgram_HoldEveryArgument) {
  CLI::App program("About", "tool");
  program.footer("Examples:\n  tool run x\n\nExit status: 0 well.");
  bool flag = false;
  program.add_flag("-v,--verbose", flag, "Talk");
  CLI::App* run = program.add_subcommand("run", "Run it");
  std::string text;
  std::vector<std::string> texts;
  run->add_option("DESC", text, "What to run")->required()->type_name("FILE");
  run->add_option("MORE", texts, "More")->type_name("FILE");
  run->add_option("-t,--to", text, "Where to")->required()->type_name("FORM");
  run->footer("Exit status: 0.");

  const auto parts = manualParts(program);

  EXPECT_EQ(parts.size(), 5U);
  EXPECT_EQ(parts.at("SYNOPSIS"),
            ".B tool run\n\\fIDESC\\fP\n[\\fIMORE\\fP...\\&]\n\\fB\\-t\\fP|\\fB\\-\\-to\\fP "
            "\\fIFORM\\fP\n[\\fIOPTION\\fP...]\n.br\n.B tool\n\\fB\\-h\\fP|\\fB\\-\\-help\\fP\n");
  EXPECT_EQ(parts.at("GENERAL_OPTIONS"),
            ".TP\n\\fB\\-h\\fP, \\fB\\-\\-help\\fP\nPrint this help message and exit.\n"
            ".TP\n\\fB\\-v\\fP, \\fB\\-\\-verbose\\fP\nTalk.\n");
  EXPECT_EQ(parts.at("COMMANDS"),
            ".SS \"tool run\"\nRun it.\n.TP\n\\fIDESC\\fP\nWhat to run.\n.TP\n\\fIMORE\\fP\nMore.\n"
            ".TP\n\\fB\\-t\\fP, \\fB\\-\\-to\\fP \\fIFORM\\fP\nWhere to.\n.PP\nExit status: 0.\n");
  EXPECT_EQ(parts.at("EXIT_STATUS"), ".PP\n0 well.\n");
  EXPECT_EQ(parts.at("EXAMPLES"), ".PP\n.RS 4\n.nf\ntool run x\n.fi\n.RE\n");
}

TEST(ManualPageTest, FillMarks_EveryMarkKnown_ReplacesThem) {
  std::string text = "v @A@.\n@B@\nend @A@";
  std::string problem;
  EXPECT_TRUE(fillMarks(text, {{"A", "1"}, {"B", "two\n"}}, problem));
  EXPECT_EQ(text, "v 1.\ntwo\nend 1");
  EXPECT_EQ(problem, "");
}

TEST(ManualPageTest, FillMarks_MarkWithoutPartOrPartWithoutMark_NamesIt) {
  std::string problem;
  std::string unknown = "a @B@";
  EXPECT_FALSE(fillMarks(unknown, {{"A", "1"}}, problem));
  EXPECT_EQ(problem, "nothing is known to stand for the mark \"@B\"");
  std::string open = "a @A";
  EXPECT_FALSE(fillMarks(open, {{"A", "1"}}, problem));
  EXPECT_EQ(problem, "nothing is known to stand for the mark \"@A\"");
  std::string missing = "a @A@";
  EXPECT_FALSE(fillMarks(missing, {{"A", "1"}, {"C", "2"}}, problem));
  EXPECT_EQ(problem, "no mark \"@C@\" stands in the text");
}

}  // namespace

}  // namespace driver_feature
