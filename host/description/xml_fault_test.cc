#include "host/description/xml_fault.h"

#include <gtest/gtest.h>

#include "host/description/document.h"

namespace driver_feature::host {
namespace {

struct XmlFaultRow {
  std::string text;
  int line;
  int column;
  std::string problem;
};

TEST(XmlFaultTest, Document_NotXml_IsToldInOurWordsAtTheCharacter) {
  const XmlFaultRow kRows[] = {
      {"<a>\n a & b</a>", 2, 4,
       "\"&\" begins a reference here, and no name follows it; write &amp; for the character "
       "itself"},
      {"<a>\n \xC3\xA4 b&c d</a>", 2, 5,
       "\"&\" begins a reference here, and no \";\" ends it; write &amp; for the character itself, "
       "or end the reference with \";\""},
      {"<a>\n &nbsp; </a>", 2, 2,
       "there is no entity \"&nbsp;\"; write the character itself or its number, as in &#160;; the "
       "names are amp, lt, gt, quot and apos"},
      {"<!DOCTYPE a [\n<!ENTITY x 'y'>\n]>\n<a/>", 2, 15,
       "entity \"x\" is declared, which is not accepted; remove the declaration and write the text "
       "itself where the entity is used"},
      {"<a>\n &#1;</a>", 2, 2,
       "character number 1 is not allowed in XML; remove it, or write a byte escape such as "
       "&#xF71B; with ByteEscapes=\"yes\""},
      {"<a x='1 < 2'/>", 1, 9,
       "\"<\" is not allowed in a value; write &lt; for it, or end the value before it with a "
       "quotation mark"},
      {"<a>\n <b x=1/>\n</a>", 2, 7,
       "the value of an attribute has no quotation mark here; write it as in NAME=\"VALUE\""},
      {"<a b></a>", 1, 5, "attribute \"b\" has no value; write b=\"VALUE\", or remove it"},
      {"<a b='1'c='2'/>", 1, 9,
       "this is not an attribute; write NAME=\"VALUE\", with a blank before each attribute and one "
       "pair of quotation marks"},
      {"<a>\n <b x='1' x='2'/>\n</a>", 2, 16, "attribute \"x\" is given twice; remove one of them"},
      {"<a>\n  <b></c>\n</a>", 2, 10,
       "</c> ends an element while <b> of line 2 is still open; write </b> before it, or correct "
       "one of the names"},
      {"<a>\n  <b>\n", 3, 1,
       "the file ends while <b> of line 2 is still open; write </b> where the element ends"},
      {"<a>1 < 2</a>", 1, 6,
       "no name of an element follows this \"<\"; write &lt; for the character itself"},
      {"<a/>\n<b/>", 2, 1,
       "something follows the end of the root element; put it into the root element, or remove it"},
      {"hello", 1, 1, "there is no element; give a file that is XML"},
      {"", 1, 1, "the file is empty; give a file that is XML"},
      {"<a>\n \xFF</a>", 2, 2,
       "a byte here is not UTF-8; save the file as UTF-8, or name its encoding in the first line: "
       "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>"},
      {"<?xml version='1.0' encoding='nonsense'?>\n<a/>", 1, 40,
       "the encoding \"nonsense\" is not known; save the file as UTF-8 and leave encoding=\"...\" "
       "out"},
      {"<a><!-- x", 1, 10, "a comment does not end; end it with -->"},
      {"<a><!-- x -- y --></a>", 1, 11, "\"--\" is not allowed in a comment; write one hyphen"},
      {"<a>\n <p:b/></a>", 2, 6,
       "the prefix \"p\" of <b> is not declared; remove the prefix, or declare it with "
       "xmlns:p=\"...\""},
      {"<a>\n <b p:x='1'/></a>", 2, 12,
       "the prefix \"p\" of attribute \"x\" of <b> is not declared; remove the prefix, or declare "
       "it with xmlns:p=\"...\""},
      {"\n<?xml version='1.0'?><a/>", 2, 6,
       "the XML declaration is not at the start of the file; remove what is before it, blanks and "
       "empty lines too"},
  };
  for (const XmlFaultRow& row : kRows) {
    SCOPED_TRACE(row.text);
    const auto document = Document::ofText("d.xml", row.text);
    ASSERT_FALSE(document);
    EXPECT_EQ(document.error().text + "; " + document.error().remedy, row.problem);
    EXPECT_EQ(document.error().position.line, row.line);
    EXPECT_EQ(document.error().position.column, row.column);
  }
}

TEST(XmlFaultTest, Fault_MessageOfAnotherParser_IsNotRepeated) {
  const XmlFault fault = xmlFault("Malformed whatsit", {1, 2}, "<a");
  EXPECT_EQ(fault.text, "the text is not XML");
  EXPECT_EQ(fault.remedy, "correct it there or just before");
  EXPECT_EQ(fault.position, (Position{1, 2}));
}

}  // namespace
}  // namespace driver_feature::host
