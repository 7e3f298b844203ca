#include "model/property_store.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <map>
#include <string>

#include <gtest/gtest.h>

namespace driver_feature::testing {
namespace {

TEST(PropertyStoreTest, NothingSet_TextsAreEmptyAndNumbersZero) {
  const PropertyStore store;
  EXPECT_EQ(store.text(0), "");
  EXPECT_EQ(store.text(44), "");
  EXPECT_EQ(store.number<int>(3), 0);
  EXPECT_EQ(store.number<float>(3), 0.0F);
}

TEST(PropertyStoreTest, TextsOfEverySize_AreKept) {
  // Sizes take one byte more from 128 and from 16,384 on.
  for (const std::size_t size : {1U, 15U, 127U, 128U, 129U, 16383U, 16384U, 2097152U}) {
    PropertyStore store;
    store.setText(7, "before");
    store.setText(8, std::string(size, 'x'));
    store.setText(9, "after");
    EXPECT_EQ(store.text(7), "before") << size;
    EXPECT_EQ(store.text(8), std::string(size, 'x')) << size;
    EXPECT_EQ(store.text(9), "after") << size;
  }
}

TEST(PropertyStoreTest, TextHoldsNULsAndHighBytes_IsKept) {
  PropertyStore store;
  const std::string text("\x00\xFF\x80\x00", 4);
  store.setText(200, text);
  EXPECT_EQ(store.text(200), text);
  EXPECT_EQ(store.text(0), "");
}

TEST(PropertyStoreTest, TextReplaced_TheOthersStay) {
  PropertyStore store;
  store.setText(1, "first");
  store.setText(2, "second");
  store.setText(3, "third");
  for (const char* text : {"SECOND", "", "longer than it was before by far", "2"}) {
    store.setText(2, text);
    EXPECT_EQ(store.text(1), "first") << text;
    EXPECT_EQ(store.text(2), text);
    EXPECT_EQ(store.text(3), "third") << text;
  }
}

TEST(PropertyStoreTest, Numbers_AreKept) {
  PropertyStore store;
  store.setNumber(1, std::numeric_limits<int>::min());
  store.setNumber(2, -0.0F);
  store.setNumber(3, std::numeric_limits<float>::quiet_NaN());
  store.setNumber(4, 7);
  store.setNumber(4, 0);
  EXPECT_EQ(store.number<int>(1), std::numeric_limits<int>::min());
  EXPECT_TRUE(std::signbit(store.number<float>(2)));
  EXPECT_TRUE(std::isnan(store.number<float>(3)));
  EXPECT_EQ(store.number<int>(4), 0);
}

TEST(PropertyStoreTest, ManyChanges_AgreeWithAMap) {
  PropertyRoom room;
  PropertyStore store;
  std::map<std::size_t, std::string> expected;
  std::uint32_t random = 1;
  for (int i = 0; i < 20000; ++i) {
    random = random * 1664525U + 1013904223U;
    const std::size_t property = (random >> 8U) % 45;
    const std::string text((random >> 16U) % 200, static_cast<char>(random >> 24U));
    store.setText(property, text);
    expected[property] = text;
    if (i % 100 == 0) store.moveTo(room);
    const std::size_t other = (random >> 4U) % 45;
    ASSERT_EQ(store.text(other), expected[other]) << i;
  }
}

TEST(PropertyStoreTest, ManyStoresInOneRoom_EachKeepsItsOwn) {
  PropertyRoom room;
  std::array<PropertyStore, 1000> stores;
  const auto textOf = [](std::size_t i) { return std::string(i % 150, static_cast<char>(i)); };
  for (std::size_t i = 0; i < stores.size(); ++i) {
    stores[i].setText(1, textOf(i));
    stores[i].setText(2, std::to_string(i));
    stores[i].moveTo(room);
  }
  for (std::size_t i = 0; i < stores.size(); ++i) {
    EXPECT_EQ(stores[i].text(1), textOf(i)) << i;
    EXPECT_EQ(stores[i].text(2), std::to_string(i)) << i;
  }
}

TEST(PropertyStoreTest, ChangesInARoom_LeaveTheNeighbourAlone) {
  PropertyRoom room;
  PropertyStore store;
  PropertyStore neighbour;
  for (PropertyStore* each : {&store, &neighbour}) {
    each->setText(1, "first");
    each->setText(2, "second");
    each->moveTo(room);
  }
  for (const char* text : {"FIRST", "longer than it was", "", "1", ""}) {
    store.setText(1, text);
    EXPECT_EQ(store.text(1), text);
    EXPECT_EQ(store.text(2), "second") << text;
    EXPECT_EQ(neighbour.text(1), "first") << text;
    EXPECT_EQ(neighbour.text(2), "second") << text;
  }
  neighbour.setText(2, "");
  neighbour.setText(1, "");
  EXPECT_EQ(neighbour.text(1), "");
  EXPECT_EQ(store.text(2), "second");
}

// Three of the 2,000 bytes say which property it is and how long.
TEST(PropertyStoreTest, MoveToARoom_OnlySmallStoresMove) {
  const auto moves = [](std::size_t size) {
    PropertyStore store;
    store.setText(1, std::string(size, 'x'));
    const char* before = store.text(1).data();
    PropertyRoom room;
    store.moveTo(room);
    EXPECT_EQ(store.text(1), std::string(size, 'x'));
    return store.text(1).data() != before;
  };
  EXPECT_TRUE(moves(1));
  EXPECT_TRUE(moves(1997));
  EXPECT_FALSE(moves(1998));
  EXPECT_FALSE(moves(100000));
}

}  // namespace
}  // namespace driver_feature::testing
