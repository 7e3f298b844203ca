#include "host/ppd/import/exchange_sort.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ctime>
#include <numeric>
#include <random>
#include <utility>

namespace driver_feature::ppd {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// The same steps that libcups takes.
std::vector<std::size_t> exchanged(std::vector<float> orders) {
  std::vector<std::size_t> places(orders.size());
  std::iota(places.begin(), places.end(), std::size_t{0});
  for (std::size_t i = 0; i < orders.size(); ++i) {
    for (std::size_t j = i + 1; j < orders.size(); ++j) {
      if (orders[i] <= orders[j]) continue;
      std::swap(orders[i], orders[j]);
      std::swap(places[i], places[j]);
    }
  }
  return places;
}

// A B c: the first exchange puts A after B.
TEST(ExchangeSortTest, Sorted_EqualAfterASmallerOne_ChangePlaces) {
  EXPECT_THAT(exchangeSorted({20, 20, 10}), ElementsAre(2, 1, 0));
  EXPECT_THAT(exchangeSorted({20, 20, 10, 10}), ElementsAre(2, 3, 0, 1));
  EXPECT_THAT(exchangeSorted({20, 20, 20, 10}), ElementsAre(3, 1, 2, 0));
}

TEST(ExchangeSortTest, Sorted_NothingToExchange_KeepsTheList) {
  EXPECT_THAT(exchangeSorted({}), IsEmpty());
  EXPECT_THAT(exchangeSorted({5}), ElementsAre(0));
  EXPECT_THAT(exchangeSorted({5, 5, 7, 7}), ElementsAre(0, 1, 2, 3));
}

TEST(ExchangeSortTest, Sorted_ListsOfEveryKind_IsWhatExchangingGives) {
  std::mt19937 random(1);
  for (int i = 0; i < 3000; ++i) {
    std::vector<float> orders(random() % 14);
    const std::size_t kinds = 1 + random() % 6;
    for (float& order : orders) order = static_cast<float>(random() % kinds) * 0.5F;
    ASSERT_EQ(exchangeSorted(orders), exchanged(orders)) << "list " << i;
  }
}

TEST(ExchangeSortTest, Sorted_InfiniteOrder_IsTheLast) {
  EXPECT_THAT(exchangeSorted({std::numeric_limits<float>::infinity(), 1e38F, 0}),
              ElementsAre(2, 1, 0));
}

// A fraction of a second; a minute, if any two were compared.
TEST(ExchangeSortTest, Sorted_ManyEntries_TakeLittleTime) {
  constexpr double kSecondsAllowed = 20;
  std::vector<float> orders(200000);
  for (std::size_t i = 0; i < orders.size(); ++i) orders[i] = static_cast<float>(i * 7919 % 99991);
  const std::clock_t start = std::clock();
  EXPECT_EQ(exchangeSorted(orders).size(), 200000U);
  EXPECT_LT(static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC, kSecondsAllowed);
}

TEST(TallyTest, Before_CountsTheMarkedPlacesInFront) {
  Tally tally(10);
  for (const std::size_t place : {0U, 3U, 9U}) tally.mark(place);
  EXPECT_EQ(tally.before(0), 0U);
  EXPECT_EQ(tally.before(1), 1U);
  EXPECT_EQ(tally.before(3), 1U);
  EXPECT_EQ(tally.before(4), 2U);
  EXPECT_EQ(tally.before(9), 2U);
  EXPECT_EQ(tally.all(), 3U);
}

}  // namespace

}  // namespace driver_feature::ppd
