#include "host/ppd/byte_escapes.h"

#include <gtest/gtest.h>

#include <string>

#include "AttributeMap.h"
#include "XMLDocument.h"
#include "XMLParser.h"
#include "host/ppd/import/description_text.h"

namespace {

using driver_feature::ppd::descriptionText;
using driver_feature::ppd::escapeBytes;

// A value as it comes back from a description's XML.
std::string afterXml(const std::string& value) {
  XMLProblem problem;
  const auto document =
      XMLDocument::parseText(descriptionText({"R", {{"v", value}}, {}}), "r.xml", problem);
  if (!document) return "refused: " + problem.text;
  AttributeMap map;
  pParserInstance->attributes(document->root(), map);
  return map["v"];
}

TEST(ByteEscapesTest, Escape_WhatXmlHolds_IsLeftAlone) {
  const std::string text = "a%&<>\"'\t\r\n~\x7F \xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80";
  EXPECT_EQ(escapeBytes(text), text);
}

TEST(ByteEscapesTest, Escape_ControlsAndLooseBytes_BecomeEscapes) {
  EXPECT_EQ(escapeBytes("\x01\x1B\x1F"), "\xEF\x9C\x81\xEF\x9C\x9B\xEF\x9C\x9F");
  EXPECT_EQ(escapeBytes("\xE4\xFF"), "\xEF\x9F\xA4\xEF\x9F\xBF");
  EXPECT_EQ(escapeBytes("\x80\xBF"), "\xEF\x9E\x80\xEF\x9E\xBF");
}

TEST(ByteEscapesTest, Escape_CharactersThatWouldBeEscapes_BecomeTheirBytes) {
  EXPECT_EQ(escapeBytes("\xEF\x9C\x81"), "\xEF\x9F\xAF\xEF\x9E\x9C\xEF\x9E\x81");
}

TEST(ByteEscapesTest, RoundTrip_EveryByteAloneAndInPairs_IsUnchanged) {
  for (int first = 1; first < 256; ++first) {
    std::string pairs;
    for (int second = 1; second < 256; ++second) {
      pairs += static_cast<char>(first);
      pairs += static_cast<char>(second);
    }
    EXPECT_TRUE(afterXml(pairs) == pairs) << first;
  }
}

TEST(ByteEscapesTest, RoundTrip_CharactersAtTheBordersOfUtf8_AreUnchanged) {
  for (const std::string text :
       {"\xED\xA0\x80", "\xED\x9F\xBF", "\xEF\xBF\xBD", "\xEF\xBF\xBE", "\xEF\xBF\xBF",
        "\xEF\x9C\x80", "\xEF\x9F\xBF", "\xEF\x9B\xBF", "\xEF\xA0\x80", "\xF4\x8F\xBF\xBF",
        "\xF4\x90\x80\x80", "\xC0\x80", "\xE0\x80\x80", "\xC2\x85", "\xE2\x80\xA8"}) {
    EXPECT_EQ(afterXml(text), text);
  }
}

TEST(DescriptionTextTest, Values_NothingEscaped_RootDoesNotSaySo) {
  EXPECT_EQ(descriptionText({"R", {{"v", "\xC3\xA4\n\"<&"}}, {{"C", {{"w", "\r\t'"}}, {}}}}),
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
            "<R v=\"\xC3\xA4&#10;&quot;&lt;&amp;\">\n"
            "  <C w=\"&#13;&#9;'\"/>\n"
            "</R>\n");
}

TEST(DescriptionTextTest, Values_OneEscapedBelow_RootSaysSo) {
  EXPECT_EQ(descriptionText({"R", {}, {{"C", {}, {{"D", {{"v", "\x1B"}}, {}}}}, {"E", {}, {}}}}),
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
            "<R ByteEscapes=\"yes\">\n"
            "  <C>\n"
            "    <D v=\"\xEF\x9C\x9B\"/>\n"
            "  </C>\n"
            "  <E/>\n"
            "</R>\n");
}

}  // namespace
