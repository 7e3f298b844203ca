// What is refused in a document although it is XML, and what is never fetched.

#include <libxml/parser.h>
#include <libxml/xmlerror.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "AttributeMap.h"
#include "XMLDocument.h"
#include "XMLParser.h"

namespace {

using ::testing::IsEmpty;

// Writes down what libxml2 wants to open while this lives.
class OpenedResources {
 public:
  OpenedResources() : before_(xmlGetExternalEntityLoader()) {
    resources().clear();
    xmlSetExternalEntityLoader(note);
  }
  ~OpenedResources() { xmlSetExternalEntityLoader(before_); }
  OpenedResources(const OpenedResources&) = delete;
  OpenedResources& operator=(const OpenedResources&) = delete;

  static std::vector<std::string>& resources() {
    static std::vector<std::string> opened;
    return opened;
  }

 private:
  static xmlParserInputPtr note(const char* url, const char* /*id*/, xmlParserCtxtPtr /*parser*/) {
    resources().emplace_back(url != nullptr ? url : "");
    return nullptr;
  }

  xmlExternalEntityLoader before_;
};

struct RefusalRow {
  std::string document;
  int line;
  int column;
  std::string text;
};

void expectRefused(const RefusalRow& row) {
  const OpenedResources opened;
  ::testing::internal::CaptureStderr();
  XMLProblem problem;
  EXPECT_EQ(XMLDocument::parseText(row.document, "test.xml", problem), nullptr) << row.document;
  EXPECT_EQ(problem.text, row.text) << row.document;
  EXPECT_EQ(problem.line, row.line) << row.document;
  EXPECT_EQ(problem.column, row.column) << row.document;
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "") << row.document;
  EXPECT_THAT(OpenedResources::resources(), IsEmpty()) << row.document;
}

std::string entityLine(const std::string& name) {
  return "entity '" + name + "' is declared; entity declarations are not accepted";
}

TEST(XMLRefusalTest, ParseText_EntityDeclaration_IsRefusedAtItsEnd) {
  const RefusalRow rows[] = {
      {"<!DOCTYPE a [\n  <!ENTITY x 'y'>\n]>\n<a>&x;</a>", 2, 17, entityLine("x")},
      {"<!DOCTYPE a [\n<!ENTITY % x 'y'>%x;\n]>\n<a/>", 2, 17, entityLine("x")},
      {"<!DOCTYPE a [\n<!ENTITY x SYSTEM '/etc/passwd'>\n]>\n<a>&x;</a>", 2, 32, entityLine("x")},
      {"<!DOCTYPE a [\n<!ENTITY % x SYSTEM '/etc/passwd'>\n%x;]>\n<a/>", 2, 34, entityLine("x")},
      {"<!DOCTYPE a [\n<!ENTITY x PUBLIC 'p' 'http://127.0.0.1:9/x'>\n]>\n<a>&x;</a>", 2, 45,
       entityLine("x")},
      {"<!DOCTYPE a [\n<!NOTATION g SYSTEM 'g'>\n<!ENTITY pic SYSTEM 'p' NDATA g>\n]>\n<a/>", 3, 32,
       entityLine("pic")},
      // The error of the element after it is the second one.
      {"<!DOCTYPE a [\n<!ENTITY lt2 'y'>\n]>\n<a></b>", 2, 17, entityLine("lt2")},
  };
  for (const RefusalRow& row : rows) expectRefused(row);
}

TEST(XMLRefusalTest, ParseText_BillionLaughs_IsRefusedAtOnce) {
  std::string document = "<!DOCTYPE a [\n<!ENTITY l0 'ha'>\n";
  for (int i = 1; i <= 30; ++i) {
    document += "<!ENTITY l" + std::to_string(i) + " '";
    for (int j = 0; j < 10; ++j) document += "&l" + std::to_string(i - 1) + ";";
    document += "'>\n";
  }
  const auto start = std::chrono::steady_clock::now();
  expectRefused({document + "]>\n<a>&l30;</a>", 2, 17, entityLine("l0")});
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
}

TEST(XMLRefusalTest, ParseText_DefaultValueOfAnAttribute_IsRefused) {
  const std::string rest = "' is given a default value; default values are not accepted";
  expectRefused(
      {"<!DOCTYPE a [\n<!ATTLIST a bb CDATA 'q'>\n]>\n<a/>", 2, 25, "attribute 'bb" + rest});
  expectRefused(
      {"<!DOCTYPE a [\n<!ATTLIST a b CDATA #FIXED 'q'>\n]>\n<a/>", 2, 31, "attribute 'b" + rest});
  expectRefused(
      {"<!DOCTYPE a [\n<!ATTLIST a b (x|y) 'x'>\n]>\n<a/>", 2, 24, "attribute 'b" + rest});
}

