#include "programs/driver_feature/manual/manual_page.h"

#include <gtest/gtest.h>

#include "programs/driver_feature/manual/roff.h"
#include "support/problem_text.h"

namespace driver_feature::cli {

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
  static constexpr ArgumentRow kRootArguments[] = {
      {"-h,--help", "", "Print this help message and exit"}, {"-v,--verbose", "", "Talk"}};
  static constexpr ArgumentRow kArguments[] = {{"DESC", "FILE", "What to run", kRequired},
                                               {"MORE", "FILE", "More", kRepeats},
                                               {"-t,--to", "FORM", "Where to", kRequired}};
  static const CommandRow kRun = {"run", "Run it", "Exit status: 0.", kArguments, {}, nullptr};
  static const CommandRow* const kRunOnly[] = {&kRun};

  const auto parts =
      manualParts({"tool", "About", "Examples:\n  tool run x\n\nExit status: 0 well.",
                   kRootArguments, kRunOnly});

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
  EXPECT_EQ(*fillMarks("v @A@.\n@B@\nend @A@", {{"A", "1"}, {"B", "two\n"}}), "v 1.\ntwo\nend 1");
}

TEST(ManualPageTest, FillMarks_MarkWithoutPartOrPartWithoutMark_NamesIt) {
  EXPECT_EQ(problemText(fillMarks("a @B@", {{"A", "1"}})), "there is no text for the mark \"@B\"");
  EXPECT_EQ(problemText(fillMarks("a @A", {{"A", "1"}})), "there is no text for the mark \"@A\"");
  EXPECT_EQ(problemText(fillMarks("a @A@", {{"A", "1"}, {"C", "2"}})),
            "the text has no mark \"@C@\"");
}

}  // namespace

}  // namespace driver_feature::cli
