// Feature types, their keywords, and the attributes of the entry types.

#include <string>
#include <vector>

#include "support/loader_test.h"
#include "support/recording_parser.h"

#include "Log.h"

namespace driver_feature::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class FeatureTypesTest : public LoaderTest {
 protected:
  DriverFeature& feature(const std::string& attributes) {
    DriverFeature* built = buildFeature("<Feature Name=\"A\" " + attributes + "/>");
    EXPECT_NE(built, nullptr) << attributes;
    return *built;
  }
};

struct KeywordRow {
  const char* keyword;
  int type;
  int valueType;
};

constexpr KeywordRow kKeywords[] = {
    {"UIOnly", 0, 0},
    {"MultiSelect", 1, 1},
    {"IntEntry", 2, 1},
    {"TextEntry", 3, 2},
    {"FloatEntry", 4, 3},
    // This type leaves the constructor's value type.
    {"MVCList", 5, 1},
};

TEST_F(FeatureTypesTest, Keyword_EachOfSix_SetsTypeAndValueType) {
  for (const KeywordRow& row : kKeywords) {
    SCOPED_TRACE(row.keyword);
    DriverFeature* built =
        buildFeature("<Feature Name=\"A\" DefaultValue=\"1\" FeatureType=\"" +
                     std::string(row.keyword) + "\"><Option Name=\"1\"/></Feature>");
    ASSERT_NE(built, nullptr);
    EXPECT_EQ(built->getFeatureType(), row.type);
    EXPECT_EQ(read<int>(*built, "FeatureType"), row.type);
    EXPECT_EQ(read<int>(*built, "FeatureValueType"), row.valueType);
    EXPECT_EQ(masterSet().FindFeatureInFeatureList("A"), built);
    EXPECT_THAT(takeEvents(), IsEmpty());
  }
}

TEST_F(FeatureTypesTest, Keyword_AnyOther_FailsAndFilesNothing) {
  for (const std::string keyword :
       {"", "uionly", "UIONLY", "multiSelect", "Intentry", " IntEntry", "IntEntry ", "Entry",
        "Static", "Static Group", "Dynamic Group Template", "DynamicGroup", "0", "6", "Int", "Text",
        "Float", "(null)"}) {
    SCOPED_TRACE(keyword);
    EXPECT_EQ(buildFeature("<Feature Name=\"A\" FeatureType=\"" + keyword +
                           "\" Sensitivity=\"true\"><Option Name=\"1\"/></Feature>"),
              nullptr);
    EXPECT_THAT(takeEvents(), ElementsAre(logLine(1, "CreateFeature() - Invalid feature type \"" +
                                                         keyword + "\" for feature \"A\".")));
    EXPECT_THAT(featureNames(), IsEmpty());
  }
}

TEST_F(FeatureTypesTest, Keyword_Absent_FailsBeforeTheNameIsLookedAt) {
  const std::string line = logLine(1, "CreateFeature() - No keyword defined for feature type");
  EXPECT_EQ(buildFeature("<Feature/>"), nullptr);
  EXPECT_THAT(takeEvents(), ElementsAre(line));
  EXPECT_EQ(buildFeature("<Feature Name=\"A\" featureType=\"UIOnly\"/>"), nullptr);
  EXPECT_THAT(takeEvents(), ElementsAre(line));
  EXPECT_THAT(featureNames(), IsEmpty());
}

TEST_F(FeatureTypesTest, Name_Absent_FailsBeforeTheKeywordIsCompared) {
  const std::string line = logLine(1, "CreateFeature() - No name defined for feature");
  for (const std::string type : {"UIOnly", "NoSuchType"}) {
    SCOPED_TRACE(type);
    EXPECT_EQ(buildFeature("<Feature FeatureType=\"" + type + "\" name=\"A\"/>"), nullptr);
    EXPECT_THAT(takeEvents(), ElementsAre(line));
  }
  EXPECT_THAT(featureNames(), IsEmpty());
}

TEST_F(FeatureTypesTest, Name_Empty_IsBuiltButNotFiled) {
  DriverFeature* built = buildFeature(R"(<Feature FeatureType="UIOnly" Name=""/>)");
  ASSERT_NE(built, nullptr);
  EXPECT_EQ(readText(*built, "Name"), "");
  EXPECT_THAT(featureNames(), IsEmpty());
  EXPECT_THAT(takeEvents(), IsEmpty());
}

TEST_F(FeatureTypesTest, Name_Duplicate_TheLaterReplacesTheEarlier) {
  DriverFeature* first = buildFeature(R"(<Feature FeatureType="UIOnly" Name="A"/>)");
  DriverFeature* second = buildFeature(R"(<Feature FeatureType="IntEntry" Name="A"/>)");
  ASSERT_NE(first, second);
  EXPECT_THAT(featureNames(), ElementsAre("A"));
  EXPECT_EQ(masterSet().FindFeatureInFeatureList("A"), second);
  EXPECT_THAT(takeEvents(), IsEmpty());
}

