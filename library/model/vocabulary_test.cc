#include "model/vocabulary.h"

#include <iterator>
#include <string>

#include <gtest/gtest.h>

#include "support/property_facts.h"

namespace driver_feature {
namespace {

using testing::kOptionPropertyFacts;
using testing::kPropertyFacts;
using testing::kUnknownNames;

TEST(VocabularyTest, Properties_AreTheFortyFiveNamesInOrder) {
  ASSERT_EQ(std::size(kPropertyFacts), kPropertyCount);
  for (std::size_t i = 0; i < kPropertyCount; ++i) {
    EXPECT_STREQ(nameOf(static_cast<Property>(i)), kPropertyFacts[i].name);
    EXPECT_EQ(findProperty(kPropertyFacts[i].name), static_cast<Property>(i));
  }
  EXPECT_EQ(findProperty("CurrentIntValue"), Property::kCurrentIntValue);
  EXPECT_EQ(findProperty("Visibility"), Property::kVisibility);
}

TEST(VocabularyTest, OptionProperties_AreTheTenNamesInOrder) {
  ASSERT_EQ(std::size(kOptionPropertyFacts), kOptionPropertyCount);
  for (std::size_t i = 0; i < kOptionPropertyCount; ++i) {
    EXPECT_STREQ(nameOf(static_cast<OptionProperty>(i)), kOptionPropertyFacts[i].name);
    EXPECT_EQ(findOptionProperty(kOptionPropertyFacts[i].name), static_cast<OptionProperty>(i));
  }
  EXPECT_EQ(findOptionProperty("SNMPValue"), OptionProperty::kSNMPValue);
}

TEST(VocabularyTest, OtherNames_AreUnknown) {
  for (const std::string& name : kUnknownNames) EXPECT_EQ(findProperty(name), std::nullopt) << name;
  for (const std::string& name :
       {std::string(), std::string("name"), std::string("Encrypted"), std::string("CLOKey "),
        std::string("Zebra"), std::string("Name\0", 5)}) {
    EXPECT_EQ(findOptionProperty(name), std::nullopt) << name;
  }
}

TEST(VocabularyTest, DisplayNames_AreAtTheirCodes) {
  EXPECT_EQ(kFeatureTypeNames.size(), 6U);
  EXPECT_EQ(std::size(kValueTypeNames), 4U);
  EXPECT_STREQ(kFeatureTypeNames[0], "UIOnly");
  EXPECT_STREQ(kFeatureTypeNames[1], "MultiSelect");
  EXPECT_STREQ(kFeatureTypeNames[2], "IntEntry");
  EXPECT_STREQ(kFeatureTypeNames[3], "TextEntry");
  EXPECT_STREQ(kFeatureTypeNames[4], "FloatEntry");
  EXPECT_STREQ(kFeatureTypeNames[5], "MVCList");
  EXPECT_STREQ(kValueTypeNames[0], "UIOnly");
  EXPECT_STREQ(kValueTypeNames[1], "Int");
  EXPECT_STREQ(kValueTypeNames[2], "Text");
  EXPECT_STREQ(kValueTypeNames[3], "Float");
}

}  // namespace
}  // namespace driver_feature
