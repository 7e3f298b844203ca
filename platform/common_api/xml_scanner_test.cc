// What the scanner takes for a plain document, and that libxml2 takes all of it
// as well and finds the same in it.

#include "xml_scanner.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "scanned_elements.h"

namespace driver_feature {
namespace {

using namespace std::string_literals;
using ::testing::ElementsAre;

struct DocumentRow {
  std::string text;
  std::string elements;
};

TEST(XMLScannerTest, PlainDocument_IsReadAsLibxml2ReadsIt) {
  const DocumentRow rows[] = {
      {"<a/>", "0 1 a\n"},
      {"<?xml version='1.0' encoding=\"utf-8\" standalone = 'yes' ?>\n<a></a>\n", "0 2 a\n"},
      {"<?xml\nversion\n=\n\"1.0\"?><a />", "0 4 a\n"},
      {"<!-- - - -->\n<?p?><?p - ? > ?><a_1.2-b/>\n<!----><?q\n?>\n", "0 2 a_1.2-b\n"},
      {"<a x='1' y = \"2\"\n\tz\n=\n'3'/>", "0 1 a x=[1] y=[2] z=[3]\n"},
      {"<a x='\"' y=\"'\" z='>'/>", "0 1 a x=[\"] y=['] z=[>]\n"},
      {"<a x='&lt;&gt;&amp;&quot;&apos;'/>", "0 1 a x=[<>&\"']\n"},
      {"<a x='&#65;&#x4a;&#xE4;&#x20ac;&#128424;&#10;&#0000009;|'/>",
       "0 1 a x=[AJ\xC3\xA4\xE2\x82\xAC\xF0\x9F\x96\xA8\n\t|]\n"},
      {"<a x=' 1\n2\r\n3\r4\t5\r&#10;\r\r\n'/>", "0 1 a x=[ 1 2 3 4 5 \n  ]\n"},
      {"<a>text &amp; &#65; ] ]] \xC3\xA4 > '\"\n<b/>\n<![CDATA[ <c> & ]] ]>\n]]>\n<!-- \n<d> -->"
       "<e><f/></e\n></a>",
       "0 1 a\n1 2 b\n1 6 e\n2 6 f\n"},
      {"<a x='\xC3\xA4\xE2\x82\xAC\xEF\xBF\xBD\xF0\x90\x80\x80\xF4\x8F\xBF\xBF\x7F'/>",
       "0 1 a x=[\xC3\xA4\xE2\x82\xAC\xEF\xBF\xBD\xF0\x90\x80\x80\xF4\x8F\xBF\xBF\x7F]\n"},
  };
  for (const DocumentRow& row : rows) {
    EXPECT_EQ(scan(row.text), row.elements) << row.text;
    EXPECT_EQ(readCarefully(row.text), row.elements) << row.text;
  }
}

TEST(XMLScannerTest, XmlThatIsNotPlain_IsLeftToLibxml2) {
  const std::string texts[] = {
      "\xEF\xBB\xBF<a/>",          "<?xml version='1.0' encoding='ISO-8859-1'?><a/>",
      "<?xml version='1.1'?><a/>", "<!DOCTYPE a><a/>",
      "<a xmlns='urn:x'/>",        "<a xml:lang='de'/>",
      "<p:a xmlns:p='urn:p'/>",    "<\xC3\xA4/>",
      "<a \xC3\xA4='1'/>",         "\xFF\xFE<\0a\0/\0>\0"s,
  };
  for (const std::string& text : texts) {
    EXPECT_EQ(scan(text), "") << text;
    EXPECT_NE(readCarefully(text), "") << text;
  }
}

TEST(XMLScannerTest, NotWellFormed_IsRefused) {
  const std::string texts[] = {
      "",
      " ",
      "a",
      "<",
      "<a",
      "<a>",
      "<a></b>",
      "<a></a",
      "<a></ab>",
      "<ab></a>",
      "<a/><b/>",
      "<a/>x",
      "x<a/>",
      "</a>",
      "<a/ >",
      "< a/>",
      "<1/>",
      "<-a/>",
      "<a></ a>",
      "<a b/>",
      "<a b=/>",
      "<a b=c/>",
      "<a b='c/>",
      "<a b='1'c='2'/>",
      "<a b='1' b='2'/>",
      "<a b='<'/>",
      "<a b='&'/>",
      "<a b='&x;'/>",
      "<a b='&lt'/>",
      "<a b='&#;'/>",
      "<a b='&#x;'/>",
      "<a b='&#xG;'/>",
      "<a b='&#a;'/>",
      "<a b='&#X41;'/>",
      "<a b='&#65'/>",
      "<a b='&#0;'/>",
      "<a b='&#1;'/>",
      "<a b='&#xD800;'/>",
      "<a b='&#xDFFF;'/>",
      "<a b='&#xFFFE;'/>",
      "<a b='&#xFFFF;'/>",
      "<a b='&#x110000;'/>",
      "<a b='&#4294967361;'/>",
      "<a b='&#18446744073709551681;'/>",
      "<a b='\x01'/>",
      "<a b='\0'/>"s,
      "<a>&x;</a>",
      "<a>&</a>",
      "<a>]]></a>",
      "<a>\x1F</a>",
      "<a>\0</a>"s,
      "<a/>\0"s,
      "<a><![CDATA[</a>",
      "<a><![CDATA[]]</a>",
      "<a><![cdata[]]></a>",
      "<a><!x></a>",
      "<![CDATA[]]><a/>",
      "<!-- -- --><a/>",
      "<!-- ---><a/>",
      "<!-><a/>",
      "<!--><a/>",
      "<a><!-- </a>",
      "<a><!--\x02--></a>",
      "<?xml?><a/>",
      "<?xml version='1.0'><a/>",
      "<?xml version='2.0'?><a/>x",
      "<?xml version='1.0\"?><a/>",
      "<?xml encoding='UTF-8'?><a/>",
      "<?xml version='1.0'encoding='UTF-8'?><a/>",
      "<?xml version='1.0' standalone='maybe'?><a/>",
      "<?xml version='1.0' standalone='yes' encoding='UTF-8'?><a/>",
      " <?xml version='1.0'?><a/>",
      "<a/><?xml version='1.0'?>",
      "<?XmL p?><a/>",
      "<?xMl p?><a/>",
      "<?"
      "?><a/>",
      "<?p<a/>",
      "<?p+?><a/>",
      "<?p \x02?><a/>",
      // Not UTF-8, not its shortest form, or not a character.
      "<a>\x80</a>",
      "<a>\xC0\x80</a>",
      "<a>\xC1\xBF</a>",
      "<a>\xC3</a>",
      "<a>\xE0\x9F\xBF</a>",
      "<a>\xE2\x82</a>",
      "<a>\xED\xA0\x80</a>",
      "<a>\xEF\xBF\xBE</a>",
      "<a>\xEF\xBF\xBF</a>",
      "<a>\xF0\x8F\xBF\xBF</a>",
      "<a>\xF0\x9F\x96</a>",
      "<a>\xF4\x90\x80\x80</a>",
      "<a>\xF5\x80\x80\x80</a>",
      "<a>\xFF</a>",
  };
  for (const std::string& text : texts) {
    EXPECT_EQ(scan(text), "") << text;
    EXPECT_EQ(readCarefully(text), "") << text;
  }
}

std::string nested(int depth, const std::string& inner) {
  std::string text;
  for (int i = 0; i < depth; ++i) text += "<a>";
  text += inner;
  for (int i = 0; i < depth; ++i) text += "</a>";
  return text;
}

TEST(XMLScannerTest, Depth_256_IsTheHighest) {
  EXPECT_NE(scan(nested(256, "")), "");
  EXPECT_NE(scan(nested(255, "<b/>")), "");
  EXPECT_EQ(scan(nested(257, "")), "");
  EXPECT_EQ(scan(nested(256, "<b/>")), "");
}

TEST(XMLScannerTest, Attributes_SixtyFour_AreTheMost) {
  std::string tag = "<a";
  for (int i = 0; i < 64; ++i) tag += " a" + std::to_string(i) + "='" + std::to_string(i) + "'";
  EXPECT_EQ(scan(tag + "/>"), readCarefully(tag + "/>"));
  EXPECT_NE(scan(tag + "/>"), "");
  EXPECT_EQ(scan(tag + " b=''/>"), "");
  EXPECT_NE(readCarefully(tag + " b=''/>"), "");
}

TEST(XMLScannerTest, Name_ThousandCharacters_IsTheLongest) {
  const std::string name(1000, 'n');
  EXPECT_EQ(scan("<" + name + "/>"), "0 1 " + name + "\n");
  EXPECT_EQ(scan("<" + name + "n/>"), "");
}

TEST(XMLScannerTest, NamesThatAnotherReaderHasChecked_AreTaken) {
  EXPECT_EQ(scan("<\xC3\xA4 p:b='1' \xC3\xA4='2'><c></c></\xC3\xA4>", Names::kAny),
            "0 1 \xC3\xA4 p:b=[1] \xC3\xA4=[2]\n1 1 c\n");
}

// Marks with the tag whether values hold byte escapes.
std::vector<std::string> escapedTags(std::string text, Names names) {
  Elements elements;
  std::vector<std::string> tags;
  if (scanPlainText(text.data(), text.size(), names, elements) == nullptr) return tags;
  for (const Element& element : elements) {
    if (element.isEscaped()) tags.emplace_back(nameAt(element.tag()));
  }
  return tags;
}

TEST(XMLScannerTest, ByteEscapes_HoldForTheElementAndThoseInIt) {
  const std::string text =
      "<a><b ByteEscapes='yes'><c><d ByteEscapes='no'><e/></d><f/></c></b><g/>"
      "<h ByteEscapes='&#121;es'/><i ByteEscapes='Yes'/><j byteEscapes='yes'/></a>";
  EXPECT_THAT(escapedTags(text, Names::kPlain), ElementsAre("b", "c", "f", "h"));
  EXPECT_THAT(escapedTags("<a><b p:ByteEscapes='yes'/></a>", Names::kAny), ElementsAre());
}

}  // namespace
}  // namespace driver_feature
