#include "host/base/line_diff.h"

#include <gtest/gtest.h>

#include <algorithm>

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

// The most lines that two lists have in common, in order.
std::size_t commonCount(const std::vector<std::string>& first, std::size_t i,
                        const std::vector<std::string>& second, std::size_t j) {
  if (i == first.size() || j == second.size()) return 0;
  if (first[i] == second[j]) return 1 + commonCount(first, i + 1, second, j + 1);
  return std::max(commonCount(first, i + 1, second, j), commonCount(first, i, second, j + 1));
}

TEST(LineDiffTest, DiffLines_AllSmallTexts_GiveBothTextsAndTheFewestChanges) {
  // Each number is a text of up to five lines out of three.
  const auto textOf = [](unsigned number) {
    std::vector<std::string> lines;
    for (; number > 0; number /= 4) {
      if (number % 4 > 0) lines.emplace_back(1, static_cast<char>('a' + number % 4));
    }
    return lines;
  };
  for (unsigned left = 0; left < 1024; left += 11) {
    for (unsigned right = 0; right < 1024; right += 7) {
      const std::vector<std::string> first = textOf(left);
      const std::vector<std::string> second = textOf(right);
      std::vector<std::string> before;
      std::vector<std::string> after;
      std::size_t common = 0;
      for (const DiffLine& line : diffLines(first, second)) {
        if (line.mark != '+') before.push_back(line.text);
        if (line.mark != '-') after.push_back(line.text);
        common += line.mark == ' ' ? 1 : 0;
      }
      ASSERT_EQ(before, first) << left << ' ' << right;
      ASSERT_EQ(after, second) << left << ' ' << right;
      ASSERT_EQ(common, commonCount(first, 0, second, 0)) << left << ' ' << right;
    }
  }
}

TEST(LineDiffTest, DiffLines_LargeTexts_ShowTheChangesOnly) {
  std::vector<std::string> first;
  for (int i = 0; i < 20000; ++i) first.push_back(std::to_string(i));
  std::vector<std::string> second = first;
  second.front() = "x";
  second[10000] = "5";  // A line that both have.
  second.back() = "y";
  const Lines lines = diffLines(first, second);
  EXPECT_EQ(lines.size(), 20003U);
  EXPECT_EQ((Lines{lines[10001], lines[10002], lines[10003]}),
            (Lines{{'-', "10000"}, {'+', "5"}, {' ', "10001"}}));
  // Too many moved lines are reported as one replacement.
  const std::vector<std::string> turned(first.rbegin(), first.rend());
  EXPECT_EQ(diffLines(first, turned).size(), 40000U);
  // Lines that only one of them has do not count.
  for (std::string& line : second) line += "x";
  second.insert(second.end(), {"19998", "z"});
  const Lines replaced = diffLines(first, second);
  EXPECT_EQ(std::ranges::count(replaced, DiffLine{' ', "19998"}), 1);
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