TEST_F(FeatureTypesTest, Types_WithoutOptions_DoNotAskTheParser) {
  for (const std::string type : {"UIOnly", "IntEntry", "TextEntry", "FloatEntry", "MVCList"}) {
    SCOPED_TRACE(type);
    void* element = host_.parse("<Feature Name=\"A\"><Option Name=\"o\"/></Feature>");
    AttributeMap attributes;
    attributes["Name"] = "A";
    attributes["FeatureType"] = type;
    const RecordingParser parser;
    EXPECT_NE(CreateFeature(element, attributes), nullptr);
    EXPECT_THAT(takeEvents(), IsEmpty());
  }
}

TEST_F(FeatureTypesTest, UIOnlyAndMVCList_EntryAttributes_AreIgnored) {
  for (const std::string type : {"UIOnly", "MVCList"}) {
    SCOPED_TRACE(type);
    // Unconvertible texts would be logged, were they read.
    DriverFeature& built =
        feature("FeatureType=\"" + type +
                R"(" DefaultValue="x" IntMaxValue="x" IntMinValue="x" FloatMaxValue="x"
             FloatMinValue="x" MaxTextLength="x" TextValidationCharSet="x")");
    EXPECT_THAT(takeEvents(), IsEmpty());
    EXPECT_EQ(readText(built, "CurrentTextValue"), "");
    EXPECT_EQ(readText(built, "TextValidationCharSet"), "");
    EXPECT_EQ(read<int>(built, "CurrentIntValue"), 0);
  }
}

TEST_F(FeatureTypesTest, EntryTypes_AttributesOfOtherTypes_AreIgnored) {
  feature(R"(FeatureType="IntEntry" FloatMaxValue="x" FloatMinValue="x" MaxTextLength="x"
             TextValidationCharSet="x")");
  EXPECT_THAT(takeEvents(), IsEmpty());
  feature(R"(FeatureType="FloatEntry" IntMaxValue="x" IntMinValue="x" MaxTextLength="x"
             TextValidationCharSet="x")");
  EXPECT_THAT(takeEvents(), IsEmpty());
  feature(R"(FeatureType="TextEntry" IntMaxValue="x" IntMinValue="x" FloatMaxValue="x"
             FloatMinValue="x")");
  EXPECT_THAT(takeEvents(), IsEmpty());
}

TEST_F(FeatureTypesTest, IntEntry_Default_BecomesDefaultAndCurrentWithoutLogging) {
  for (const int value : {7, 0, -5, 2147483647, -2147483647 - 1}) {
    SCOPED_TRACE(value);
    DriverFeature& built =
        feature("FeatureType=\"IntEntry\" DefaultValue=\"" + std::to_string(value) + "\"");
    EXPECT_EQ(read<int>(built, "DefaultIntValue"), value);
    EXPECT_EQ(read<int>(built, "CurrentIntValue"), value);
    EXPECT_EQ(read<int>(built, "OriginalIntValue"), 0);
    EXPECT_EQ(read<int>(built, "DeferredIntValue"), 0);
    EXPECT_THAT(takeEvents(), IsEmpty());
  }
}

TEST_F(FeatureTypesTest, IntEntry_DefaultAbsentOrUnconvertible_KeepsTheConstructorsValues) {
  DriverFeature& absent = feature(R"(FeatureType="IntEntry" IntMaxValue="9" IntMinValue="3")");
  EXPECT_EQ(read<int>(absent, "DefaultIntValue"), 0);
  EXPECT_EQ(read<int>(absent, "CurrentIntValue"), 0);
  EXPECT_THAT(takeEvents(), IsEmpty());
  for (const std::string text : {"", "3.5", "3 ", "x", "2147483648"}) {
    SCOPED_TRACE(text);
    DriverFeature& built = feature("FeatureType=\"IntEntry\" DefaultValue=\"" + text + "\"");
    EXPECT_EQ(read<int>(built, "DefaultIntValue"), 0);
    EXPECT_EQ(read<int>(built, "CurrentIntValue"), 0);
    EXPECT_THAT(takeEvents(), ElementsAre(conversionLine("DefaultValue", text)));
  }
}

