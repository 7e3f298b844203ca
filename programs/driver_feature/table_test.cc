#include "programs/driver_feature/table.h"

#include <gtest/gtest.h>

namespace driver_feature::cli {

namespace {

const std::vector<TableRow> kRows = {
    {{"NAME", "VALUE"}, {"CHOICES"}},
    {{"PageSize", "A4"}, {"A4", "Letter", "Legal", "Executive"}},
    {{"X", "12"}, {}},
};

TEST(TableTest, LayOut_WidthZero_KeepsEachRowOnOneLine) {
  EXPECT_EQ(layOut(kRows, 0),
            "NAME      VALUE  CHOICES\n"
            "PageSize  A4     A4, Letter, Legal, Executive\n"
            "X         12\n");
}

TEST(TableTest, LayOut_LastColumnTooWide_ContinuesItBelow) {
  // "Legal," would end in column 35.
  EXPECT_EQ(layOut(kRows, 34),
            "NAME      VALUE  CHOICES\n"
            "PageSize  A4     A4, Letter,\n"
            "                 Legal, Executive\n"
            "X         12\n");
}

TEST(TableTest, LayOut_RowFitsExactly_IsNotBroken) {
  EXPECT_EQ(layOut(kRows, 45), layOut(kRows, 0));
  EXPECT_NE(layOut(kRows, 44), layOut(kRows, 0));
}

TEST(TableTest, LayOut_TooNarrowForTheLastColumn_LeavesItToTheTerminal) {
  EXPECT_EQ(layOut(kRows, 32),
            "NAME      VALUE  CHOICES\n"
            "PageSize  A4     A4, Letter, Legal, Executive\n"
            "X         12\n");
}

TEST(TableTest, LayOut_LongCellOnATerminal_IsCut) {
  const std::vector<TableRow> rows = {{{"N", "abcdefghijklmnop"}, {"x"}}};
  EXPECT_EQ(layOut(rows, 0), "N  abcdefghijklmnop  x\n");
  EXPECT_EQ(layOut(rows, 48), "N  abcdefghijklmnop  x\n");
  EXPECT_EQ(layOut(rows, 45), "N  abcdefghijkl...  x\n");
}

TEST(TableTest, LayOut_CutBesideAWideCharacter_StaysWithinTheWidth) {
  // Fifteen columns are allowed: six wide characters, and three dots.
  const std::string paper = "\xE7\xB4\x99";
  std::string eight;
  for (int i = 0; i < 8; ++i) eight += paper;
  EXPECT_EQ(layOut({{{eight}, {"x"}}}, 45),
            paper + paper + paper + paper + paper + paper + "...  x\n");
}

TEST(TableTest, LayOut_WideCharacters_AlignByColumns) {
  EXPECT_EQ(layOut({{{"\xE7\xB4\x99"}, {"1"}}, {{"abc"}, {"2"}}}, 0),
            "\xE7\xB4\x99   1\n"
            "abc  2\n");
}

TEST(TableTest, LayOut_ControlCharacters_StayOnTheirLine) {
  EXPECT_EQ(layOut({{{"a\nb"}, {"c\x1B"}}}, 0), "a\\nb  c\\x1b\n");
}

}  // namespace

}  // namespace driver_feature::cli
