#include <string>
#include <vector>

#include "support/loader_test.h"
#include "support/recording_parser.h"

#include "Log.h"

namespace driver_feature::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;

constexpr const char* kGroupTexts[] = {
    "PJLCommand",           "PSCommand",
    "TESKOAAttributeName",  "TESKJTAttributeName",
    "TESKAttributeSyntax",  "AddPJLCallbackRoutine",
    "AddPSCallbackRoutine", "AddVORNCallbackRoutine",
};

const std::string kLeaf = R"(<Feature FeatureType="UIOnly" Name="A"/>)";

// "G1" holding "G2" and so on, down to "G<depth>" that holds a feature.
std::string nestedGroups(int depth) {
  std::string xml;
  for (int i = 1; i <= depth; ++i) {
    xml += "<FeatureStaticGroup Name=\"G" + std::to_string(i) + "\">";
  }
  xml += kLeaf;
  for (int i = 1; i <= depth; ++i) xml += "</FeatureStaticGroup>";
  return xml;
}

class StaticGroupTest : public LoaderTest {
 protected:
  // Builds a group named "G".
  DriverFeatureStaticGroup* group(const std::string& attributes, const std::string& children) {
    return buildStaticGroup("<FeatureStaticGroup Name=\"G\" " + attributes + '>' + children +
                            "</FeatureStaticGroup>");
  }

  // Expects that "G" with these children fails with these texts at level 1.
  void expectFailure(const std::string& children, const std::vector<std::string>& texts) {
    std::vector<std::string> lines;
    for (const std::string& text : texts) lines.push_back(logLine(1, text));
    EXPECT_EQ(group("", children), nullptr);
    EXPECT_THAT(takeEvents(), ElementsAreArray(lines));
  }
};

TEST_F(StaticGroupTest, Name_Absent_FailsBeforeTheParserIsAsked) {
  LogMessageBuffer = "untouched";
  void* element = host_.parse("<FeatureStaticGroup>" + kLeaf + "</FeatureStaticGroup>");
  AttributeMap attributes;
  attributes["name"] = "G";
  const RecordingParser parser;
  EXPECT_EQ(CreateStaticFeatureGroup(element, attributes), nullptr);
  EXPECT_THAT(
      takeEvents(),
      ElementsAre(logLine(1, "CreateStaticFeatureGroup() - No name defined for feature group")));
  EXPECT_EQ(LogMessageBuffer.utf8(), "untouched");
  EXPECT_THAT(staticGroupNames(), IsEmpty());
}

TEST_F(StaticGroupTest, Attributes_None_KeepsTheConstructorsValues) {
  DriverFeatureStaticGroup* built = group("", kLeaf);
  ASSERT_NE(built, nullptr);
  EXPECT_EQ(readText(*built, "Name"), "G");
  EXPECT_EQ(built->getFeatureType(), 6);
  EXPECT_FALSE(read<bool>(*built, "FeatureInGroup"));
  for (const std::string property : kGroupTexts) {
    EXPECT_EQ(readText(*built, property), "") << property;
  }
  EXPECT_THAT(staticGroupNames(), ElementsAre("G"));
  EXPECT_THAT(takeEvents(), IsEmpty());
}

TEST_F(StaticGroupTest, Attributes_Texts_SetThePropertiesOfTheirNames) {
  std::string texts;
  std::string empties;
  for (const std::string name : kGroupTexts) {
    texts += name + "=\"text of " + name + "\" ";
    empties += name + "=\"\" ";
  }
  DriverFeatureStaticGroup* built = group(texts, kLeaf);
  DriverFeatureStaticGroup* empty = group(empties, kLeaf);
  ASSERT_TRUE(built != nullptr && empty != nullptr);
  for (const std::string name : kGroupTexts) {
    EXPECT_EQ(readText(*built, name), "text of " + name);
    EXPECT_EQ(readText(*empty, name), "") << name;
  }
  EXPECT_THAT(takeEvents(), IsEmpty());
}

TEST_F(StaticGroupTest, Attributes_NotOfAGroup_AreNotRead) {
  DriverFeatureStaticGroup* built =
      group(R"(InstOptAttributeName="i" NonVORNAttributeName="n" FeatureType="8"
               FeatureInGroup="true" Sensitivity="x" Visibility="x")",
            kLeaf);
  ASSERT_NE(built, nullptr);
  EXPECT_EQ(readText(*built, "InstOptAttributeName"), "");
  EXPECT_EQ(readText(*built, "NonVORNAttributeName"), "");
  EXPECT_EQ(built->getFeatureType(), 6);
  EXPECT_FALSE(read<bool>(*built, "FeatureInGroup"));
  EXPECT_THAT(takeEvents(), IsEmpty());
}

