#include "host/description/description_index.h"

#include <gtest/gtest.h>

#include "XMLDocument.h"

#include "host/session/log.h"

namespace driver_feature::host {

namespace {

DescriptionIndex indexOf(const std::string& elements) {
  const LogSilence silence;
  XMLProblem problem;
  const auto document = XMLDocument::parseText(
      "<FeatureDescription>\n" + elements + "</FeatureDescription>\n", "test.xml", problem);
  EXPECT_TRUE(document) << problem.text;
  return DescriptionIndex(document->root());
}

TEST(DescriptionIndexTest, LimitsOf_IntEntry_ReturnsItsLimitsAndLine) {
  const auto index = indexOf(
      "<Feature FeatureType='IntEntry' Name='A' IntMinValue='-3' IntMaxValue='0'/>\n"
      "<Feature FeatureType='IntEntry' Name='B'/>\n");
  EXPECT_EQ(index.limitsOf("A").intMin, -3);
  EXPECT_EQ(index.limitsOf("A").intMax, 0);
  EXPECT_EQ(index.limitsOf("A").line, 2);
  EXPECT_EQ(index.limitsOf("B").intMin, std::nullopt);
  EXPECT_EQ(index.limitsOf("B").intMax, std::nullopt);
  EXPECT_EQ(index.limitsOf("B").line, 3);
}

TEST(DescriptionIndexTest, LimitsOf_FloatEntry_ReturnsThemAsTheLibraryStoresThem) {
  const auto index = indexOf(
      "<Feature FeatureType='FloatEntry' Name='A' FloatMinValue='0.1' FloatMaxValue='2e1'/>\n");
  EXPECT_EQ(index.limitsOf("A").floatMin, 0.1F);
  EXPECT_EQ(index.limitsOf("A").floatMax, 20.0F);
}

TEST(DescriptionIndexTest, LimitsOf_TextEntry_ReturnsLengthAndCharacters) {
  const auto index = indexOf(
      "<Feature FeatureType='TextEntry' Name='A' MaxTextLength='8'"
      " TextValidationCharSet='abc'/>\n");
  EXPECT_EQ(index.limitsOf("A").maxTextLength, 8);
  EXPECT_EQ(index.limitsOf("A").allowedCharacters, "abc");
}

TEST(DescriptionIndexTest, LimitsOf_LengthZeroOrLess_SetsNoLimit) {
  const auto index = indexOf(
      "<Feature FeatureType='TextEntry' Name='A' MaxTextLength='0'/>\n"
      "<Feature FeatureType='TextEntry' Name='B' MaxTextLength='-1'/>\n"
      "<Feature FeatureType='TextEntry' Name='C' MaxTextLength='1'/>\n");
  EXPECT_EQ(index.limitsOf("A").maxTextLength, std::nullopt);
  EXPECT_EQ(index.limitsOf("B").maxTextLength, std::nullopt);
  EXPECT_EQ(index.limitsOf("C").maxTextLength, 1);
}

TEST(DescriptionIndexTest, LimitsOf_AttributesOfAnotherType_AreIgnored) {
  const auto index = indexOf(
      "<Feature FeatureType='TextEntry' Name='A' IntMinValue='1' FloatMinValue='1'/>\n"
      "<Feature FeatureType='IntEntry' Name='B' MaxTextLength='1' TextValidationCharSet='a'"
      " FloatMaxValue='1'/>\n"
      "<Feature FeatureType='FloatEntry' Name='C' IntMaxValue='1'/>\n");
  EXPECT_EQ(index.limitsOf("A").intMin, std::nullopt);
  EXPECT_EQ(index.limitsOf("A").floatMin, std::nullopt);
  EXPECT_EQ(index.limitsOf("B").maxTextLength, std::nullopt);
  EXPECT_EQ(index.limitsOf("B").allowedCharacters, "");
  EXPECT_EQ(index.limitsOf("B").floatMax, std::nullopt);
  EXPECT_EQ(index.limitsOf("C").intMax, std::nullopt);
}

TEST(DescriptionIndexTest, LimitsOf_TextThatDoesNotConvert_IsIgnored) {
  const auto index = indexOf("<Feature FeatureType='IntEntry' Name='A' IntMaxValue='9x'/>\n");
  EXPECT_EQ(index.limitsOf("A").intMax, std::nullopt);
  EXPECT_EQ(index.limitsOf("A").line, 2);
}

TEST(DescriptionIndexTest, LimitsOf_NameOccursTwice_ReturnsTheLast) {
  const auto index = indexOf(
      "<Feature FeatureType='IntEntry' Name='A' IntMinValue='1' IntMaxValue='5'/>\n"
      "<FeatureStaticGroup Name='G'>\n"
      "<Feature FeatureType='IntEntry' Name='A' IntMaxValue='7'/>\n"
      "</FeatureStaticGroup>\n");
  EXPECT_EQ(index.limitsOf("A").intMin, std::nullopt);
  EXPECT_EQ(index.limitsOf("A").intMax, 7);
  EXPECT_EQ(index.limitsOf("A").line, 4);
}

TEST(DescriptionIndexTest, LimitsOf_UnknownName_ReturnsNoLimits) {
  const auto index = indexOf("<Feature FeatureType='IntEntry' Name='A' IntMinValue='1'/>\n");
  EXPECT_EQ(index.limitsOf("B").line, 0);
  EXPECT_EQ(index.limitsOf("B").intMin, std::nullopt);
}

TEST(DescriptionIndexTest, LimitsOf_FeatureInNestedGroups_IsFound) {
  const auto index = indexOf(
      "<FeatureDynamicGroup Name='D'><FeatureStaticGroup Name='T'><FeatureStaticGroup Name='I'>\n"
      "<Feature FeatureType='IntEntry' Name='A' IntMinValue='4'/>\n"
      "</FeatureStaticGroup></FeatureStaticGroup></FeatureDynamicGroup>\n");
  EXPECT_EQ(index.limitsOf("A").intMin, 4);
  EXPECT_EQ(index.limitsOf("A").line, 3);
}

TEST(DescriptionIndexTest, LimitsOf_OptionTaggedFeature_IsNotAFeature) {
  const auto index = indexOf(
      "<Feature FeatureType='MultiSelect' Name='M'>\n"
      "<Feature FeatureType='IntEntry' Name='A' IntMinValue='4'/>\n"
      "</Feature>\n");
  EXPECT_EQ(index.limitsOf("A").line, 0);
}

TEST(DescriptionIndexTest, GroupNamed_BothKindsNestedAndUnknown_ReturnsTheKind) {
  const auto index = indexOf(
      "<FeatureDynamicGroup Name='D'><FeatureStaticGroup Name='T'><FeatureStaticGroup Name='I'/>"
      "</FeatureStaticGroup></FeatureDynamicGroup>\n"
      "<FeatureDynamicGroup Name='Both'/><FeatureStaticGroup Name='Both'/>\n"
      "<Feature Name='F'/>\n");
  EXPECT_EQ(index.groupNamed("D"), GroupKind::kDynamic);
  EXPECT_EQ(index.groupNamed("T"), GroupKind::kStatic);
  EXPECT_EQ(index.groupNamed("I"), GroupKind::kStatic);
  EXPECT_EQ(index.groupNamed("Both"), GroupKind::kStatic);
  EXPECT_EQ(index.groupNamed("F"), GroupKind::kNone);
  EXPECT_EQ(index.groupNamed("d"), GroupKind::kNone);
}

TEST(DescriptionIndexTest, RecordsOf_MembersOfTemplatesAtAnyDepth_ReturnsTheDynamicGroup) {
  const auto index = indexOf(
      "<FeatureDynamicGroup Name='Pages'><FeatureStaticGroup Name='Page'>"
      "<Feature FeatureType='IntEntry' Name='First'/>"
      "<FeatureStaticGroup Name='Inner'><Feature FeatureType='IntEntry' Name='Deep'/>"
      "</FeatureStaticGroup></FeatureStaticGroup></FeatureDynamicGroup>"
      "<FeatureStaticGroup Name='Plain'><Feature FeatureType='IntEntry' Name='Member'/>"
      "</FeatureStaticGroup><Feature FeatureType='IntEntry' Name='Top'/>");
  EXPECT_EQ(index.recordsOf("First"), "Pages");
  EXPECT_EQ(index.recordsOf("Deep"), "Pages");
  EXPECT_EQ(index.recordsOf("Member"), "");
  EXPECT_EQ(index.recordsOf("Top"), "");
  EXPECT_EQ(index.recordsOf("Unknown"), "");
}

TEST(DescriptionIndexTest, RangeText_EachCombination_IsWorded) {
  using Int = std::optional<int>;
  using Float = std::optional<float>;
  EXPECT_EQ(rangeText(Int(1), Int(999)), "from 1 to 999");
  EXPECT_EQ(rangeText(Int(-1), Int()), "at least -1");
  EXPECT_EQ(rangeText(Int(), Int(0)), "at most 0");
  EXPECT_EQ(rangeText(Int(), Int()), "");
  EXPECT_EQ(rangeText(Float(0.1F), Float(2.0F)), "from 0.1 to 2");
}

}  // namespace

}  // namespace driver_feature::host
