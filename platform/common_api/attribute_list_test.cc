#include "AttributeList.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

// In ascending order of unsigned bytes: signed ones would put the last three
// first.
constexpr const char* kNames[] = {"",  "A",         "AB",   "Abc",      "B",
                                  "a", "\x7F name", "\x80", "\xC3\xA4", "\xFF"};
constexpr int kCount = 10;

TEST(ParseAttributeListTest, Find_EveryName_ReturnsItsIndex) {
  for (int count = 1; count <= kCount; ++count) {
    for (int i = 0; i < count; ++i) {
      const std::string copy = kNames[i];
      EXPECT_EQ(ParseAttributeList_LowLevel(kNames, count - 1, copy.c_str()), i)
          << "among " << count;
    }
  }
}

TEST(ParseAttributeListTest, Find_NameBeyondTheHighestIndex_IsNotFound) {
  EXPECT_EQ(ParseAttributeList_LowLevel(kNames, kCount - 2, "\xFF"), -1);
}

TEST(ParseAttributeListTest, Find_NoExactMatch_ReturnsMinusOne) {
  for (const char* name :
       {" ", "ab", "Ab", "Abcd", "b", "C", "\x80\x80", "\xC3", "\xFE", "\xFF\xFF"}) {
    EXPECT_EQ(ParseAttributeList_LowLevel(kNames, kCount - 1, name), -1) << name;
  }
}

TEST(ParseAttributeListTest, Find_NoNames_ReturnsMinusOne) {
  EXPECT_EQ(ParseAttributeList_LowLevel(kNames, -1, "A"), -1);
}

TEST(ParseAttributeListTest, Find_NullArgument_ReturnsMinusOne) {
  EXPECT_EQ(ParseAttributeList_LowLevel(nullptr, kCount - 1, "A"), -1);
  EXPECT_EQ(ParseAttributeList_LowLevel(kNames, kCount - 1, nullptr), -1);
}

}  // namespace
