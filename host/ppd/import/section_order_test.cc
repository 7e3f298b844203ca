#include "host/ppd/import/section_order.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <ctime>
#include <iterator>
#include <random>
#include <tuple>
#include <utility>

namespace {

using driver_feature::ppd::orderOfSection;
using driver_feature::ppd::SectionEntry;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAreArray;

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
TEST(SectionOrderTest, Order_EqualAfterASmallerOne_ChangePlaces) {
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

TEST(SectionOrderTest, Unusual_IsWhereItsOrderPutsIt) {
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

// C10 after them keeps B before A; without it they change places.
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

// The items of what is marked, as libcups sorts them.
std::vector<std::size_t> marked(std::vector<SectionEntry> entries) {
  std::sort(entries.begin(), entries.end(),
            [](const SectionEntry& left, const SectionEntry& right) {
              return std::make_tuple(left.keyword, !left.usual, left.item) <
                     std::make_tuple(right.keyword, !right.usual, right.item);
            });
  for (std::size_t i = 0; i < entries.size(); ++i) {
    for (std::size_t j = i + 1; j < entries.size(); ++j) {
      if (entries[i].order > entries[j].order) std::swap(entries[i], entries[j]);
    }
  }
  std::vector<std::size_t> items;
  for (const SectionEntry& entry : entries) items.push_back(entry.item);
  return items;
}

std::vector<SectionEntry> usualOf(const std::vector<SectionEntry>& entries,
                                  const std::string& but = "") {
  std::vector<SectionEntry> others;
  std::copy_if(entries.begin(), entries.end(), std::back_inserter(others),
               [&but](const SectionEntry& entry) { return entry.usual && entry.keyword != but; });
  return others;
}

std::vector<std::size_t> without(std::vector<std::size_t> items, std::size_t item) {
  items.erase(std::remove(items.begin(), items.end(), item), items.end());
  return items;
}

// The items of the list that are among the others.
std::vector<std::size_t> only(const std::vector<std::size_t>& items,
                              const std::vector<std::size_t>& others) {
  std::vector<std::size_t> found;
  std::copy_if(items.begin(), items.end(), std::back_inserter(found), [&others](std::size_t item) {
    return std::find(others.begin(), others.end(), item) != others.end();
  });
  return found;
}

// The last usual one of the items in front of one of them; -1 for none.
long previousUsual(const std::vector<std::size_t>& items, const std::vector<SectionEntry>& entries,
                   std::size_t item) {
  long previous = -1;
  for (const std::size_t other : items) {
    if (other == item) break;
    if (entries[other].usual) previous = static_cast<long>(other);
  }
  return previous;
}

std::vector<SectionEntry> randomEntries(std::mt19937& random) {
  const std::size_t orders = 1 + random() % 5;
  std::vector<SectionEntry> entries(1 + random() % 12);
  for (SectionEntry& entry : entries) {
    entry.keyword = std::string(1, static_cast<char>('A' + random() % 20));
    entry.order = static_cast<float>(random() % orders);
    entry.usual = random() % 3 != 0;
    entry.vanishes = random() % 8 == 0;
    if (!entry.usual && random() % 3 == 0) {
      entry.replaces = random() % 2 == 0 ? entry.keyword
                                         : std::string(1, static_cast<char>('A' + random() % 20));
    }
  }
  return numbered(std::move(entries));
}

// Each unusual entry, marked with the usual ones, is in the place that the
// order gives it. When it changes the order of others it is named, and follows
// the same one.
TEST(SectionOrderTest, Order_ListsOfEveryKind_IsWhatLibcupsWrites) {
  std::mt19937 random(1);
  for (int i = 0; i < 1500; ++i) {
    const auto entries = randomEntries(random);
    const auto order = orderOfSection(entries);
    const auto usualItems = marked(usualOf(entries));
    ASSERT_EQ(order.items.size(), entries.size());
    ASSERT_EQ(only(order.items, usualItems), usualItems) << "list " << i;
    std::vector<std::string> unsettling;
    for (const SectionEntry& entry : entries) {
      std::vector<SectionEntry> others = usualOf(entries, entry.usual ? "" : entry.replaces);
      if (entry.usual) {
        if (!entry.vanishes) continue;
        others.erase(
            std::find_if(others.begin(), others.end(),
                         [&entry](const SectionEntry& other) { return other.item == entry.item; }));
        const auto left = marked(others);
        if (left != without(usualItems, entry.item)) unsettling.push_back(entry.keyword);
        continue;
      }
      const auto othersAlone = only(usualItems, marked(others));
      others.push_back(entry);
      const auto with = marked(others);
      if (without(with, entry.item) != othersAlone) {
        unsettling.push_back(entry.keyword);
        if (entry.replaces.empty()) {
          EXPECT_EQ(previousUsual(order.items, entries, entry.item),
                    previousUsual(with, entries, entry.item))
              << "list " << i << ", item " << entry.item;
        }
      } else {
        EXPECT_EQ(only(order.items, with), with) << "list " << i << ", item " << entry.item;
      }
    }
    EXPECT_THAT(order.unsettling, UnorderedElementsAreArray(unsettling)) << "list " << i;
  }
}

// A fraction of a second; minutes, if each unusual entry were sorted among all.
TEST(SectionOrderTest, Order_ManyUnusualEntries_TakeLittleTime) {
  constexpr double kSecondsAllowed = 20;
  std::vector<SectionEntry> entries;
  for (int i = 0; i < 20000; ++i) {
    const std::string keyword = "Option" + std::to_string(i * 7919 % 20011);
    const float order = static_cast<float>(i % 1000);
    entries.push_back(i % 2 == 0 ? usual(keyword, order) : unusual(keyword, order));
  }
  entries = numbered(std::move(entries));
  const std::clock_t start = std::clock();
  EXPECT_EQ(orderOfSection(entries).items.size(), 20000U);
  EXPECT_LT(static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC, kSecondsAllowed);
}

}  // namespace
