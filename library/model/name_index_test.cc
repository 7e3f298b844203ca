#include "model/name_index.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace driver_feature::testing {
namespace {

// Two names whose hashes have the same 32 bits, which some among many have.
std::vector<std::string> namesOfOneHash() {
  std::unordered_map<std::uint32_t, int> numbers;
  for (int i = 0; i < 10'000'000; ++i) {
    const std::string name = "Feature" + std::to_string(i);
    const auto hash = static_cast<std::uint32_t>(std::hash<std::string_view>()(name));
    const auto [known, isNew] = numbers.emplace(hash, i);
    if (!isNew) return {"Feature" + std::to_string(known->second), name};
  }
  return {};
}

TEST(NameIndexTest, Find_NamesOfTheSameHash_EachHasItsPosition) {
  std::vector<std::string> names = namesOfOneHash();
  ASSERT_EQ(names.size(), 2U);
  names.emplace_back("another");
  const auto nameAt = [&names](std::size_t position) -> std::string_view {
    return names[position];
  };
  NameIndex index;
  for (std::size_t i = 0; i < names.size(); ++i) index.add(nameAt);
  EXPECT_EQ(index.find(names[0], nameAt), 0);
  EXPECT_EQ(index.find(names[1], nameAt), 1);
  EXPECT_EQ(index.find("another", nameAt), 2);
  EXPECT_EQ(index.find("none", nameAt), -1);
}

}  // namespace
}  // namespace driver_feature::testing
