#include "byte_escapes.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <string>

#include "AttributeMap.h"
#include "XMLDocument.h"
#include "XMLParser.h"

namespace {

using driver_feature::unescapeBytes;

// The value of "v" in the first child of the root.
std::string valueIn(const std::string& xml) {
  XMLProblem problem;
  const auto document = XMLDocument::parseText(xml, "test.xml", problem);
  if (!document) std::abort();
  AttributeMap map;
  pParserInstance->attributes(pParserInstance->firstChild(document->root()), map);
  return map["v"];
}

TEST(ByteEscapesTest, Unescape_LowestAndHighestByte_AreTurned) {
  EXPECT_EQ(unescapeBytes("a\xEF\x9C\x81"
                          "b\xEF\x9F\xBF"
                          "c"),
            "a\x01"
            "b\xFF"
            "c");
  EXPECT_EQ(unescapeBytes("\xEF\x9C\x9B%-12345X"), "\x1B%-12345X");
  EXPECT_EQ(unescapeBytes("\xEF\x9D\x80\xEF\x9E\x80"), "@\x80");
}

TEST(ByteEscapesTest, Unescape_NeighboursOfTheEscapes_AreLeftAlone) {
  // U+F700, U+F6FF, U+F800, and texts cut short.
  for (const std::string text :
       {"\xEF\x9C\x80", "\xEF\x9B\xBF", "\xEF\xA0\x80", "\xEF\x9C", "\xEF", "", "\xC3\xA4"}) {
    EXPECT_EQ(unescapeBytes(text), text);
  }
}

TEST(ByteEscapesTest, Attributes_RootSaysYes_AreTurned) {
  EXPECT_EQ(valueIn("<r ByteEscapes='yes'><e v='&#xF71B;E\xEF\x9F\xA4'/></r>"),
            "\x1B"
            "E\xE4");
}

TEST(ByteEscapesTest, Attributes_NobodySaysYes_AreLeftAlone) {
  EXPECT_EQ(valueIn("<r><e v='&#xF71B;'/></r>"), "\xEF\x9C\x9B");
  EXPECT_EQ(valueIn("<r ByteEscapes='no'><e v='&#xF71B;'/></r>"), "\xEF\x9C\x9B");
  EXPECT_EQ(valueIn("<r ByteEscapes=''><e v='&#xF71B;'/></r>"), "\xEF\x9C\x9B");
}

TEST(ByteEscapesTest, Attributes_NearestElementCounts) {
  EXPECT_EQ(valueIn("<r ByteEscapes='yes'><e ByteEscapes='no' v='&#xF71B;'/></r>"), "\xEF\x9C\x9B");
  EXPECT_EQ(valueIn("<r ByteEscapes='no'><e ByteEscapes='yes' v='&#xF71B;'/></r>"), "\x1B");
  EXPECT_EQ(valueIn("<r xmlns:p='urn:p' p:ByteEscapes='yes'><e v='&#xF71B;'/></r>"),
            "\xEF\x9C\x9B");
}

}  // namespace
