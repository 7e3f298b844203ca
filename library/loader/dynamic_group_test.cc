#include <string>
#include <vector>

#include "support/loader_test.h"
#include "support/recording_parser.h"

#include "Log.h"

// Keeps every record where it is.
extern "C" int DynamicGroupTestSort(AttributeMap& /*first*/, AttributeMap& /*second*/) {
  driver_feature::testing::RecordingHost::record("sort routine");
  return 0;
}

namespace driver_feature::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;

// The texts that a dynamic group returns.
constexpr const char* kReadableAttributes[] = {
    "TESKOAAttributeName",
    "TESKJTAttributeName",
    "TESKAttributeSyntax",
};

const std::string kTemplate =
    R"(<FeatureStaticGroup Name="T"><Feature FeatureType="IntEntry" Name="A"/></FeatureStaticGroup>)";

class DynamicGroupTest : public LoaderTest {
 protected:
  // Builds a group named "D".
  DriverFeatureDynamicGroup* group(const std::string& attributes, const std::string& children) {
    return buildDynamicGroup("<FeatureDynamicGroup Name=\"D\" " + attributes + '>' + children +
                             "</FeatureDynamicGroup>");
  }

  // Expects that "D" with these children fails with these texts at level 1.
  void expectFailure(const std::string& children, const std::vector<std::string>& texts) {
    std::vector<std::string> lines;
    for (const std::string& text : texts) lines.push_back(logLine(1, text));
    EXPECT_EQ(group("", children), nullptr);
    EXPECT_THAT(takeEvents(), ElementsAreArray(lines));
  }

  static void addRecord(DriverFeatureDynamicGroup& group, const std::string& value) {
    AttributeMap values;
    values["A"] = value;
    EXPECT_TRUE(group.addStaticGroupToDynamicGroup(values));
  }
};

TEST_F(DynamicGroupTest, Name_Absent_FailsBeforeTheParserIsAsked) {
  LogMessageBuffer = "untouched";
  void* element = host_.parse("<FeatureDynamicGroup>" + kTemplate + "</FeatureDynamicGroup>");
  AttributeMap attributes;
  attributes["name"] = "D";
  const RecordingParser parser;
  EXPECT_EQ(CreateDynamicFeatureGroup(element, attributes), nullptr);
  EXPECT_THAT(
      takeEvents(),
      ElementsAre(logLine(1, "CreateDynamicFeatureGroup() - No name defined for feature group")));
  EXPECT_EQ(LogMessageBuffer.utf8(), "untouched");
}

TEST_F(DynamicGroupTest, Attributes_AllPresent_AreTakenAsTextsWithoutLogging) {
  // None of them reads as a flag or a number, which the platform would log.
  DriverFeatureDynamicGroup* built =
      group(R"(PJLCommand="p" PSCommand="s" TESKOAAttributeName="o" TESKJTAttributeName="j"
               TESKAttributeSyntax="y" SortFunctionName="DynamicGroupTestSort")",
            kTemplate);
  ASSERT_NE(built, nullptr);
  EXPECT_THAT(takeEvents(), IsEmpty());
}

TEST_F(DynamicGroupTest, Build_TemplateAlone_FilesTheTemplateThenTheGroup) {
  DriverFeatureDynamicGroup* built = group("", kTemplate);
  ASSERT_NE(built, nullptr);
  EXPECT_EQ(readText(*built, "Name"), "D");
  EXPECT_EQ(built->getFeatureType(), 8);
  EXPECT_EQ(built->fetchNumberOfDynamicEntries(), 0);
  EXPECT_EQ(masterSet().FindFeatureInFeatureList("D"), built);
  EXPECT_THAT(staticGroupNames(), ElementsAre("T"));
  EXPECT_THAT(featureNames(), ElementsAre("A"));
  EXPECT_EQ(built->fetchStaticGroupTemplate(), masterSet().fetchStaticGroupByIndex(0));
  EXPECT_THAT(takeEvents(), IsEmpty());
}

