#include "host/ppd/section_order.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using driver_feature::orderOfSection;
using driver_feature::SectionEntry;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

SectionEntry usual(const std::string& keyword, float order) {
  return {keyword, order, true, "", false, 0};
}

SectionEntry unusual(const std::string& keyword, float order, const std::string& replaces = "") {
  return {keyword, order, false, replaces, false, 0};
}

// Entries numbered in the order in which they are given.
std::vector<SectionEntry> numbered(std::vector<SectionEntry> entries) {
  for (std::size_t i = 0; i < entries.size(); ++i) entries[i].item = i;
  return entries;
}

TEST(SectionOrderTest, Order_Different_DecidesAlone) {
  const auto order =
      orderOfSection(numbered({usual("A", 30), usual("B", 20), usual("C", 10.5F), usual("D", 10)}));
  EXPECT_THAT(order.items, ElementsAre(3, 2, 1, 0));
  EXPECT_THAT(order.unsettling, IsEmpty());
}

TEST(SectionOrderTest, Order_AllEqual_IsThatOfTheKeywordsByteByByte) {
  const auto order =
      orderOfSection(numbered({usual("b", 10), usual("B", 10), usual("a", 10), usual("A", 10)}));
  EXPECT_THAT(order.items, ElementsAre(3, 1, 2, 0));
}

// A20 B20 C10: the first place exchanges A and C, which leaves B before A.
TEST(SectionOrderTest, Order_EqualBehindASmallerOne_ChangePlaces) {
  const auto order = orderOfSection(numbered({usual("A", 20), usual("B", 20), usual("C", 10)}));
  EXPECT_THAT(order.items, ElementsAre(2, 1, 0));
}

TEST(SectionOrderTest, SameKeyword_KeepsTheOrderOfTheFile) {
  const auto order =
      orderOfSection(numbered({usual("Finish", 10), usual("Finish", 10), usual("Finish", 10)}));
  EXPECT_THAT(order.items, ElementsAre(0, 1, 2));
}

TEST(SectionOrderTest, SameKeyword_UsualOnesComeFirst) {
  const auto order = orderOfSection(numbered(
      {unusual("Finish", 10), usual("Finish", 10), unusual("Finish", 10), usual("Finish", 10)}));
  EXPECT_THAT(order.items, ElementsAre(1, 3, 0, 2));
}

TEST(SectionOrderTest, Unusual_StandsWhereItsOrderPutsIt) {
  const auto order =
      orderOfSection(numbered({usual("A", 10), usual("B", 30), unusual("X", 20), unusual("Y", 5)}));
  EXPECT_THAT(order.items, ElementsAre(3, 0, 2, 1));
  EXPECT_THAT(order.unsettling, IsEmpty());
}

TEST(SectionOrderTest, Unusual_TakesThePlaceOfWhatItReplaces) {
  const auto order =
      orderOfSection(numbered({usual("A", 10), usual("PageSize", 10),
                               unusual("PageRegion", 10, "PageSize"), usual("Z", 10)}));
  EXPECT_THAT(order.items, ElementsAre(0, 1, 2, 3));
}

// A20 B20 alone stay; with C10 between they change places.
TEST(SectionOrderTest, Unusual_ThatMovesEqualOnes_IsNamed) {
  const auto order = orderOfSection(numbered({usual("A", 20), usual("B", 20), unusual("C", 10)}));
  EXPECT_THAT(order.items, ElementsAre(2, 0, 1));
  EXPECT_THAT(order.unsettling, ElementsAre("C"));
}

// C10 behind keeps B before A; without it they change places.
TEST(SectionOrderTest, Usual_ThatMovesEqualOnesByLeaving_IsNamed) {
  std::vector<SectionEntry> entries = numbered({usual("A", 20), usual("B", 20), usual("C", 10)});
  EXPECT_THAT(orderOfSection(entries).unsettling, IsEmpty());
  entries[2].vanishes = true;
  EXPECT_THAT(orderOfSection(entries).unsettling, ElementsAre("C"));
  entries[0].vanishes = true;
  EXPECT_THAT(orderOfSection(entries).unsettling, ElementsAre("C"));
}

TEST(SectionOrderTest, Nothing_IsInNoOrder) {
  EXPECT_THAT(orderOfSection({}).items, IsEmpty());
  EXPECT_THAT(orderOfSection(numbered({unusual("A", 0)})).items, ElementsAre(0));
}

}  // namespace
