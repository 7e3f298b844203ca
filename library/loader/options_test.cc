// Option elements, and the options and the default option of a list feature.

#include <string>
#include <vector>

#include "support/loader_test.h"
#include "support/recording_parser.h"

#include "Log.h"

namespace driver_feature::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::IsSupersetOf;

constexpr const char* kOptionTexts[] = {
    "PJLCommand", "PSCommand", "TESKCommand", "TESKTicketCommand", "SNMPValue", "CLOKey",
};

class OptionsTest : public LoaderTest {
 protected:
  static DriverFeatureOption& option(AttributeMap attributes) {
    attributes["Name"] = "o";
    std::string text;
    DriverFeatureOption* built = CreateFeatureOption(attributes, text, takeRoom());
    EXPECT_NE(built, nullptr);
    return *built;
  }

  static DriverFeatureOption& option(const std::string& attribute, const std::string& text) {
    AttributeMap attributes;
    attributes[attribute] = text;
    return option(attributes);
  }

  // A list feature with options A4, Letter and A3.
  DriverFeature& media(const std::string& attributes) {
    DriverFeature* built =
        buildFeature("<Feature FeatureType=\"MultiSelect\" Name=\"Media\" " + attributes +
                     R"(><Option Name="A4"/><Option Name="Letter"/>
                                        <Option Name="A3"/></Feature>)");
    EXPECT_NE(built, nullptr);
    return *built;
  }
};

TEST_F(OptionsTest, Option_NameAlone_KeepsTheConstructorsValues) {
  DriverFeatureOption& built = option({});
  EXPECT_EQ(readText(built, "Name"), "o");
  EXPECT_EQ(readText(built, "DisplayText"), "");
  for (const std::string property : kOptionTexts) {
    EXPECT_EQ(readText(built, property), "") << property;
  }
  EXPECT_TRUE(readFlag(built, "Sensitivity"));
  EXPECT_TRUE(readFlag(built, "Visibility"));
  EXPECT_THAT(takeEvents(), IsEmpty());
}

TEST_F(OptionsTest, Option_NoName_FailsBeforeAnythingElseIsRead) {
  AttributeMap attributes;
  attributes["Sensitivity"] = "does not convert";
  attributes["name"] = "o";
  std::string text;
  EXPECT_EQ(CreateFeatureOption(attributes, text, takeRoom()), nullptr);
  EXPECT_THAT(takeEvents(),
              ElementsAre(logLine(1, "CreateFeatureOption() - No name defined for option")));
}

TEST_F(OptionsTest, Option_EmptyName_IsAName) {
  AttributeMap attributes;
  attributes["Name"] = "";
  std::string text;
  DriverFeatureOption* built = CreateFeatureOption(attributes, text, takeRoom());
  ASSERT_NE(built, nullptr);
  EXPECT_EQ(readText(*built, "Name"), "");
}

TEST_F(OptionsTest, Option_Texts_SetThePropertiesOfTheirNames) {
  AttributeMap texts;
  AttributeMap empties;
  for (const std::string name : kOptionTexts) {
    texts[name] = "text of " + name;
    empties[name] = "";
  }
  DriverFeatureOption& built = option(texts);
  DriverFeatureOption& empty = option(empties);
  for (const std::string name : kOptionTexts) {
    EXPECT_EQ(readText(built, name), "text of " + name);
    EXPECT_EQ(readText(empty, name), "") << name;
  }
  EXPECT_THAT(takeEvents(), IsEmpty());
}

TEST_F(OptionsTest, Option_Sensitivity_IsSetAndNotifiesNobody) {
  for (const std::string text : {"true", "1", "false", "0"}) {
    SCOPED_TRACE(text);
    EXPECT_EQ(readFlag(option("Sensitivity", text), "Sensitivity"), text == "true" || text == "1");
  }
  EXPECT_THAT(takeEvents(), IsEmpty());
}

TEST_F(OptionsTest, Option_SensitivityDoesNotConvert_IsLoggedByThePlatformAndLeft) {
  EXPECT_TRUE(readFlag(option("Sensitivity", "no"), "Sensitivity"));
  EXPECT_THAT(takeEvents(), ElementsAre(conversionLine("Sensitivity", "no")));
}

TEST_F(OptionsTest, Option_DisplayTextAndVisibility_AreNotRead) {
  EXPECT_EQ(readText(option("DisplayText", "A four"), "DisplayText"), "");
  EXPECT_TRUE(readFlag(option("Visibility", "false"), "Visibility"));
  // Were it read, the platform would log it.
  EXPECT_TRUE(readFlag(option("Visibility", "no"), "Visibility"));
  EXPECT_THAT(takeEvents(), IsEmpty());
}

