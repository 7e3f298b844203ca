#include "host/base/line_diff.h"

#include <gtest/gtest.h>

namespace driver_feature::host {

namespace {

using Lines = std::vector<DiffLine>;

TEST(LineDiffTest, VisibleLines_EveryByte_IsShown) {
  EXPECT_EQ(visibleLines(""), std::vector<std::string>{});
  EXPECT_EQ(visibleLines("a\r\n\n\\\x1B\xFF\xC3\xA4"),
            (std::vector<std::string>{"a\\r", "", "\\\\\\x1b\\xff\xC3\xA4", "\\ no line end"}));
}

TEST(LineDiffTest, DiffLines_Changes_KeepWhatIsCommon) {
  EXPECT_EQ(diffLines({"a", "b", "c", "d"}, {"a", "c", "x", "d"}),
            (Lines{{' ', "a"}, {'-', "b"}, {' ', "c"}, {'+', "x"}, {' ', "d"}}));
  EXPECT_EQ(diffLines({}, {"a"}), (Lines{{'+', "a"}}));
  EXPECT_EQ(diffLines({"a", "a"}, {"a"}), (Lines{{' ', "a"}, {'-', "a"}}));
}

TEST(LineDiffTest, WithContext_DistantChanges_AreTwoParts) {
  const Lines lines =
      diffLines({"1", "2", "3", "4", "5", "6"}, {"x", "2", "3", "4", "5", "6", "y"});
  EXPECT_EQ(withContext(lines, 1), (Lines{{'@', "@ -1,2 +1,2 @@"},
                                          {'-', "1"},
                                          {'+', "x"},
                                          {' ', "2"},
                                          {'@', "@ -6,1 +6,2 @@"},
                                          {' ', "6"},
                                          {'+', "y"}}));
  EXPECT_EQ(withContext(diffLines({"a"}, {"a", "b"}), 0),
            (Lines{{'@', "@ -1,0 +2,1 @@"}, {'+', "b"}}));
}

}  // namespace

}  // namespace driver_feature::host
