// Where and how a document that is not XML is reported: by its first error.

#include <gtest/gtest.h>

#include <string>

#include "XMLDocument.h"

namespace {

using namespace std::string_literals;

struct ProblemRow {
  std::string document;
  int line;
  int column;
  std::string text;
};

// A place is the parser's position when it sees the error: at the character
// that is not allowed there, or after the construct that is wrong as a whole.
const ProblemRow kProblems[] = {
    {"", 1, 1, "is empty"},
    {" ", 1, 2, "Start tag expected, '<' not found"},
    {"  \n \n", 3, 1, "Start tag expected, '<' not found"},
    {"\xEF\xBB\xBF", 1, 1, "Start tag expected, '<' not found"},
    {"hello\nworld", 1, 1, "Start tag expected, '<' not found"},
    {"<!-- only -->\n", 2, 1, "Start tag expected, '<' not found"},
    {"<a>\n  <b>\n", 3, 1, "Premature end of data in tag b line 2"},
    {"<a>\n  <b x='1", 2, 10, "AttValue: ' expected"},
    {"<a>\n  <b x='1'", 2, 11, "attributes construct error"},
    {"<a><!-- x", 1, 10, "Comment not terminated"},
    {"<a><![CDATA[ x", 1, 15, "CData section not finished"},
    {"<a>\n  <b></c>\n</a>\n<d", 2, 10, "Opening and ending tag mismatch: b line 2 and c"},
    {"<a>\n <b x='1' x='2'/>\n</a>", 2, 16, "Attribute x redefined"},
    {"<a>\n <b x=1/>\n</a>", 2, 7, "AttValue: \" or ' expected"},
    {"<a x='<'/>", 1, 7, "Unescaped '<' not allowed in attributes values"},
    {"<a/>\n<b/>", 2, 1, "Extra content at the end of the document"},
    {"<a/>\n\0junk"s, 2, 1, "a NUL character follows the root element"},
    {"<a>\n\0</a>"s, 2, 1, "Char 0x0 out of allowed range"},
    {"<a>\n \x01</a>", 2, 2, "PCDATA invalid Char value 1"},
    {"<a>\n &#1;</a>", 2, 6, "xmlParseCharRef: invalid xmlChar value 1"},
    {"<a>\n a & b</a>", 2, 5, "xmlParseEntityRef: no name"},
    {"<a>\n &x; </a>", 2, 5, "Entity 'x' not defined"},
    {"<a>\n <p:b/></a>", 2, 6, "Namespace prefix p on b is not defined"},
    {"<a>\n <b p:x='1'/></a>", 2, 12, "Namespace prefix p for x on b is not defined"},
    {"<a>\n \xFF</a>", 2, 2,
     "Input is not proper UTF-8, indicate encoding ! Bytes: 0xFF 0x3C 0x2F 0x61"},
    {"<?xml version='1.0' encoding='nonsense'?>\n<a/>", 1, 40, "Unsupported encoding nonsense"},
    {"\xFF\xFE<\0a\0>\0"s, 1, 4, "Premature end of data in tag a line 1"},
};

TEST(XMLProblemTest, ParseText_NotXml_ReportsTheFirstErrorAndWritesNothing) {
  for (const ProblemRow& row : kProblems) {
    ::testing::internal::CaptureStderr();
    XMLProblem problem;
    EXPECT_EQ(XMLDocument::parseText(row.document, "test.xml", problem), nullptr) << row.document;
    EXPECT_EQ(problem.text, row.text) << row.document;
    EXPECT_EQ(problem.line, row.line) << row.document;
    EXPECT_EQ(problem.column, row.column) << row.document;
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "") << row.document;
  }
}

TEST(XMLProblemTest, ParseText_EveryTruncation_IsRefusedAndWritesNothing) {
  const std::string whole =
      "<?xml version='1.0' encoding='UTF-8'?>\n<!-- c -->\n<a b='&amp;'>\n<c><![CDATA[x]]></c>"
      "\xC3\xA4<?p q?></a>";
  ::testing::internal::CaptureStderr();
  for (std::size_t size = 0; size < whole.size(); ++size) {
    XMLProblem problem;
    EXPECT_EQ(XMLDocument::parseText(whole.substr(0, size), "test.xml", problem), nullptr) << size;
    EXPECT_GE(problem.line, 1) << size;
    EXPECT_GE(problem.column, 1) << size;
    EXPECT_NE(problem.text, "") << size;
    EXPECT_EQ(problem.text.find('\n'), std::string::npos) << size;
  }
  XMLProblem problem;
  EXPECT_NE(XMLDocument::parseText(whole, "test.xml", problem), nullptr) << problem.text;
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
}

// A conversion that fails is reported without a place, past the parser.
TEST(XMLProblemTest, ParseText_EncodingIsBroken_IsRefusedAndWritesNothing) {
  ::testing::internal::CaptureStderr();
  XMLProblem problem;
  EXPECT_EQ(XMLDocument::parseText("<?xml version='1.0' encoding='SHIFT_JIS'?>\n<a>\xE4</a>\n",
                                   "test.xml", problem),
            nullptr);
  EXPECT_EQ(problem.text, "input conversion failed due to input error, bytes 0xE4 0x3C 0x2F 0x61");
  EXPECT_EQ(problem.line, 1);
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
}

TEST(XMLProblemTest, ParseText_ErrorAfterSeventyThousandLines_NamesTheLine) {
  XMLProblem problem;
  EXPECT_EQ(
      XMLDocument::parseText("<a>" + std::string(70000, '\n') + "<b></c></a>", "test.xml", problem),
      nullptr);
  EXPECT_EQ(problem.text, "Opening and ending tag mismatch: b line 70001 and c");
  EXPECT_EQ(problem.line, 70001);
  EXPECT_EQ(problem.column, 8);
}

TEST(XMLProblemTest, ParseText_Warning_IsNotAProblem) {
  ::testing::internal::CaptureStderr();
  XMLProblem problem;
  EXPECT_NE(XMLDocument::parseText("<?xml version='1.1'?>\n<a xmlns='relative' xml:lang='!'/>",
                                   "test.xml", problem),
            nullptr);
  EXPECT_EQ(problem.text, "");
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
}

TEST(XMLProblemTest, ParseText_ProblemOfAnEarlierDocument_IsForgotten) {
  XMLProblem problem{7, 8, "earlier"};
  EXPECT_NE(XMLDocument::parseText("<a/>", "test.xml", problem), nullptr);
  EXPECT_EQ(problem.line, 0);
  EXPECT_EQ(problem.column, 0);
  EXPECT_EQ(problem.text, "");
}

}  // namespace
