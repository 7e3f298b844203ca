#include "XMLParser.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>
#include <memory>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "AttributeMap.h"
#include "XMLDocument.h"

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

std::unique_ptr<XMLDocument> parse(const std::string& text) {
  XMLProblem problem;
  auto document = XMLDocument::parseText(text, "test.xml", problem);
  if (document) return document;
  std::cerr << problem.line << ':' << problem.column << ": " << problem.text << '\n';
  std::abort();
}

std::string tagOf(void* element) {
  std::string tag = "before";
  pParserInstance->tagName(element, tag);
  return tag;
}

std::vector<std::string> childTags(void* element) {
  std::vector<std::string> tags;
  for (void* child = pParserInstance->firstChild(element); child != nullptr;
       child = pParserInstance->nextSibling(child)) {
    tags.push_back(tagOf(child));
  }
  return tags;
}

std::vector<std::pair<std::string, std::string>> pairsOf(const AttributeMap& map) {
  std::vector<std::pair<std::string, std::string>> entries;
  std::string name;
  std::string value;
  for (long i = 0; map.fetchAttributeValueByIndex(i, name, value); ++i) {
    entries.emplace_back(name, value);
  }
  return entries;
}

std::vector<std::pair<std::string, std::string>> attributesOf(void* element) {
  AttributeMap map;
  pParserInstance->attributes(element, map);
  return pairsOf(map);
}

// The attributes of each child, read into one map that is cleared between them.
std::vector<std::vector<std::pair<std::string, std::string>>> attributesOfChildren(
    const std::string& children) {
  const auto document = parse("<All>" + children + "</All>");
  std::vector<std::vector<std::pair<std::string, std::string>>> attributes;
  AttributeMap map;
  for (void* child = pParserInstance->firstChild(document->root()); child != nullptr;
       child = pParserInstance->nextSibling(child)) {
    pParserInstance->attributes(child, map);
    attributes.push_back(pairsOf(map));
    map.clear();
  }
  return attributes;
}

TEST(XMLParserTest, TagName_Element_ReplacesTheText) {
  const auto document = parse("<Feature/>");
  EXPECT_EQ(tagOf(document->root()), "Feature");
}

TEST(XMLParserTest, Children_OtherNodesBetween_OnlyElementsCount) {
  const auto document = parse(
      "<?xml version='1.0'?>\n<!-- before --><?before it?>\n"
      "<Feature>text<!-- comment --><?target data?><One/>text<![CDATA[<No/>]]>&amp;\n"
      "<Two><Inner/></Two><!-- c --><Three/>\n</Feature>\n<!-- after -->");
  EXPECT_THAT(childTags(document->root()), ElementsAre("One", "Two", "Three"));
  EXPECT_EQ(pParserInstance->childCount(document->root()), 3);
}

TEST(XMLParserTest, Children_OnlyText_ThereAreNone) {
  const auto document = parse("<Feature>text<!-- c --><![CDATA[<No/>]]></Feature>");
  EXPECT_EQ(pParserInstance->firstChild(document->root()), nullptr);
  EXPECT_EQ(pParserInstance->childCount(document->root()), 0);
}

TEST(XMLParserTest, NextSibling_Root_IsNone) {
  const auto document = parse("<Feature/><!-- after -->");
  EXPECT_EQ(pParserInstance->nextSibling(document->root()), nullptr);
}

TEST(XMLParserTest, Attributes_Element_AreAddedToTheMap) {
  const auto document = parse("<Feature Name='Duplex' Type='3' Empty=''/>");
  AttributeMap map;
  map["Kept"] = "k";
  map["Type"] = "replaced";
  pParserInstance->attributes(document->root(), map);
  EXPECT_EQ(map.size(), 4);
  EXPECT_EQ(map["Kept"], "k");
  EXPECT_EQ(map["Name"], "Duplex");
  EXPECT_EQ(map["Type"], "3");
  EXPECT_EQ(map["Empty"], "");
}

// By both readers: a document type is not plain.
TEST(XMLParserTest, Attributes_MapIsCleared_NothingOfAnEarlierElementIsLeft) {
  EXPECT_THAT(attributesOfChildren("<a Name='one' Text='1'/>"  // The same names,
                                   "<a Text='2' Name='two'/>"  // in another order,
                                   "<a Name='three'/>"         // fewer, others, and more.
                                   "<a Key='four'/>"
                                   "<a Key='five' Name='5' Text=''/>"
                                   "<a/>"
                                   "<a Name='seven'/>"),
              ElementsAre(ElementsAre(Pair("Name", "one"), Pair("Text", "1")),
                          ElementsAre(Pair("Name", "two"), Pair("Text", "2")),
                          ElementsAre(Pair("Name", "three")), ElementsAre(Pair("Key", "four")),
                          ElementsAre(Pair("Key", "five"), Pair("Name", "5"), Pair("Text", "")),
                          IsEmpty(), ElementsAre(Pair("Name", "seven"))));
}

TEST(XMLParserTest, Attributes_ByteEscapesInAReusedMap_AreResolved) {
  EXPECT_THAT(
      attributesOfChildren("<a ByteEscapes='yes' Name='&#xF71B;E'/><a ByteEscapes='no' Name='b'/>"),
      ElementsAre(ElementsAre(Pair("ByteEscapes", "yes"), Pair("Name",
                                                               "\x1B"
                                                               "E")),
                  ElementsAre(Pair("ByteEscapes", "no"), Pair("Name", "b"))));
}