TEST_F(DynamicGroupTest, Template_Built_HasTypeSevenAndIsInNoGroup) {
  ASSERT_NE(group("", R"(<FeatureStaticGroup Name="T" PSCommand="ps">
      <FeatureStaticGroup Name="N"><Feature FeatureType="UIOnly" Name="A"/></FeatureStaticGroup>
      <Feature FeatureType="IntEntry" Name="B"/></FeatureStaticGroup>)"),
            nullptr);
  CoreFeature& shape = *masterSet().FindFeatureInFeatureList("T");
  EXPECT_EQ(shape.getFeatureType(), 7);
  EXPECT_EQ(read<int>(shape, "FeatureType"), 7);
  EXPECT_FALSE(read<bool>(shape, "FeatureInGroup"));
  EXPECT_EQ(readText(shape, "PSCommand"), "ps");
  EXPECT_EQ(masterSet().FindFeatureInFeatureList("N")->getFeatureType(), 6);
  EXPECT_TRUE(read<bool>(*masterSet().FindFeatureInFeatureList("B"), "FeatureInGroup"));
  EXPECT_THAT(staticGroupNames(), ElementsAre("N", "T"));
  EXPECT_THAT(featureNames(), ElementsAre("A", "B"));
}

TEST_F(DynamicGroupTest, Attributes_ReadableTexts_SetThePropertiesOfTheirNames) {
  std::string texts;
  std::string empties;
  for (const std::string name : kReadableAttributes) {
    texts += name + "=\"text of " + name + "\" ";
    empties += name + "=\"\" ";
  }
  DriverFeatureDynamicGroup* built = group(texts, kTemplate);
  DriverFeatureDynamicGroup* empty = group(empties, kTemplate);
  ASSERT_TRUE(built != nullptr && empty != nullptr);
  for (const std::string name : kReadableAttributes) {
    EXPECT_EQ(readText(*built, name), "text of " + name);
    EXPECT_EQ(readText(*empty, name), "") << name;
  }
  EXPECT_THAT(takeEvents(), IsEmpty());
}

TEST_F(DynamicGroupTest, Attributes_SortFunctionName_IsTheRoutineOfTheRecords) {
  DriverFeatureDynamicGroup* built = group(R"(SortFunctionName="DynamicGroupTestSort")", kTemplate);
  ASSERT_NE(built, nullptr);
  // It is not looked up before the first record.
  EXPECT_THAT(takeEvents(), IsEmpty());
  addRecord(*built, "1");
  addRecord(*built, "2");
  EXPECT_THAT(takeEvents(), ElementsAre(kUpdateCalled, "sort routine", kUpdateCalled));
}

TEST_F(DynamicGroupTest, Attributes_SortFunctionAbsentOrUnknown_RecordsStayAsTheyCome) {
  DriverFeatureDynamicGroup* built = group("", kTemplate);
  ASSERT_NE(built, nullptr);
  addRecord(*built, "2");
  EXPECT_THAT(takeEvents(), ElementsAre(kUpdateCalled));
  built = group(R"(SortFunctionName="NoSuchRoutine")", kTemplate);
  ASSERT_NE(built, nullptr);
  EXPECT_THAT(takeEvents(), IsEmpty());
  addRecord(*built, "2");
  EXPECT_THAT(takeEvents(), ElementsAre(logLine(2,
                                                "addStaticGroupToDynamicGroupWithSort:  Failed to "
                                                "load custom sort callback:  NoSuchRoutine"),
                                        kUpdateCalled));
}

TEST_F(DynamicGroupTest, Attributes_NotOfADynamicGroup_AreNotRead) {
  DriverFeatureDynamicGroup* built =
      group(R"(InstOptAttributeName="i" NonVORNAttributeName="n" AddPJLCallbackRoutine="p"
               AddPSCallbackRoutine="q" AddVORNCallbackRoutine="v" Sensitivity="x"
               Visibility="false" RecordInFocus="3")",
            kTemplate);
  ASSERT_NE(built, nullptr);
  for (const std::string property :
       {"InstOptAttributeName", "NonVORNAttributeName", "AddPJLCallbackRoutine",
        "AddPSCallbackRoutine", "AddVORNCallbackRoutine"}) {
    EXPECT_EQ(readText(*built, property), "") << property;
  }
  EXPECT_TRUE(read<bool>(*built, "Sensitivity"));
  EXPECT_TRUE(read<bool>(*built, "Visibility"));
  EXPECT_EQ(read<int>(*built, "RecordInFocus"), -1);
  EXPECT_THAT(takeEvents(), IsEmpty());
}