TEST_F(OptionsTest, List_TextsOfOneOptionChange_TheOthersStay) {
  DriverFeature* built = buildFeature(
      R"(<Feature FeatureType="MultiSelect" Name="Media" DefaultValue="A4">)"
      R"(<Option Name="A4" PSCommand="four"/><Option Name="A3" PSCommand="three"/></Feature>)");
  ASSERT_NE(built, nullptr);
  CoreOption& first = *built->fetchOptionByIndex(0);
  CoreOption& second = *built->fetchOptionByIndex(1);
  for (const std::string text : {"FOUR", "a longer text than before", "", "4"}) {
    EXPECT_TRUE(first.setOptionProperty(std::string("PSCommand"), text));
    EXPECT_EQ(readText(first, "PSCommand"), text);
    EXPECT_EQ(readText(first, "Name"), "A4");
    EXPECT_EQ(readText(second, "PSCommand"), "three");
    EXPECT_EQ(readText(second, "Name"), "A3");
  }
}

TEST_F(OptionsTest, List_NoChildren_Fails) {
  const std::string line = logLine(1, "CreateFeature() - No options for MultiSelect feature");
  LogMessageBuffer = "untouched";
  EXPECT_EQ(buildFeature(R"(<Feature FeatureType="MultiSelect" Name="Media"/>)"), nullptr);
  EXPECT_EQ(buildFeature("<Feature FeatureType=\"MultiSelect\" Name=\"Media\" DefaultValue=\"A4\">"
                         "text <!-- and a comment --></Feature>"),
            nullptr);
  EXPECT_THAT(takeEvents(), ElementsAre(line, line));
  EXPECT_THAT(featureNames(), IsEmpty());
  EXPECT_EQ(LogMessageBuffer.utf8(), "untouched");
}

TEST_F(OptionsTest, List_OptionWithoutName_Fails) {
  LogMessageBuffer = "untouched";
  EXPECT_EQ(buildFeature(R"(<Feature FeatureType="MultiSelect" Name="Media" DefaultValue="A4">
                            <Option Name="A4"/><Option PSCommand="x"/></Feature>)"),
            nullptr);
  EXPECT_THAT(
      takeEvents(),
      ElementsAre(logLine(1, "CreateFeatureOption() - No name defined for option"),
                  logLine(1, "CreateFeature() - Could not create MultiSelect feature option")));
  EXPECT_THAT(featureNames(), IsEmpty());
  EXPECT_EQ(LogMessageBuffer.utf8(), "untouched");
}

TEST_F(OptionsTest, List_Children_BecomeOptionsInDocumentOrderWhateverTheirTag) {
  DriverFeature* built = buildFeature(
      R"(<Feature FeatureType="MultiSelect" Name="Media" DefaultValue="A4">
         <Feature Name="A4"/><FeatureStaticGroup Name="Letter"/><x Name="A4"/></Feature>)");
  ASSERT_NE(built, nullptr);
  ASSERT_EQ(built->fetchNumberOfOptions(), 3);
  EXPECT_EQ(readText(*built->fetchOptionByIndex(0), "Name"), "A4");
  EXPECT_EQ(readText(*built->fetchOptionByIndex(1), "Name"), "Letter");
  EXPECT_EQ(readText(*built->fetchOptionByIndex(2), "Name"), "A4");
  EXPECT_THAT(featureNames(), ElementsAre("Media"));
  EXPECT_THAT(takeEvents(), IsEmpty());
}

TEST_F(OptionsTest, List_AttributesOfOneOption_NeverReachTheNextOrComeFromTheFeature) {
  DriverFeature* built = buildFeature(
      R"(<Feature FeatureType="MultiSelect" Name="Media" DefaultValue="A4" PJLCommand="feature">
         <Option Name="A4" Sensitivity="false" PSCommand="ps" CLOKey="key"/>
         <Option Name="Letter"/></Feature>)");
  ASSERT_NE(built, nullptr);
  CoreOption& first = *built->fetchOptionByIndex(0);
  EXPECT_EQ(readText(first, "PSCommand"), "ps");
  EXPECT_FALSE(readFlag(first, "Sensitivity"));
  EXPECT_EQ(readText(first, "PJLCommand"), "");
  CoreOption& second = *built->fetchOptionByIndex(1);
  EXPECT_EQ(readText(second, "PSCommand"), "");
  EXPECT_EQ(readText(second, "CLOKey"), "");
  EXPECT_TRUE(readFlag(second, "Sensitivity"));
  EXPECT_EQ(readText(*built, "PSCommand"), "");
}

TEST_F(OptionsTest, List_Children_AreAskedForInTheOrderOfTheWalk) {
  void* element = host_.parse(R"(<Feature Name="Media"><Option Name="A4"/><Any Name="A3"/>
                                 </Feature>)");
  AttributeMap attributes;
  attributes["Name"] = "Media";
  attributes["FeatureType"] = "MultiSelect";
  attributes["DefaultValue"] = "A3";
  attributes["Sensitivity"] = "true";
  const RecordingParser parser;
  ASSERT_NE(CreateFeature(element, attributes), nullptr);
  EXPECT_THAT(
      takeEvents(),
      ElementsAre(kUpdateCalled, "childCount(Feature Media)", "firstChild(Feature Media)",
                  "tagName(Option A4)", "attributes(Option A4, 0)", "nextSibling(Option A4)",
                  "tagName(Any A3)", "attributes(Any A3, 0)", "nextSibling(Any A3)"));
}

