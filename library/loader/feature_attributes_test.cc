// The attributes that every "Feature" element may have.

#include <string>
#include <vector>

#include "support/loader_test.h"

#include "Log.h"

namespace driver_feature::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// Texts that are stored under their own name and can be read back.
constexpr const char* kTextAttributes[] = {
    "PJLCommand",
    "PSCommand",
    "TESKOAAttributeName",
    "TESKJTAttributeName",
    "TESKAttributeSyntax",
    "InstOptAttributeName",
    "NonVORNAttributeName",
    "AddPJLCallbackRoutine",
    "AddPSCallbackRoutine",
    "AddVORNCallbackRoutine",
    "SNMPOID",
    "SNMPOIDPrefix",
    "BiDiDataSection",
    "CLOKey",
};

// What a feature returns for a text that is empty. Required: one of them
// cannot be read then.
std::string emptyAnswer(const std::string& property) {
  return property == "AddPSCallbackRoutine" ? kUnreadable : "";
}

std::string mismatchLine(const std::string& feature, char value) {
  return logLine(3,
                 "DriverFeature::setFeatureProperty(bool) - Attempt to set feature property:  "
                 "\"Encrypted\" for feature \"" +
                     feature + "\" to " + value +
                     "where the feature is not a text valued feature.");
}

class FeatureAttributesTest : public LoaderTest {
 protected:
  DriverFeature& feature(const std::string& attributes) {
    DriverFeature* built = buildFeature("<Feature Name=\"A\" " + attributes + "/>");
    EXPECT_NE(built, nullptr) << attributes;
    return *built;
  }
};

TEST_F(FeatureAttributesTest, Text_Present_SetsThePropertyOfItsName) {
  std::string attributes = "FeatureType=\"UIOnly\"";
  for (const std::string name : kTextAttributes) {
    attributes += ' ' + name + "=\"" + name + " &amp; %d\"";
  }
  DriverFeature& built = feature(attributes);
  for (const std::string name : kTextAttributes) EXPECT_EQ(readText(built, name), name + " & %d");
  EXPECT_THAT(takeEvents(), IsEmpty());
}

TEST_F(FeatureAttributesTest, Text_PresentOnEveryType_IsSet) {
  for (const std::string type : {"UIOnly", "IntEntry", "TextEntry", "FloatEntry", "MVCList"}) {
    for (const std::string attribute : kTextAttributes) {
      SCOPED_TRACE(type + ' ' + attribute);
      DriverFeature& built =
          feature("FeatureType=\"" + type + "\" " + attribute + "=\"some text\"");
      EXPECT_EQ(readText(built, attribute), "some text");
    }
  }
  EXPECT_THAT(takeEvents(), IsEmpty());
}

TEST_F(FeatureAttributesTest, Text_PresentOnAListFeature_IsSet) {
  for (const std::string attribute : kTextAttributes) {
    SCOPED_TRACE(attribute);
    DriverFeature* built =
        buildFeature("<Feature FeatureType=\"MultiSelect\" Name=\"A\" DefaultValue=\"o\" " +
                     attribute + "=\"some text\"><Option Name=\"o\"/></Feature>");
    ASSERT_NE(built, nullptr);
    EXPECT_EQ(readText(*built, attribute), "some text");
  }
  EXPECT_THAT(takeEvents(), IsEmpty());
}

TEST_F(FeatureAttributesTest, Text_PresentButEmpty_IsEmpty) {
  for (const std::string attribute : kTextAttributes) {
    SCOPED_TRACE(attribute);
    DriverFeature& built = feature("FeatureType=\"UIOnly\" " + attribute + "=\"\"");
    EXPECT_EQ(readText(built, attribute), emptyAnswer(attribute));
    EXPECT_THAT(takeEvents(), IsEmpty());
  }
}

TEST_F(FeatureAttributesTest, Nothing_Optional_LeavesTheConstructorsValuesAndIsSilent) {
  DriverFeature& built = feature("FeatureType=\"UIOnly\"");
  EXPECT_EQ(readText(built, "Name"), "A");
  for (const std::string property : kTextAttributes) {
    EXPECT_EQ(readText(built, property), emptyAnswer(property)) << property;
  }
  EXPECT_TRUE(read<bool>(built, "Sensitivity"));
  EXPECT_TRUE(read<bool>(built, "Visibility"));
  EXPECT_FALSE(read<bool>(built, "Encrypted"));
  EXPECT_FALSE(read<bool>(built, "FeatureInGroup"));
  EXPECT_THAT(takeEvents(), IsEmpty());
}

TEST_F(FeatureAttributesTest, Others_ThatAreNoAttributes_AreNotRead) {
  DriverFeature& built = feature(
      R"(FeatureType="TextEntry" CurrentTextValue="c" DefaultTextValue="d" ValueString="v"
         OriginalTextValue="o" DeferredTextValue="e" FeatureInGroup="true" FeatureValueType="1"
         TESKCommand="t" SortFunctionName="s" DisplayText="x")");
  EXPECT_EQ(readText(built, "CurrentTextValue"), "");
  EXPECT_EQ(readText(built, "DefaultTextValue"), "");
  EXPECT_EQ(readText(built, "OriginalTextValue"), "");
  EXPECT_EQ(readText(built, "DeferredTextValue"), "");
  EXPECT_FALSE(read<bool>(built, "FeatureInGroup"));
  EXPECT_EQ(read<int>(built, "FeatureValueType"), 2);
  EXPECT_THAT(takeEvents(), IsEmpty());
}