TEST_F(FeatureTypesTest, FloatEntry_Attributes_AreStoredNarrowedAndWithoutLogging) {
  DriverFeature& built = feature(
      R"(FeatureType="FloatEntry" FloatMaxValue="10.1" FloatMinValue="-0.1" DefaultValue="2.7")");
  EXPECT_EQ(read<float>(built, "FloatMaxValue"), 10.1F);
  EXPECT_EQ(read<float>(built, "FloatMinValue"), -0.1F);
  EXPECT_EQ(read<float>(built, "DefaultFloatValue"), 2.7F);
  EXPECT_EQ(read<float>(built, "CurrentFloatValue"), 2.7F);
  EXPECT_EQ(read<float>(built, "OriginalFloatValue"), 0.0F);
  EXPECT_THAT(takeEvents(), IsEmpty());
}

TEST_F(FeatureTypesTest, FloatEntry_NoOrUnconvertibleDefault_KeepsTheConstructorsValues) {
  DriverFeature& absent = feature(R"(FeatureType="FloatEntry" FloatMaxValue="5")");
  EXPECT_EQ(read<float>(absent, "CurrentFloatValue"), 0.0F);
  EXPECT_THAT(takeEvents(), IsEmpty());
  DriverFeature& wrong = feature(R"(FeatureType="FloatEntry" DefaultValue="1,5")");
  EXPECT_EQ(read<float>(wrong, "DefaultFloatValue"), 0.0F);
  EXPECT_EQ(read<float>(wrong, "CurrentFloatValue"), 0.0F);
  EXPECT_THAT(takeEvents(), ElementsAre(conversionLine("DefaultValue", "1,5")));
}

TEST_F(FeatureTypesTest, TextEntry_Attributes_AreStoredWithoutLogging) {
  DriverFeature& built = feature(R"(FeatureType="TextEntry" TextValidationCharSet="abc"
                                    MaxTextLength="12" DefaultValue="a longer text than 12")");
  EXPECT_EQ(readText(built, "TextValidationCharSet"), "abc");
  EXPECT_EQ(read<int>(built, "MaxTextLength"), 12);
  EXPECT_EQ(readText(built, "DefaultTextValue"), "a longer text than 12");
  EXPECT_EQ(readText(built, "CurrentTextValue"), "a longer text than 12");
  EXPECT_EQ(readText(built, "OriginalTextValue"), "");
  EXPECT_THAT(takeEvents(), IsEmpty());
}

TEST_F(FeatureTypesTest, TextEntry_NoOrEmptyDefault_IsEmpty) {
  EXPECT_EQ(readText(feature(R"(FeatureType="TextEntry")"), "CurrentTextValue"), "");
  DriverFeature& empty =
      feature(R"(FeatureType="TextEntry" DefaultValue="" TextValidationCharSet="")");
  EXPECT_EQ(readText(empty, "DefaultTextValue"), "");
  EXPECT_EQ(readText(empty, "TextValidationCharSet"), "");
  EXPECT_THAT(takeEvents(), IsEmpty());
}

TEST_F(FeatureTypesTest, EntryTypes_UnconvertibleAttributes_AreReadInTheirOrder) {
  feature(R"(FeatureType="IntEntry" DefaultValue="c" IntMinValue="b" IntMaxValue="a")");
  EXPECT_THAT(takeEvents(),
              ElementsAre(conversionLine("IntMaxValue", "a"), conversionLine("IntMinValue", "b"),
                          conversionLine("DefaultValue", "c")));
  feature(R"(FeatureType="FloatEntry" DefaultValue="c" FloatMinValue="b" FloatMaxValue="a")");
  EXPECT_THAT(takeEvents(), ElementsAre(conversionLine("FloatMaxValue", "a"),
                                        conversionLine("FloatMinValue", "b"),
                                        conversionLine("DefaultValue", "c")));
}

TEST_F(FeatureTypesTest, EntryTypes_DefaultAfterCreation_RunsTheChangeRoutineButNotTheHosts) {
  SetFeatureCreationCompleteFlag();
  for (const std::string type : {"IntEntry", "TextEntry", "FloatEntry"}) {
    SCOPED_TRACE(type);
    feature("DefaultValue=\"3\" AddCallbackRoutine=\"RecordChange\" FeatureType=\"" + type + "\"");
    EXPECT_THAT(takeEvents(), ElementsAre(kChangeCalled));
  }
}

TEST_F(FeatureTypesTest, Failures_WithoutNames_LeaveTheMessageBufferAlone) {
  LogMessageBuffer = "untouched";
  buildFeature("<Feature/>");
  buildFeature(R"(<Feature FeatureType="UIOnly"/>)");
  EXPECT_EQ(LogMessageBuffer.utf8(), "untouched");
  buildFeature(R"(<Feature FeatureType="x" Name="A"/>)");
  EXPECT_EQ(LogMessageBuffer.utf8(),
            "CreateFeature() - Invalid feature type \"x\" for feature \"A\".");
}

}  // namespace
}  // namespace driver_feature::testing
