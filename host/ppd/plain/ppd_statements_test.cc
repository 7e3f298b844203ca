#include "host/ppd/plain/ppd_statements.h"

#include <gmock/gmock.h>

namespace driver_feature::ppd {
namespace {

using testing::ElementsAre;

std::vector<std::string> statementsOf(std::string_view text) {
  std::vector<std::string> statements;
  while (!text.empty()) statements.emplace_back(takeStatement(text));
  return statements;
}

TEST(PpdStatements, LineEndsOfEachKind_EndStatements) {
  EXPECT_THAT(statementsOf("*a: 1\n*b: 2\r\n*c: 3\r\r\n*d"),
              ElementsAre("*a: 1\n", "*b: 2\r\n", "*c: 3\r", "\r\n", "*d"));
}

TEST(PpdStatements, ValueInQuotationMarks_ReachesOverLines) {
  EXPECT_THAT(statementsOf("*a: \"1\n2\r\n3\" \n*b: \"4\" \"5\n6\"\n*End\n"),
              ElementsAre("*a: \"1\n2\r\n3\" \n", "*b: \"4\" \"5\n6\"\n", "*End\n"));
}

TEST(PpdStatements, QuotationMarksInFrontOfTheColonAndInComments_DoNotCount) {
  EXPECT_THAT(statementsOf("*a \"x: 1\n*% note: \"\n*b: 2\n"),
              ElementsAre("*a \"x: 1\n", "*% note: \"\n", "*b: 2\n"));
}

TEST(PpdStatements, ValueWithoutItsEnd_ReachesToTheEndOfTheText) {
  EXPECT_THAT(statementsOf("*a: \"1\n*b: 2\n*c"), ElementsAre("*a: \"1\n*b: 2\n*c"));
}

TEST(PpdStatements, Keywords_EndAtBlanksColonsAndLineEnds) {
  EXPECT_EQ(statementKeyword("*PageSize A4: \"\"\n"), "PageSize");
  EXPECT_EQ(statementKeyword("*PageSize\tA4: \"\""), "PageSize");
  EXPECT_EQ(statementKeyword("*cupsFilter: \"a\""), "cupsFilter");
  EXPECT_EQ(statementKeyword("*End\r\n"), "End");
  EXPECT_EQ(statementKeyword("*End"), "End");
  EXPECT_EQ(statementKeyword("*% note: 1"), "");
  EXPECT_EQ(statementKeyword(" *a: 1"), "");
  EXPECT_EQ(statementKeyword("\n"), "");
}

TEST(PpdStatements, LineEnds_AreFound) {
  EXPECT_EQ(lineEndOf("a\r\n"), "\r\n");
  EXPECT_EQ(lineEndOf("a\r"), "\r");
  EXPECT_EQ(lineEndOf("\n"), "\n");
  EXPECT_EQ(lineEndOf("a"), "");
}

}  // namespace
}  // namespace driver_feature::ppd