TEST_F(FeatureAttributesTest, Flag_SensitivityAndVisibility_AreSetAndNotifyOnce) {
  struct Row {
    std::string attribute;
    std::string text;
    bool sensitive;
    bool visible;
  };
  const Row rows[] = {
      {"Sensitivity", "true", true, true},   {"Sensitivity", "1", true, true},
      {"Sensitivity", "false", false, true}, {"Sensitivity", "0", false, true},
      {"Visibility", "true", true, true},    {"Visibility", "1", true, true},
      {"Visibility", "false", true, false},  {"Visibility", "0", true, false},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.attribute + '=' + row.text);
    DriverFeature& built =
        feature("FeatureType=\"UIOnly\" " + row.attribute + "=\"" + row.text + "\"");
    EXPECT_EQ(read<bool>(built, "Sensitivity"), row.sensitive);
    EXPECT_EQ(read<bool>(built, "Visibility"), row.visible);
    // Setting the value that the flag has already is reported as well.
    EXPECT_THAT(takeEvents(), ElementsAre(kUpdateCalled));
  }
}

TEST_F(FeatureAttributesTest, Flag_EncryptedOnATextFeature_IsSetAndNotifiesOnce) {
  EXPECT_TRUE(read<bool>(feature(R"(FeatureType="TextEntry" Encrypted="true")"), "Encrypted"));
  EXPECT_THAT(takeEvents(), ElementsAre(kUpdateCalled));
  EXPECT_FALSE(read<bool>(feature(R"(FeatureType="TextEntry" Encrypted="0")"), "Encrypted"));
  EXPECT_THAT(takeEvents(), ElementsAre(kUpdateCalled));
}

TEST_F(FeatureAttributesTest, Flag_EncryptedOnAnotherType_IsRefusedAndLoadingGoesOn) {
  for (const std::string type : {"UIOnly", "IntEntry", "FloatEntry", "MVCList"}) {
    SCOPED_TRACE(type);
    DriverFeature& built =
        feature("FeatureType=\"" + type + R"(" Encrypted="true" CLOKey="read all the same")");
    EXPECT_FALSE(read<bool>(built, "Encrypted"));
    EXPECT_EQ(readText(built, "CLOKey"), "read all the same");
    EXPECT_THAT(takeEvents(), ElementsAre(mismatchLine("A", '\1')));
  }
  feature(R"(FeatureType="IntEntry" Encrypted="false")");
  EXPECT_THAT(takeEvents(), ElementsAre(mismatchLine("A", '\0')));
}

TEST_F(FeatureAttributesTest, Flag_DoesNotConvert_IsLoggedByThePlatformAndLeft) {
  for (const std::string attribute : {"Sensitivity", "Visibility", "Encrypted"}) {
    for (const std::string text : {"yes", "TRUE", "", "2"}) {
      SCOPED_TRACE(attribute + '=' + text);
      DriverFeature& built =
          feature("FeatureType=\"TextEntry\" " + attribute + "=\"" + text + "\"");
      EXPECT_EQ(read<bool>(built, attribute), attribute != "Encrypted");
      EXPECT_THAT(takeEvents(), ElementsAre(conversionLine(attribute, text)));
    }
  }
}

TEST_F(FeatureAttributesTest, Flag_NoUpdateCallback_IsSetAllTheSame) {
  setDriverFeatureUpdateCallback(nullptr);
  DriverFeature& built = feature(R"(FeatureType="UIOnly" Sensitivity="false")");
  EXPECT_FALSE(read<bool>(built, "Sensitivity"));
  EXPECT_THAT(takeEvents(), IsEmpty());
}

TEST_F(FeatureAttributesTest, ChangeRoutine_Resolved_RunsOnceCreationIsComplete) {
  DriverFeature& built = feature(R"(FeatureType="IntEntry" AddCallbackRoutine="RecordChange")");
  EXPECT_THAT(takeEvents(), IsEmpty());
  SetFeatureCreationCompleteFlag();
  built.setFeatureProperty(std::string("CurrentIntValue"), 1);
  EXPECT_THAT(takeEvents(), ElementsAre(kChangeCalled, kUpdateCalled));
}

TEST_F(FeatureAttributesTest, ChangeRoutine_NotResolved_IsLoggedAndLoadingGoesOn) {
  for (const std::string name : {"NoSuchRoutine", ""}) {
    SCOPED_TRACE(name);
    DriverFeature& built = feature("FeatureType=\"UIOnly\" AddCallbackRoutine=\"" + name +
                                   "\" CLOKey=\"read all the same\"");
    EXPECT_EQ(readText(built, "CLOKey"), "read all the same");
    EXPECT_THAT(takeEvents(),
                ElementsAre(logLine(2,
                                    "DriverFeature::setFeatureProperty(string):  Failed to load "
                                    "custom feature callback:  " +
                                        name)));
  }
}

TEST_F(FeatureAttributesTest, Order_EachAttributeThatReports_IsReadInItsPlace) {
  DriverFeature& built =
      feature(R"(MaxTextLength="m" AddCallbackRoutine="NoSuchRoutine" Encrypted="true"
                 Visibility="v" Sensitivity="true" FeatureType="TextEntry")");
  EXPECT_THAT(takeEvents(),
              ElementsAre(kUpdateCalled, conversionLine("Visibility", "v"), kUpdateCalled,
                          logLine(2,
                                  "DriverFeature::setFeatureProperty(string):  Failed to load "
                                  "custom feature callback:  NoSuchRoutine"),
                          conversionLine("MaxTextLength", "m")));
  EXPECT_TRUE(read<bool>(built, "Encrypted"));
}

}  // namespace
}  // namespace driver_feature::testing
