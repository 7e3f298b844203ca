#include "XMLDocument.h"

#include <unistd.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

#include "AttributeMap.h"
#include "XMLParser.h"

namespace {

using namespace std::string_literals;

class XMLDocumentTest : public ::testing::Test {
 protected:
  XMLDocumentTest()
      : folder_(::testing::TempDir() + "platform_documents." + std::to_string(getpid()) + "/") {
    std::filesystem::create_directories(folder_);
  }
  ~XMLDocumentTest() override {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }

  std::string write(const std::string& text) const {
    std::string path = folder_ + "description.xml";
    std::ofstream(path, std::ios::binary) << text;
    return path;
  }

  // The attribute "Name" of the root of a file that holds `text`.
  std::string readName(const std::string& text) const {
    XMLProblem problem;
    const auto document = XMLDocument::parseFile(write(text), problem);
    if (!document) return "problem: " + problem.text;
    AttributeMap map;
    pParserInstance->attributes(document->root(), map);
    return map["Name"];
  }

  static void expectProblem(const std::string& path, int line, int column,
                            const std::string& text) {
    ::testing::internal::CaptureStderr();
    XMLProblem problem{7, 8, "earlier"};
    EXPECT_EQ(XMLDocument::parseFile(path, problem), nullptr) << path;
    EXPECT_EQ(problem.text, text);
    EXPECT_EQ(problem.line, line);
    EXPECT_EQ(problem.column, column);
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
  }

