#include "host/editor/text_lines.h"

#include <gtest/gtest.h>

namespace driver_feature::editor {

namespace {

// a is one unit, ü one (two bytes), the printer two (four bytes).
constexpr std::string_view kPrinter = "a\xC3\xBC\xF0\x9F\x96\xA8z";

TEST(TextLines, PlaceOf_CharactersOfSeveralBytes_CountsUnitsOfUtf16) {
  const TextLines lines(kPrinter);
  EXPECT_EQ(lines.placeOf(0), (EditorPlace{0, 0}));
  EXPECT_EQ(lines.placeOf(1), (EditorPlace{0, 1}));
  EXPECT_EQ(lines.placeOf(3), (EditorPlace{0, 2}));
  EXPECT_EQ(lines.placeOf(7), (EditorPlace{0, 4}));
  EXPECT_EQ(lines.placeOf(8), (EditorPlace{0, 5}));
}

TEST(TextLines, PlaceOf_InsideOfACharacter_IsItsBeginning) {
  const TextLines lines(kPrinter);
  EXPECT_EQ(lines.placeOf(2), (EditorPlace{0, 1}));
  EXPECT_EQ(lines.placeOf(6), (EditorPlace{0, 2}));
}

TEST(TextLines, PlaceOf_LineEndsOfAllKinds_BeginALine) {
  const TextLines lines("a\nb\r\nc\rd\n");
  EXPECT_EQ(lines.placeOf(2), (EditorPlace{1, 0}));
  EXPECT_EQ(lines.placeOf(5), (EditorPlace{2, 0}));
  EXPECT_EQ(lines.placeOf(7), (EditorPlace{3, 0}));
  EXPECT_EQ(lines.placeOf(9), (EditorPlace{4, 0}));
}

TEST(TextLines, PlaceOf_BetweenCrAndLf_IsTheEndOfTheLine) {
  EXPECT_EQ(TextLines("ab\r\nc").placeOf(3), (EditorPlace{0, 2}));
}

TEST(TextLines, PlaceOf_AfterTheText_IsItsEnd) {
  EXPECT_EQ(TextLines("a\nbc").placeOf(99), (EditorPlace{1, 2}));
  EXPECT_EQ(TextLines("").placeOf(1), (EditorPlace{0, 0}));
}

TEST(TextLines, PlaceOf_LongLine_CountsAllOfIt) {
  std::string text = "\n";
  for (int i = 0; i < 500; ++i) text += kPrinter;
  const TextLines lines(text);
  for (std::size_t i = 0; i < 500; ++i) {
    EXPECT_EQ(lines.placeOf(1 + 8 * i + 7), (EditorPlace{1, static_cast<long>(5 * i + 4)})) << i;
  }
  EXPECT_EQ(lines.placeOf(text.size()), (EditorPlace{1, 2500}));
}

TEST(TextLines, OffsetOf_CharactersOfSeveralBytes_CountsUnitsOfUtf16) {
  const TextLines lines(kPrinter);
  EXPECT_EQ(lines.offsetOf({0, 2}), 3U);
  EXPECT_EQ(lines.offsetOf({0, 4}), 7U);
  EXPECT_EQ(lines.offsetOf({0, 5}), 8U);
}

TEST(TextLines, OffsetOf_BetweenTheUnitsOfACharacter_IsItsBeginning) {
  EXPECT_EQ(TextLines(kPrinter).offsetOf({0, 3}), 3U);
}

TEST(TextLines, OffsetOf_PlacesThatAreNotThere_AreTheNextBefore) {
  const TextLines lines("ab\r\nc");
  EXPECT_EQ(lines.offsetOf({0, 99}), 2U);
  EXPECT_EQ(lines.offsetOf({7, 0}), 5U);
  EXPECT_EQ(lines.offsetOf({-1, 4}), 0U);
  EXPECT_EQ(lines.offsetOf({1, -4}), 4U);
}

}  // namespace

}  // namespace driver_feature::editor