TEST_F(StaticGroupTest, Children_None_Fails) {
  LogMessageBuffer = "untouched";
  expectFailure("", {"CreateStaticFeatureGroup() - No features for feature group"});
  expectFailure("text", {"CreateStaticFeatureGroup() - No features for feature group"});
  EXPECT_EQ(LogMessageBuffer.utf8(), "untouched");
  EXPECT_THAT(staticGroupNames(), IsEmpty());
}

TEST_F(StaticGroupTest, Children_WrongTag_FailsAndQuotesIt) {
  for (const std::string tag :
       {"feature", "featureStaticGroup", "FeatureDynamicGroup", "BaseFeatureInfo", "Option"}) {
    SCOPED_TRACE(tag);
    expectFailure(kLeaf + '<' + tag + " Name=\"x\"/>",
                  {"CreateStaticFeatureGroup() - Invalid node tag \"" + tag + "\"."});
  }
  EXPECT_THAT(staticGroupNames(), IsEmpty());
  // What was there before the failure stays filed.
  EXPECT_THAT(featureNames(), ElementsAre("A"));
}

TEST_F(StaticGroupTest, Children_FeatureFails_FailsAfterItsLine) {
  LogMessageBuffer = "untouched";
  expectFailure("<Feature Name=\"A\"/>",
                {"CreateFeature() - No keyword defined for feature type",
                 "CreateStaticFeatureGroup() - Could not create feature for feature group"});
  EXPECT_EQ(LogMessageBuffer.utf8(), "untouched");
  EXPECT_THAT(staticGroupNames(), IsEmpty());
}

TEST_F(StaticGroupTest, Children_NestedGroupFails_EveryOuterGroupReports) {
  expectFailure(R"(<FeatureStaticGroup Name="H"><FeatureStaticGroup/></FeatureStaticGroup>)",
                {"CreateStaticFeatureGroup() - No name defined for feature group",
                 "CreateStaticFeatureGroup() - Cannot create nested static feature group to "
                 "feature group \"H\".",
                 "CreateStaticFeatureGroup() - Cannot create nested static feature group to "
                 "feature group \"G\"."});
  EXPECT_THAT(staticGroupNames(), IsEmpty());
}

TEST_F(StaticGroupTest, Children_FeaturesAndGroups_AreMembersInDocumentOrder) {
  DriverFeatureStaticGroup* built = group("", R"(
      <Feature FeatureType="UIOnly" Name="C"/>
      <FeatureStaticGroup Name="H"><Feature FeatureType="UIOnly" Name="B"/></FeatureStaticGroup>
      <Feature FeatureType="IntEntry" Name="A"/>)");
  ASSERT_NE(built, nullptr);
  ASSERT_EQ(built->fetchNumberOfFeaturesInGroup(), 3);
  const std::vector<std::string> names = {"C", "H", "A"};
  for (unsigned i = 0; i < 3; ++i) {
    SCOPED_TRACE(names[i]);
    CoreFeature* member = built->fetchFeatureInGroupByIndex(i);
    EXPECT_EQ(readText(*member, "Name"), names[i]);
    EXPECT_TRUE(read<bool>(*member, "FeatureInGroup"));
    EXPECT_EQ(masterSet().FindFeatureInFeatureList(names[i]), member);
  }
  EXPECT_TRUE(read<bool>(*masterSet().FindFeatureInFeatureList("B"), "FeatureInGroup"));
  EXPECT_FALSE(read<bool>(*built, "FeatureInGroup"));
  EXPECT_THAT(featureNames(), ElementsAre("A", "B", "C"));
  EXPECT_THAT(staticGroupNames(), ElementsAre("H", "G"));
  EXPECT_THAT(takeEvents(), IsEmpty());
}

TEST_F(StaticGroupTest, Children_EmptyName_IsAMemberThatIsNotFiled) {
  DriverFeatureStaticGroup* built = group("", R"(<Feature FeatureType="UIOnly" Name=""/>)");
  ASSERT_NE(built, nullptr);
  EXPECT_EQ(built->fetchNumberOfFeaturesInGroup(), 1);
  EXPECT_THAT(featureNames(), IsEmpty());
}

TEST_F(StaticGroupTest, Children_SameName_BothAreMembersAndTheLaterIsFiled) {
  DriverFeatureStaticGroup* built = group("", kLeaf + kLeaf);
  ASSERT_NE(built, nullptr);
  ASSERT_EQ(built->fetchNumberOfFeaturesInGroup(), 2);
  EXPECT_NE(built->fetchFeatureInGroupByIndex(0), built->fetchFeatureInGroupByIndex(1));
  EXPECT_EQ(masterSet().FindFeatureInFeatureList("A"), built->fetchFeatureInGroupByIndex(1));
  EXPECT_THAT(featureNames(), ElementsAre("A"));
}

