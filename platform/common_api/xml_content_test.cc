// The text in an element, of plain documents and of those that libxml2 reads.

#include <gtest/gtest.h>

#include <string>

#include "XMLDocument.h"
#include "XMLParser.h"

namespace {

XMLContent contentOfRoot(const std::string& text) {
  XMLProblem problem;
  const auto document = XMLDocument::parseText(text, "test.xml", problem);
  if (!document) return {"problem: " + problem.text, 0};
  return XMLDocument::contentOf(document->root());
}

struct ContentRow {
  const char* name;
  const char* document;
  const char* content;
};

constexpr ContentRow kContentRows[] = {
    {"no end tag", "<a x='1'/>", ""},
    {"empty", "<a></a>", ""},
    {"plain", "<a x='>'> two words </a>", " two words "},
    {"references", "<a>&lt;&#65;&#xE4;&gt;&amp;</a>", "<A\xC3\xA4>&"},
    {"comment", "<a>one<!-- <b/> & -->two</a>", "onetwo"},
    {"instruction", "<a>one<?x > ?>two</a>", "onetwo"},
    {"character data", "<a>1<![CDATA[<b> & \r\n]]>2</a>", "1<b> & \n2"},
    {"line ends", "<a>1\r\n2\r3\n4</a>", "1\n2\n3\n4"},
    {"written line end", "<a>1&#13;2</a>", "1\r2"},
    {"before the first child", "<a>one<b>two</b>three</a>", "one"},
};

TEST(XMLContentTest, ContentOf_Rows_IsTheTextBeforeTheFirstChild) {
  for (const ContentRow& row : kContentRows) {
    EXPECT_EQ(contentOfRoot(row.document).text, row.content) << row.name;
    const std::string marked = "\xEF\xBB\xBF" + std::string(row.document);
    EXPECT_EQ(contentOfRoot(marked).text, row.content) << row.name << ", read by libxml2";
  }
}

TEST(XMLContentTest, ContentOf_TagOfSeveralLines_BeginsOnItsLastLine) {
  EXPECT_EQ(contentOfRoot("<!-- x -->\n<a\n x='1'\n>text</a>").line, 4);
}

TEST(XMLContentTest, ContentOf_Nothing_IsEmpty) {
  EXPECT_EQ(XMLDocument::contentOf(nullptr).text, "");
  EXPECT_EQ(XMLDocument::contentOf(nullptr).line, 0);
}

}  // namespace