TEST(XMLRefusalTest, ParseText_OtherDeclarations_AreRead) {
  const OpenedResources opened;
  XMLProblem problem;
  const auto document = XMLDocument::parseText(
      "<!DOCTYPE a [\n<!ELEMENT a ANY>\n<!ATTLIST a b CDATA #IMPLIED c (x|y) #REQUIRED>\n"
      "<!NOTATION g SYSTEM 'g'>\n]>\n<a/>",
      "test.xml", problem);
  ASSERT_NE(document, nullptr) << problem.text;
  AttributeMap map;
  pParserInstance->attributes(document->root(), map);
  EXPECT_EQ(map.size(), 0);
}

TEST(XMLRefusalTest, ParseText_DeclaredTwice_IsRefusedAndWritesNothing) {
  expectRefused({"<!DOCTYPE a [\n<!ELEMENT a ANY>\n<!ELEMENT a ANY>]>\n<a/>", 3, 17,
                 "Redefinition of element a"});
}

TEST(XMLRefusalTest, ParseText_ExternalSubset_IsNotFetched) {
  const OpenedResources opened;
  const std::string subset = ::testing::TempDir() + "platform_subset.dtd";
  std::ofstream(subset) << "<!ATTLIST a b CDATA 'q'>\n<!ENTITY x 'y'>\n";
  for (const std::string& place : {subset, std::string("http://127.0.0.1:9/x.dtd")}) {
    XMLProblem problem;
    const auto document =
        XMLDocument::parseText("<!DOCTYPE a SYSTEM '" + place + "'>\n<a/>", "test.xml", problem);
    ASSERT_NE(document, nullptr) << problem.text;
    AttributeMap map;
    pParserInstance->attributes(document->root(), map);
    EXPECT_EQ(map.size(), 0);
  }
  EXPECT_THAT(OpenedResources::resources(), IsEmpty());
  expectRefused(
      {"<!DOCTYPE a SYSTEM '" + subset + "'>\n<a>\n&x;</a>", 3, 4, "Entity 'x' not defined"});
  expectRefused({"<!DOCTYPE a SYSTEM '" + subset + "'>\n<a>\n<b c='&x;'/></a>", 3, 10,
                 "Entity 'x' not defined"});
  std::filesystem::remove(subset);
}

TEST(XMLRefusalTest, ParseText_Inclusion_IsAnElementLikeAnyOther) {
  const OpenedResources opened;
  XMLProblem problem;
  const auto document = XMLDocument::parseText(
      "<a xmlns:xi='http://www.w3.org/2001/XInclude'><xi:include href='/etc/passwd'"
      " parse='text'/></a>",
      "test.xml", problem);
  ASSERT_NE(document, nullptr) << problem.text;
  EXPECT_EQ(pParserInstance->childCount(document->root()), 1);
  std::string tag;
  pParserInstance->tagName(pParserInstance->firstChild(document->root()), tag);
  EXPECT_EQ(tag, "include");
  EXPECT_THAT(OpenedResources::resources(), IsEmpty());
}

std::string nested(int depth) {
  std::string document;
  for (int i = 0; i < depth; ++i) document += "<a>\n";
  for (int i = 0; i < depth; ++i) document += "</a>";
  return document;
}

TEST(XMLRefusalTest, ParseText_ElementsNestedDeep_AreReadToDepth256) {
  XMLProblem problem;
  const auto document = XMLDocument::parseText(nested(256), "test.xml", problem);
  ASSERT_NE(document, nullptr) << problem.text;
  int depth = 0;
  for (void* element = document->root(); element != nullptr;
       element = pParserInstance->firstChild(element)) {
    EXPECT_EQ(XMLDocument::lineOf(element), ++depth);
  }
  EXPECT_EQ(depth, 256);
  expectRefused({nested(257), 257, 3, "elements are nested deeper than 256"});
  std::string unclosed;
  for (int i = 0; i < 1000000; ++i) unclosed += "<a>";
  expectRefused({unclosed, 1, 771, "elements are nested deeper than 256"});
}

void countError(void* count, const xmlError* /*error*/) {
  ++*static_cast<int*>(count);
}

TEST(XMLRefusalTest, ParseText_HostHandlesErrorsOfLibxml2_ItsHandlerIsKeptAndNotCalled) {
  int count = 0;
  const auto handler = reinterpret_cast<xmlStructuredErrorFunc>(countError);
  xmlSetStructuredErrorFunc(&count, handler);
  XMLProblem problem;
  EXPECT_EQ(XMLDocument::parseText("<?xml version='1.0' encoding='SHIFT_JIS'?>\n<a>\xE4</a>\n",
                                   "test.xml", problem),
            nullptr);
  EXPECT_EQ(xmlStructuredError, handler);
  EXPECT_EQ(xmlStructuredErrorContext, &count);
  xmlSetStructuredErrorFunc(nullptr, nullptr);
  EXPECT_EQ(count, 0);
}

}  // namespace