  std::string folder_;
};

TEST_F(XMLDocumentTest, ParseFile_NoSuchFile_SaysSo) {
  expectProblem(folder_ + "none.xml", 0, 0, "cannot be opened: No such file or directory");
  expectProblem("", 0, 0, "cannot be opened: No such file or directory");
}

TEST_F(XMLDocumentTest, ParseFile_Directory_SaysSo) {
  expectProblem(folder_, 0, 0, "is a directory");
}

TEST_F(XMLDocumentTest, ParseFile_ReadingFails_SaysSo) {
  expectProblem("/proc/self/mem", 0, 0, "cannot be read: Input/output error");
}

TEST_F(XMLDocumentTest, ParseFile_NotPermitted_SaysSo) {
  if (geteuid() == 0) GTEST_SKIP() << "root may read every file";
  const std::string path = write("<a/>");
  std::filesystem::permissions(path, std::filesystem::perms::none);
  expectProblem(path, 0, 0, "cannot be opened: Permission denied");
}

TEST_F(XMLDocumentTest, ParseFile_NotXml_NamesThePlace) {
  expectProblem(write(""), 1, 1, "is empty");
  expectProblem(write(" \n\t\n"), 3, 1, "Start tag expected, '<' not found");
  expectProblem(write("<a>\n <b>\n"), 3, 1, "Premature end of data in tag b line 2");
}

TEST_F(XMLDocumentTest, ParseFile_NameLooksLikeAnAddress_IsAFileName) {
  expectProblem("http://127.0.0.1:9/description.xml", 0, 0,
                "cannot be opened: No such file or directory");
}

TEST_F(XMLDocumentTest, ParseFile_Encodings_AreRead) {
  const std::string utf8 = "\xC3\xA4\xE2\x82\xAC\xF0\x9F\x96\xA8";
  EXPECT_EQ(readName("<a Name='" + utf8 + "'/>"), utf8);
  EXPECT_EQ(readName("\xEF\xBB\xBF<a Name='" + utf8 + "'/>"), utf8);
  EXPECT_EQ(readName("\xEF\xBB\xBF<?xml version='1.0' encoding='UTF-8'?><a Name='" + utf8 + "'/>"),
            utf8);
  EXPECT_EQ(readName("<?xml version='1.0' encoding='ISO-8859-1'?>\n<a Name='\xE4\xFF'/>"),
            "\xC3\xA4\xC3\xBF");
  EXPECT_EQ(readName("<?xml version='1.0' encoding='windows-1252'?>\n<a Name='\x80'/>"),
            "\xE2\x82\xAC");
  EXPECT_EQ(readName("\xFF\xFE<\0a\0 \0N\0a\0m\0e\0=\0'\0\xE4\0\xAC\x20\x3D\xD8\xA8\xDD'\0/\0>\0"s),
            utf8);
  EXPECT_EQ(readName("\xFE\xFF\0<\0a\0 \0N\0a\0m\0e\0=\0'\0\xE4\x20\xAC\xD8\x3D\xDD\xA8\0'\0/\0>"s),
            utf8);
}

TEST_F(XMLDocumentTest, ParseFile_LineEnds_AreOneCharacterToTheLineCount) {
  XMLProblem problem;
  const auto document = XMLDocument::parseFile(write("<a>\r\n<b/>\r\n\r\n<c/></a>"), problem);
  ASSERT_NE(document, nullptr) << problem.text;
  void* first = pParserInstance->firstChild(document->root());
  EXPECT_EQ(XMLDocument::lineOf(document->root()), 1);
  EXPECT_EQ(XMLDocument::lineOf(first), 2);
  EXPECT_EQ(XMLDocument::lineOf(pParserInstance->nextSibling(first)), 4);
}

TEST_F(XMLDocumentTest, LineOf_SeventyThousandLines_NamesEachLine) {
  std::string text = "<a>";
  for (int i = 1; i <= 70000; ++i) text += i % 2 == 0 ? "<b/>\n" : "<b>\n</b>";
  // The odd rows end on the line of the even ones: 70,000 line ends in all.
  XMLProblem problem;
  const auto document = XMLDocument::parseFile(write(text + "<c/></a>"), problem);
  ASSERT_NE(document, nullptr) << problem.text;
  int row = 0;
  int wrong = 0;
  int last = 0;
  for (void* element = pParserInstance->firstChild(document->root()); element != nullptr;
       element = pParserInstance->nextSibling(element)) {
    ++row;
    last = XMLDocument::lineOf(element);
    if (last != row) ++wrong;
  }
  EXPECT_EQ(row, 70001);
  EXPECT_EQ(last, 70001);
  EXPECT_EQ(wrong, 0);
}

// Both readers: a document type is not plain.
TEST_F(XMLDocumentTest, LineOf_TagOfManyLines_IsTheOneItBeginsOn) {
  for (const std::string head : {"\n\n", "<!DOCTYPE a>\n\n"}) {
    XMLProblem problem;
    const auto document = XMLDocument::parseText(
        head + "<a\nb='1\n'\nc='2'\n>\n<d/><e\n/><f></f></a>", "test.xml", problem);
    ASSERT_NE(document, nullptr) << problem.text;
    EXPECT_EQ(XMLDocument::lineOf(document->root()), 3);
    void* child = pParserInstance->firstChild(document->root());
    EXPECT_EQ(XMLDocument::lineOf(child), 8);
    child = pParserInstance->nextSibling(child);
    EXPECT_EQ(XMLDocument::lineOf(child), 8);
    EXPECT_EQ(XMLDocument::lineOf(pParserInstance->nextSibling(child)), 9);
  }
}

// What a pipe gives is there once: a text that is not plain is read from a copy.
TEST_F(XMLDocumentTest, ParseFile_Pipe_IsReadWhole) {
  const std::string value(200000, 'v');
  for (const std::string head : {"", "<!DOCTYPE a>"}) {
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    std::thread writer([text = head + "<a Name='&lt;" + value + "'/>", end = ends[1]] {
      for (std::size_t written = 0; written < text.size();) {
        const ssize_t count = ::write(end, text.data() + written, text.size() - written);
        if (count <= 0) break;
        written += static_cast<std::size_t>(count);
      }
      close(end);
    });
    XMLProblem problem;
    const auto document = XMLDocument::parseFile("/dev/fd/" + std::to_string(ends[0]), problem);
    close(ends[0]);
    writer.join();
    ASSERT_NE(document, nullptr) << problem.text;
    AttributeMap map;
    pParserInstance->attributes(document->root(), map);
    EXPECT_TRUE(map["Name"] == "<" + value);
  }
}

// The scanner resolves values before it reaches the error; libxml2 sees the
// original file.
TEST_F(XMLDocumentTest, ParseFile_WrongAfterResolvedValues_IsReportedAtItsPlace) {
  expectProblem(write("<a Name='&lt;&#10;&amp;'\n b='&#65;'></b>"), 2, 16,
                "Opening and ending tag mismatch: a line 1 and b");
}

TEST_F(XMLDocumentTest, ByteEscapes_InADocumentThatIsNotPlain_AreResolved) {
  EXPECT_EQ(readName("<p:a xmlns:p='urn:p' ByteEscapes='yes' Name='\xEF\x9C\x81\xC3\xA4'/>"),
            "\x01\xC3\xA4");
  EXPECT_EQ(readName("<p:a xmlns:p='urn:p' p:ByteEscapes='yes' Name='\xEF\x9C\x81'/>"),
            "\xEF\x9C\x81");
}

TEST_F(XMLDocumentTest, LineOf_Null_IsZero) {
  EXPECT_EQ(XMLDocument::lineOf(nullptr), 0);
}

TEST_F(XMLDocumentTest, Parse_SixtyFourMebibytes_IsTheHighestSize) {
  std::string text = "<a/>" + std::string((64U << 20) - 4, ' ');
  XMLProblem problem;
  EXPECT_NE(XMLDocument::parseText(text, "test.xml", problem), nullptr) << problem.text;
  text += ' ';
  EXPECT_EQ(XMLDocument::parseText(text, "test.xml", problem), nullptr);
  EXPECT_EQ(problem.text, "is larger than 64 MiB");
  EXPECT_EQ(problem.line, 0);
  expectProblem("/dev/zero", 0, 0, "is larger than 64 MiB");
}

TEST_F(XMLDocumentTest, Parse_ValuesOfManyMegabytes_AreRead) {
  std::string value(8000000, 'v');
  value += value;
  EXPECT_TRUE(readName("<a Name='" + value + "'>" + value + "<!--" + value + "--></a>") == value);
}

TEST_F(XMLDocumentTest, ParseFile_ElementsOfFourBytes_AreAllRead) {
  constexpr int kElements = 50000;
  std::string text = "<r>";
  for (int i = 0; i < kElements; ++i) text += "<e/>";
  XMLProblem problem;
  const auto document = XMLDocument::parseFile(write(text + "</r>"), problem);
  ASSERT_NE(document, nullptr) << problem.text;
  EXPECT_EQ(pParserInstance->childCount(document->root()), kElements);
}

TEST_F(XMLDocumentTest, Parse_TwoDocuments_ExistSideBySide) {
  XMLProblem problem;
  const auto one = XMLDocument::parseText("<one/>", "test.xml", problem);
  auto two = XMLDocument::parseText("<two/>", "test.xml", problem);
  two.reset();
  std::string tag;
  pParserInstance->tagName(one->root(), tag);
  EXPECT_EQ(tag, "one");
}

}  // namespace
