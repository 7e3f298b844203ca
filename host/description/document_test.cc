#include "host/description/document.h"

#include <sys/stat.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

#include "host/description/xml_element.h"
#include "support/problem_text.h"

namespace driver_feature::host {

namespace {

class DocumentTest : public testing::Test {
 protected:
  DocumentTest() {
    std::string folder =
        (std::filesystem::temp_directory_path() / "driver-feature-XXXXXX").string();
    if (mkdtemp(folder.data()) != nullptr) file_ = folder + "/a.xml";
  }
  ~DocumentTest() override {
    std::filesystem::remove_all(std::filesystem::path(file_).parent_path());
  }

  Result<Document> read(const std::string& text) const {
    std::ofstream(file_, std::ios::binary) << text;
    return Document::read(file_);
  }

  std::string file_;
};

TEST_F(DocumentTest, Read_RootOrItsFirstChildOfTheName_IsTheDescription) {
  const auto root = read("<FeatureDescription><A/></FeatureDescription>");
  ASSERT_EQ(problemText(root), "");
  EXPECT_EQ(root->description(), root->root());
  EXPECT_EQ(root->secondDescription(), nullptr);
  EXPECT_EQ(root->path(), file_);

  const auto child = read(
      "<Driver><A><FeatureDescription Name='deep'/></A><FeatureDescription><B/>"
      "</FeatureDescription><FeatureDescription><C/></FeatureDescription>"
      "<FeatureDescription><D/></FeatureDescription></Driver>");
  ASSERT_EQ(problemText(child), "");
  EXPECT_EQ(tagOf(pParserInstance->firstChild(child->description())), "B");
  EXPECT_EQ(tagOf(pParserInstance->firstChild(child->secondDescription())), "C");
}

TEST_F(DocumentTest, Read_NoDescription_IsAProblemAtTheRoot) {
  const auto document = read("<?xml version='1.0'?>\n <Driver/>");
  ASSERT_FALSE(document);
  EXPECT_EQ(document.error().kind, Problem::Kind::kNoDescription);
  EXPECT_EQ(problemText(document),
            file_ +
                ":2:2: there is no FeatureDescription element; name the root <Driver> or one of "
                "its children <FeatureDescription>");
}

TEST_F(DocumentTest, Read_NotXml_IsMalformedAtItsPlace) {
  const auto document = read("<A>\n</B>");
  ASSERT_FALSE(document);
  EXPECT_EQ(document.error().kind, Problem::Kind::kMalformed);
  EXPECT_EQ(document.error().position.line, 2);
  EXPECT_EQ(document.error().text, "</B> ends an element while <A> of line 1 is still open");
  EXPECT_EQ(document.error().remedy, "write </A> before it, or correct one of the names");
}

TEST_F(DocumentTest, Read_WhatIsNoReadableFile_IsUnreadable) {
  for (const auto& [path, reason] :
       {std::pair<std::string, std::string>{file_ + ".absent",
                                            "cannot be opened: No such file or directory"},
        {std::filesystem::path(file_).parent_path(), "is a directory"}}) {
    const auto document = Document::read(path);
    ASSERT_FALSE(document);
    EXPECT_EQ(document.error().kind, Problem::Kind::kUnreadable);
    EXPECT_EQ(problemText(document),
              path + ": the file " + reason + "; give the path of a readable feature description");
  }
}

TEST_F(DocumentTest, Read_MoreThan64MiB_IsUnreadable) {
  const auto document = read("<FeatureDescription>" + std::string((64U << 20U), ' '));
  EXPECT_EQ(
      problemText(document),
      file_ + ": the file is larger than 64 MiB; give the path of a readable feature description");
}

TEST_F(DocumentTest, Read_NamedPipe_IsReadOnce) {
  ASSERT_EQ(::mkfifo(file_.c_str(), 0600), 0);
  std::thread writer([this] { std::ofstream(file_) << "<FeatureDescription/>"; });
  const auto document = Document::read(file_);
  writer.join();
  EXPECT_EQ(problemText(document), "");
}

TEST_F(DocumentTest, DropText_DescriptionStays) {
  auto document = read("<FeatureDescription Name='n'/>");
  ASSERT_EQ(problemText(document), "");
  EXPECT_EQ(document->text(), "<FeatureDescription Name='n'/>");
  document->dropText();
  EXPECT_EQ(document->text(), "");
  EXPECT_EQ(tagOf(document->description()), "FeatureDescription");
}

}  // namespace

}  // namespace driver_feature::host