TEST_F(StaticGroupTest, Children_Attributes_NeverReachTheNextOrComeFromTheGroup) {
  DriverFeatureStaticGroup* built =
      group(R"(PSCommand="outer" AddPJLCallbackRoutine="routine")", R"(
      <Feature FeatureType="UIOnly" Name="A" PJLCommand="first" TESKOAAttributeName="oa"/>
      <FeatureStaticGroup Name="H"><Feature FeatureType="UIOnly" Name="B"/></FeatureStaticGroup>
      <Feature FeatureType="UIOnly" Name="C"/>)");
  ASSERT_NE(built, nullptr);
  EXPECT_EQ(readText(*built, "PJLCommand"), "");
  for (const std::string name : {"H", "B", "C"}) {
    SCOPED_TRACE(name);
    CoreFeature& member = *masterSet().FindFeatureInFeatureList(name);
    EXPECT_EQ(readText(member, "PJLCommand"), "");
    EXPECT_EQ(readText(member, "PSCommand"), "");
    EXPECT_EQ(readText(member, "TESKOAAttributeName"), "");
    EXPECT_EQ(readText(member, "AddPJLCallbackRoutine"), "");
  }
}

TEST_F(StaticGroupTest, Walk_FeaturesAndGroups_AsksTheParserInOrder) {
  void* element = host_.parse(R"(<FeatureStaticGroup Name="G">
      <FeatureStaticGroup Name="H"><Feature FeatureType="UIOnly" Name="B"/></FeatureStaticGroup>
      <Feature FeatureType="UIOnly" Name="A" Sensitivity="true"/></FeatureStaticGroup>)");
  AttributeMap attributes;
  attributes["Name"] = "G";
  const RecordingParser parser;
  ASSERT_NE(CreateStaticFeatureGroup(element, attributes), nullptr);
  EXPECT_THAT(
      takeEvents(),
      ElementsAre("childCount(FeatureStaticGroup G)", "firstChild(FeatureStaticGroup G)",
                  "tagName(FeatureStaticGroup H)", "attributes(FeatureStaticGroup H, 0)",
                  "childCount(FeatureStaticGroup H)", "firstChild(FeatureStaticGroup H)",
                  "tagName(Feature B)", "attributes(Feature B, 0)", "nextSibling(Feature B)",
                  "nextSibling(FeatureStaticGroup H)", "tagName(Feature A)",
                  "attributes(Feature A, 0)", kUpdateCalled, "nextSibling(Feature A)"));
}

TEST_F(StaticGroupTest, Nesting_ThreeDeep_FilesTheInnermostFirst) {
  ASSERT_NE(buildStaticGroup(nestedGroups(3)), nullptr);
  EXPECT_THAT(staticGroupNames(), ElementsAre("G3", "G2", "G1"));
  EXPECT_THAT(featureNames(), ElementsAre("A"));
}

TEST_F(StaticGroupTest, Nesting_SixtyFourDeep_BuildsEveryLevel) {
  DriverFeatureStaticGroup* outermost = buildStaticGroup(nestedGroups(64));
  ASSERT_NE(outermost, nullptr);
  std::vector<std::string> expected;
  for (int i = 64; i >= 1; --i) expected.push_back("G" + std::to_string(i));
  EXPECT_THAT(staticGroupNames(), ElementsAreArray(expected));
  for (int i = 0; i < 63; ++i) {
    DriverFeatureStaticGroup* inner = masterSet().fetchStaticGroupByIndex(i);
    DriverFeatureStaticGroup* outer = masterSet().fetchStaticGroupByIndex(i + 1);
    EXPECT_EQ(outer->fetchNumberOfFeaturesInGroup(), 1);
    EXPECT_EQ(outer->fetchFeatureInGroupByIndex(0), inner);
  }
  EXPECT_EQ(masterSet().fetchStaticGroupByIndex(63), outermost);
  EXPECT_THAT(takeEvents(), IsEmpty());
}

TEST_F(StaticGroupTest, Names_OfTwoGroupsAlike_BothAreListed) {
  ASSERT_NE(group("", kLeaf), nullptr);
  ASSERT_NE(group("", kLeaf), nullptr);
  EXPECT_THAT(staticGroupNames(), ElementsAre("G", "G"));
  EXPECT_NE(masterSet().fetchStaticGroupByIndex(0), masterSet().fetchStaticGroupByIndex(1));
}

}  // namespace
}  // namespace driver_feature::testing