TEST_F(DynamicGroupTest, Children_NotExactlyOne_Fails) {
  const std::string text =
      "CreateDynamicFeatureGroup() - Wrong number of subnodes for dynamic group";
  LogMessageBuffer = "untouched";
  expectFailure("", {text});
  expectFailure(kTemplate + kTemplate, {text});
  expectFailure("<Wrong/><Wrong/><Wrong/>", {text});
  EXPECT_EQ(LogMessageBuffer.utf8(), "untouched");
  // No child has been looked at.
  EXPECT_THAT(staticGroupNames(), IsEmpty());
  EXPECT_THAT(featureNames(), IsEmpty());
}

TEST_F(DynamicGroupTest, Children_WrongTag_FailsAndQuotesIt) {
  for (const std::string tag :
       {"Feature", "FeatureDynamicGroup", "featureStaticGroup", "BaseFeatureInfo"}) {
    SCOPED_TRACE(tag);
    expectFailure('<' + tag + R"( FeatureType="UIOnly" Name="x"/>)",
                  {"CreateDynamicFeatureGroup() - Invalid node tag \"" + tag + "\"."});
  }
  EXPECT_THAT(featureNames(), IsEmpty());
}

TEST_F(DynamicGroupTest, Children_TemplateFails_FailsAfterItsLines) {
  const std::string text =
      "CreateDynamicFeatureGroup() - Cannot create template static feature group to feature group "
      "\"D\".";
  expectFailure(R"(<FeatureStaticGroup Name="T"/>)",
                {"CreateStaticFeatureGroup() - No features for feature group", text});
  // The group's own name does not stand in for the template's.
  expectFailure("<FeatureStaticGroup/>",
                {"CreateStaticFeatureGroup() - No name defined for feature group", text});
  expectFailure(R"(<FeatureStaticGroup Name="T"><Wrong/></FeatureStaticGroup>)",
                {"CreateStaticFeatureGroup() - Invalid node tag \"Wrong\".", text});
  EXPECT_THAT(staticGroupNames(), IsEmpty());
}

TEST_F(DynamicGroupTest, Failure_AnyStep_TheGroupIsNotFiled) {
  group("", "");
  group("", "<Wrong/>");
  group("", "<FeatureStaticGroup/>");
  takeEvents();
  EXPECT_EQ(masterSet().FindFeatureInFeatureList("D"), nullptr);
}

TEST_F(DynamicGroupTest, Template_AttributesOfTheGroup_DoNotReachIt) {
  ASSERT_NE(group(R"(PSCommand="ps" TESKOAAttributeName="oa")", kTemplate), nullptr);
  CoreFeature& shape = *masterSet().FindFeatureInFeatureList("T");
  EXPECT_EQ(readText(shape, "PSCommand"), "");
  EXPECT_EQ(readText(shape, "TESKOAAttributeName"), "");
}

TEST_F(DynamicGroupTest, Walk_OneTemplate_AsksTheParserInOrder) {
  void* element =
      host_.parse("<FeatureDynamicGroup Name=\"D\">" + kTemplate + "</FeatureDynamicGroup>");
  AttributeMap attributes;
  attributes["Name"] = "D";
  const RecordingParser parser;
  ASSERT_NE(CreateDynamicFeatureGroup(element, attributes), nullptr);
  EXPECT_THAT(
      takeEvents(),
      ElementsAre("childCount(FeatureDynamicGroup D)", "firstChild(FeatureDynamicGroup D)",
                  "tagName(FeatureStaticGroup T)", "attributes(FeatureStaticGroup T, 0)",
                  "childCount(FeatureStaticGroup T)", "firstChild(FeatureStaticGroup T)",
                  "tagName(Feature A)", "attributes(Feature A, 0)", "nextSibling(Feature A)"));
}

}  // namespace
}  // namespace driver_feature::testing