TEST(XMLParserTest, Attributes_MapWithEntries_KeepsThem) {
  const auto document = parse("<Feature Name='A'/>");
  AttributeMap cleared;
  cleared["Name"] = "of before";
  cleared.clear();
  AttributeMap map;
  map["Kept"] = "1";
  pParserInstance->attributes(document->root(), map);
  EXPECT_THAT(pairsOf(map), ElementsAre(Pair("Kept", "1"), Pair("Name", "A")));
}

TEST(XMLParserTest, Attributes_NamesOfTheClearedMap_TakeItsMemory) {
  const auto document = parse("<Feature A='1' B='2' C='3'/>");
  AttributeMap map;
  pParserInstance->attributes(document->root(), map);
  const std::vector<std::string*> before = {&map["A"], &map["B"], &map["C"]};
  map.clear();
  AttributeMap other;
  pParserInstance->attributes(document->root(), other);
  EXPECT_THAT(before, ElementsAre(&other["A"], &other["B"], &other["C"]));
  EXPECT_EQ(map.size(), 0);
}

// A map that outlives what its thread keeps for the next one.
TEST(XMLParserTest, Attributes_ThreadEnds_MapsCanBeClearedAndFilled) {
  struct Late {
    AttributeMap map;
    std::vector<std::pair<std::string, std::string>>* seen = nullptr;
    ~Late() {
      map.clear();
      const auto document = parse("<a Name='late'/>");
      pParserInstance->attributes(document->root(), map);
      *seen = pairsOf(map);
      map.clear();
    }
  };
  std::vector<std::pair<std::string, std::string>> seen;
  std::thread([&seen] {
    thread_local Late late;
    late.seen = &seen;
    attributesOfChildren("<a Name='early'/>");
  }).join();
  EXPECT_THAT(seen, ElementsAre(Pair("Name", "late")));
}

TEST(XMLParserTest, Attributes_References_AreResolved) {
  for (const std::string head : {"", "<!DOCTYPE a>"}) {
    const auto document = parse(
        head +
        "<a b='&lt;&gt;&amp;&quot;&apos;&#65;&#xE4;' c='&amp;amp;&amp;#65;' d='&#13;&#10;&#9;'"
        " e='\n\t'/>");
    EXPECT_THAT(attributesOf(document->root()),
                ElementsAre(Pair("b", "<>&\"'A\xC3\xA4"), Pair("c", "&amp;&#65;"),
                            Pair("d", "\r\n\t"), Pair("e", "  ")));
  }
}

TEST(XMLParserTest, Attributes_None_LeavesTheMapAlone) {
  const auto document = parse("<a/>");
  EXPECT_THAT(attributesOf(document->root()), IsEmpty());
}

TEST(XMLParserTest, Namespaces_TagLosesItsPrefixAndAttributesKeepTheirs) {
  const auto document =
      parse("<p:Feature xmlns:p='urn:p' xmlns='urn:q' Name='a' p:Name='b' xml:lang='de'/>");
  EXPECT_EQ(tagOf(document->root()), "Feature");
  EXPECT_THAT(attributesOf(document->root()),
              ElementsAre(Pair("Name", "a"), Pair("p:Name", "b"), Pair("xml:lang", "de")));
}

TEST(XMLParserTest, Attributes_ValueOfOneMebibyte_IsReturnedWhole) {
  const std::string value = "a" + std::string((1U << 20) - 2, 'v') + "z";
  const auto document = parse("<a>\n<b Value='" + value + "'/></a>");
  AttributeMap map;
  pParserInstance->attributes(pParserInstance->firstChild(document->root()), map);
  EXPECT_TRUE(map["Value"] == value);
}

TEST(XMLParserTest, Operations_Null_ReturnNothing) {
  EXPECT_EQ(tagOf(nullptr), "");
  EXPECT_EQ(pParserInstance->firstChild(nullptr), nullptr);
  EXPECT_EQ(pParserInstance->nextSibling(nullptr), nullptr);
  EXPECT_EQ(pParserInstance->childCount(nullptr), 0);
  EXPECT_THAT(attributesOf(nullptr), IsEmpty());
}

// Calls the operation in a slot of the parser's table as a host's binary does.
template <class Result, class... Arguments>
Result callSlot(int slot, Arguments... arguments) {
  auto** table = *reinterpret_cast<void***>(pParserInstance);
  auto operation = reinterpret_cast<Result (*)(XMLParser*, Arguments...)>(table[slot]);
  return operation(pParserInstance, arguments...);
}

TEST(XMLParserTest, Slots_EveryOperation_IsInItsPlace) {
  const auto document = parse("<Feature Name='a'><One/><Two/></Feature>");
  void* root = document->root();
  std::string tag;
  callSlot<void, void*, std::string&>(0, root, tag);
  EXPECT_EQ(tag, "Feature");
  callSlot<void>(1);
  void* one = callSlot<void*, void*>(2, root);
  EXPECT_EQ(tagOf(one), "One");
  EXPECT_EQ(tagOf(callSlot<void*, void*>(3, one)), "Two");
  callSlot<void>(4);
  EXPECT_EQ((callSlot<int, void*>(5, root)), 2);
  AttributeMap map;
  callSlot<void, void*, AttributeMap&>(6, root, map);
  EXPECT_EQ(map["Name"], "a");
}

}  // namespace
