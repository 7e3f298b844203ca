#include "programs/driver_feature/lsp/open_text.h"

#include <gtest/gtest.h>

#include <string>

namespace driver_feature::cli {

namespace {

// What a finding at this place is about.
std::string markedAt(const std::string& source, host::Position position) {
  OpenText text(std::nullopt, source);
  check::Finding finding;
  finding.position = position;
  text.setFindings({finding});
  const editor::Range range = text.findings().front().range;
  return source.substr(range.begin, range.end - range.begin);
}

TEST(OpenText, SetFindings_Tag_MarksItsName) {
  EXPECT_EQ(markedAt("<a>\n  <Feature Name='x'/></a>", {2, 3}), "<Feature");
  EXPECT_EQ(markedAt("<abc></abc>", {1, 6}), "</abc");
}

TEST(OpenText, SetFindings_Attribute_MarksItsName) {
  EXPECT_EQ(markedAt("<a Name='x'/>", {1, 4}), "Name");
  EXPECT_EQ(markedAt("<a \xC3\xBC='x' Name='x'/>", {1, 10}), "Name");
}

TEST(OpenText, SetFindings_Value_MarksTheWord) {
  EXPECT_EQ(markedAt("<a b='/x %5s def'/>", {1, 10}), "%5s");
  EXPECT_EQ(markedAt("<a b='/x %s'/>", {1, 10}), "%s");
}

TEST(OpenText, SetFindings_NoWordThere_MarksACharacter) {
  EXPECT_EQ(markedAt("<a b=''/>", {1, 7}), "'");
  EXPECT_EQ(markedAt("<a  b=''/>", {1, 4}), " ");
}

TEST(OpenText, SetFindings_PlaceThatIsNotThere_MarksWhereTheLineBegins) {
  EXPECT_EQ(markedAt("<a>\n</a>", {2, 99}), "</a");
  EXPECT_EQ(markedAt("<a>\n</a>", {0, 0}), "<a");
  EXPECT_EQ(markedAt("<a>\n</a>", {9, 1}), "<a");
  EXPECT_EQ(markedAt("", {1, 1}), "");
}

}  // namespace

}  // namespace driver_feature::cli