TEST_F(OptionsTest, List_ParserCountsFewerChildren_OnlyThatManyAreBuilt) {
  RecordingParser parser;
  parser.claimedCount = 2;
  DriverFeature& built = media(R"(DefaultValue="Letter")");
  EXPECT_EQ(built.fetchNumberOfOptions(), 2);
  EXPECT_EQ(read<int>(built, "CurrentIntValue"), 1);
}

TEST_F(OptionsTest, List_ParserCountsMoreChildren_TheMissingOneHasNoName) {
  RecordingParser parser;
  parser.claimedCount = 3;
  EXPECT_EQ(buildFeature(R"(<Feature FeatureType="MultiSelect" Name="Media" DefaultValue="A4">
                            <Option Name="A4"/></Feature>)"),
            nullptr);
  EXPECT_THAT(
      takeEvents(),
      IsSupersetOf({logLine(1, "CreateFeatureOption() - No name defined for option"),
                    logLine(1, "CreateFeature() - Could not create MultiSelect feature option")}));
}

TEST_F(OptionsTest, List_ParserCountsNone_FailsBeforeTheFirstChild) {
  void* element = host_.parse(R"(<Feature Name="Media"><Option Name="A4"/></Feature>)");
  AttributeMap attributes;
  attributes["Name"] = "Media";
  attributes["FeatureType"] = "MultiSelect";
  RecordingParser parser;
  parser.claimedCount = 0;
  EXPECT_EQ(CreateFeature(element, attributes), nullptr);
  EXPECT_THAT(takeEvents(),
              ElementsAre("childCount(Feature Media)",
                          logLine(1, "CreateFeature() - No options for MultiSelect feature")));
}

TEST_F(OptionsTest, Default_Found_BecomesDefaultAndCurrentWithoutLogging) {
  const std::vector<std::string> names = {"A4", "Letter", "A3"};
  for (int position = 0; position < 3; ++position) {
    const std::string& name = names[static_cast<std::size_t>(position)];
    SCOPED_TRACE(name);
    DriverFeature& built = media("DefaultValue=\"" + name + "\"");
    EXPECT_EQ(read<int>(built, "DefaultIntValue"), position);
    EXPECT_EQ(read<int>(built, "CurrentIntValue"), position);
    EXPECT_EQ(read<int>(built, "OriginalIntValue"), 0);
    EXPECT_EQ(readText(built, "ValueString"), name);
    EXPECT_THAT(takeEvents(), IsEmpty());
  }
}

TEST_F(OptionsTest, Default_Absent_IsTheFirstAndLogged) {
  DriverFeature& built = media("");
  EXPECT_EQ(read<int>(built, "DefaultIntValue"), 0);
  EXPECT_EQ(read<int>(built, "CurrentIntValue"), 0);
  EXPECT_THAT(takeEvents(),
              ElementsAre(logLine(
                  3, "CreateFeature() - No default value for feature \"Media\", using 0.")));
  EXPECT_EQ(LogMessageBuffer.utf8(),
            "CreateFeature() - No default value for feature \"Media\", using 0.");
}

TEST_F(OptionsTest, Default_NoSuchOption_IsTheFirstAndLogged) {
  for (const std::string name : {"Legal", "letter", "Letter ", "1", ""}) {
    SCOPED_TRACE(name);
    DriverFeature& built = media("DefaultValue=\"" + name + "\"");
    EXPECT_EQ(read<int>(built, "DefaultIntValue"), 0);
    EXPECT_EQ(read<int>(built, "CurrentIntValue"), 0);
    EXPECT_THAT(takeEvents(),
                ElementsAre(logLine(3, "CreateFeature() - Cannot find default option \"" + name +
                                           "\" for feature \"Media\", using 0.")));
  }
}

TEST_F(OptionsTest, Default_InsensitiveOption_IsTakenAllTheSame) {
  DriverFeature* built = buildFeature(
      R"(<Feature FeatureType="MultiSelect" Name="Media" DefaultValue="A3">
         <Option Name="A4"/><Option Name="A3" Sensitivity="false"/></Feature>)");
  ASSERT_NE(built, nullptr);
  EXPECT_EQ(read<int>(*built, "CurrentIntValue"), 1);
  EXPECT_THAT(takeEvents(), IsEmpty());
}

TEST_F(OptionsTest, Default_AfterCreation_RunsTheChangeRoutineButNotTheHosts) {
  SetFeatureCreationCompleteFlag();
  media(R"(DefaultValue="A3" AddCallbackRoutine="RecordChange")");
  EXPECT_THAT(takeEvents(), ElementsAre(kChangeCalled));
  media(R"(DefaultValue="A4" AddCallbackRoutine="RecordChange")");
  EXPECT_THAT(takeEvents(), IsEmpty());
}

}  // namespace
}  // namespace driver_feature::testing
