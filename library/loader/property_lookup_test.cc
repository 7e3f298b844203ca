// What the loader sets, in which order, seen where the model resolves the
// property names; and what it does when the model refuses a property that
// cannot be refused otherwise.

#include <array>
#include <string>
#include <vector>

#include "support/loader_test.h"
#include "support/platform_look_up.h"

namespace {

struct Lookups {
  bool noted = false;
  std::string refused;  // This name is in no vocabulary,
  int accepted = 0;     // but for its first so many look-ups.
  std::vector<std::string> names;
};
Lookups lookups;

}  // namespace

// Stands in front of the platform's routine and hands the call on to it.
extern "C" __attribute__((visibility("default"))) int ParseAttributeList_LowLevel(
    const char* const* names, int highestIndex, const char* name) {
  if (lookups.noted) lookups.names.emplace_back(name);
  if (!lookups.refused.empty() && lookups.refused == name && lookups.accepted-- <= 0) return -1;
  return driver_feature::testing::askPlatform(names, highestIndex, name);
}

namespace driver_feature::testing {
namespace {

using ::testing::ElementsAre;

class PropertyLookupTest : public LoaderTest {
 protected:
  PropertyLookupTest() { lookups = {}; }
  ~PropertyLookupTest() override { lookups = {}; }

  static AttributeMap attributesOf(std::initializer_list<const char*> names,
                                   const std::string& value) {
    AttributeMap attributes;
    for (const char* name : names) attributes[name] = value;
    return attributes;
  }

  static const std::vector<std::string>& lookupsOfFeature(const std::string& type,
                                                          AttributeMap attributes) {
    attributes["FeatureType"] = type;
    lookups.noted = true;
    EXPECT_NE(CreateFeature(nullptr, attributes), nullptr);
    lookups.noted = false;
    return lookups.names;
  }

  static void refuse(const std::string& property, int afterAccepted = 0) {
    lookups.refused = property;
    lookups.accepted = afterAccepted;
  }
};

TEST_F(PropertyLookupTest, Feature_EveryCommonAttribute_IsSetInOrder) {
  const AttributeMap attributes = attributesOf({"Name",
                                                "CLOKey",
                                                "BiDiDataSection",
                                                "SNMPOIDPrefix",
                                                "SNMPOID",
                                                "AddVORNCallbackRoutine",
                                                "AddPSCallbackRoutine",
                                                "AddPJLCallbackRoutine",
                                                "AddCallbackRoutine",
                                                "NonVORNAttributeName",
                                                "InstOptAttributeName",
                                                "TESKAttributeSyntax",
                                                "TESKJTAttributeName",
                                                "TESKOAAttributeName",
                                                "PSCommand",
                                                "PJLCommand",
                                                "Encrypted",
                                                "Visibility",
                                                "Sensitivity",
                                                "DefaultValue",
                                                "TextValidationCharSet",
                                                "MaxTextLength"},
                                               "1");
  EXPECT_THAT(
      lookupsOfFeature("TextEntry", attributes),
      ElementsAre("FeatureType", "Sensitivity", "Visibility", "Encrypted", "PJLCommand",
                  "PSCommand", "TESKOAAttributeName", "TESKJTAttributeName", "TESKAttributeSyntax",
                  "InstOptAttributeName", "NonVORNAttributeName", "AddCallbackRoutine",
                  "AddPJLCallbackRoutine", "AddPSCallbackRoutine", "AddVORNCallbackRoutine",
                  "SNMPOID", "SNMPOIDPrefix", "BiDiDataSection", "CLOKey", "TextValidationCharSet",
                  "MaxTextLength", "DefaultTextValue", "CurrentTextValue"));
}

TEST_F(PropertyLookupTest, IntEntry_EveryAttribute_IsSetInOrder) {
  EXPECT_THAT(
      lookupsOfFeature(
          "IntEntry",
          attributesOf({"Name", "DefaultValue", "IntMinValue", "IntMaxValue", "CLOKey"}, "1")),
      ElementsAre("FeatureType", "CLOKey", "IntMaxValue", "IntMinValue", "DefaultIntValue",
                  "CurrentIntValue"));
}

TEST_F(PropertyLookupTest, FloatEntry_EveryAttribute_IsSetInOrder) {
  EXPECT_THAT(
      lookupsOfFeature(
          "FloatEntry",
          attributesOf({"Name", "DefaultValue", "FloatMinValue", "FloatMaxValue", "CLOKey"}, "1")),
      ElementsAre("FeatureType", "CLOKey", "FloatMaxValue", "FloatMinValue", "DefaultFloatValue",
                  "CurrentFloatValue"));
}

TEST_F(PropertyLookupTest, Feature_NothingOptional_SetsTheTypeAlone) {
  EXPECT_THAT(lookupsOfFeature("MVCList", attributesOf({"Name"}, "A")), ElementsAre("FeatureType"));
}

TEST_F(PropertyLookupTest, Option_EveryAttribute_IsSetInOrder) {
  const AttributeMap attributes =
      attributesOf({"Name", "Visibility", "DisplayText", "CLOKey", "SNMPValue", "TESKTicketCommand",
                    "TESKCommand", "PSCommand", "PJLCommand", "Sensitivity"},
                   "1");
  lookups.noted = true;
  std::string text;
  ASSERT_NE(CreateFeatureOption(attributes, text, takeRoom()), nullptr);
  EXPECT_THAT(lookups.names, ElementsAre("Sensitivity", "PJLCommand", "PSCommand", "TESKCommand",
                                         "TESKTicketCommand", "SNMPValue", "CLOKey"));
}

TEST_F(PropertyLookupTest, StaticGroup_EveryAttribute_IsSetInOrder) {
  const AttributeMap attributes = attributesOf(
      {"Name", "AddVORNCallbackRoutine", "AddPSCallbackRoutine", "AddPJLCallbackRoutine",
       "TESKAttributeSyntax", "TESKJTAttributeName", "TESKOAAttributeName", "PSCommand",
       "PJLCommand", "InstOptAttributeName", "NonVORNAttributeName"},
      "1");
  void* element = host_.parse("<FeatureStaticGroup/>");
  lookups.noted = true;
  // The attributes are set before the missing children are noticed.
  EXPECT_EQ(CreateStaticFeatureGroup(element, attributes), nullptr);
  EXPECT_THAT(lookups.names,
              ElementsAre("PJLCommand", "PSCommand", "TESKOAAttributeName", "TESKJTAttributeName",
                          "TESKAttributeSyntax", "AddPJLCallbackRoutine", "AddPSCallbackRoutine",
                          "AddVORNCallbackRoutine"));
}

TEST_F(PropertyLookupTest, DynamicGroup_EveryAttribute_IsSetInOrder) {
  const AttributeMap attributes =
      attributesOf({"Name", "SortFunctionName", "TESKAttributeSyntax", "TESKJTAttributeName",
                    "TESKOAAttributeName", "PSCommand", "PJLCommand", "AddPSCallbackRoutine"},
                   "1");
  void* element = host_.parse("<FeatureDynamicGroup/>");
  lookups.noted = true;
  // The attributes are set before the missing child is noticed.
  EXPECT_EQ(CreateDynamicFeatureGroup(element, attributes), nullptr);
  EXPECT_THAT(lookups.names,
              ElementsAre("PJLCommand", "PSCommand", "TESKOAAttributeName", "TESKJTAttributeName",
                          "TESKAttributeSyntax", "SortFunctionName"));
}

constexpr const char* kList = R"(<Feature FeatureType="MultiSelect" Name="A" DefaultValue="o">
                                 <Option Name="o"/></Feature>)";

TEST_F(PropertyLookupTest, FindGroup_OneOfMany_AsksForItsPropertyOnce) {
  constexpr int kGroups = 40;
  std::array<DriverFeatureStaticGroup, kGroups> groups;
  for (int i = 0; i < kGroups; ++i) {
    auto& group = groups[static_cast<std::size_t>(i)];
    group.setFeatureProperty(std::string("Name"), "group " + std::to_string(i));
    masterSet().addStaticGroupToFeatureList(&group);
  }
  lookups.noted = true;
  EXPECT_EQ(masterSet().FindFeatureInFeatureList(std::string("group 39")), &groups.back());
  EXPECT_THAT(lookups.names, ElementsAre("Name"));
}

TEST_F(PropertyLookupTest, List_DefaultValueRefused_Fails) {
  refuse("DefaultIntValue");
  EXPECT_EQ(buildFeature(kList), nullptr);
  EXPECT_THAT(
      takeEvents(),
      ElementsAre(logLine(3,
                          "DriverFeature::setFeatureProperty(int) - Unrecognized feature property: "
                          " \"DefaultIntValue\" for feature \"A."),
                  logLine(1, "CreateFeature() - Cannot set default value of feature \"A\".")));
}

TEST_F(PropertyLookupTest, List_CurrentValueRefused_Fails) {
  refuse("CurrentIntValue");
  EXPECT_EQ(buildFeature(kList), nullptr);
  EXPECT_THAT(
      takeEvents(),
      ElementsAre(logLine(3,
                          "DriverFeature::setFeatureProperty(int) - Unrecognized feature property: "
                          " \"CurrentIntValue\" for feature \"A."),
                  logLine(1, "CreateFeature() - Cannot set current value of feature \"A\".")));
}

TEST_F(PropertyLookupTest, StaticGroup_FeatureCannotBeAdded_Fails) {
  refuse("FeatureInGroup");
  EXPECT_EQ(buildStaticGroup(R"(<FeatureStaticGroup Name="G">
                                <Feature FeatureType="UIOnly" Name="A"/></FeatureStaticGroup>)"),
            nullptr);
  EXPECT_THAT(takeEvents(),
              ElementsAre(logLine(3,
                                  "DriverFeature::setFeatureProperty(bool) - Unrecognized feature "
                                  "property:  \"FeatureInGroup\" for feature \"A."),
                          logLine(1,
                                  "CreateStaticFeatureGroup() - Cannot add feature \"A\" to "
                                  "feature group \"G\".")));
  EXPECT_EQ(masterSet().fetchStaticGroupByIndex(0), nullptr);
}

TEST_F(PropertyLookupTest, StaticGroup_NestedGroupCannotBeAdded_Fails) {
  refuse("FeatureInGroup", 1);
  EXPECT_EQ(buildStaticGroup(R"(<FeatureStaticGroup Name="G"><FeatureStaticGroup Name="H">
                                <Feature FeatureType="UIOnly" Name="A"/></FeatureStaticGroup>
                                </FeatureStaticGroup>)"),
            nullptr);
  EXPECT_THAT(takeEvents(),
              ElementsAre(logLine(3,
                                  "DriverFeatureStaticGroup::setFeatureProperty(bool) - "
                                  "Unrecognized feature property:  \"FeatureInGroup\" for feature "
                                  "\"H."),
                          logLine(1,
                                  "CreateStaticFeatureGroup() - Cannot add feature group \"H\" to "
                                  "feature group \"G\".")));
  EXPECT_THAT(staticGroupNames(), ElementsAre("H"));
}

TEST_F(PropertyLookupTest, DynamicGroup_TemplateRefusesItsType_Fails) {
  refuse("FeatureType", 1);
  EXPECT_EQ(buildDynamicGroup(R"(<FeatureDynamicGroup Name="D"><FeatureStaticGroup Name="T">
                                 <Feature FeatureType="UIOnly" Name="A"/></FeatureStaticGroup>
                                 </FeatureDynamicGroup>)"),
            nullptr);
  EXPECT_THAT(takeEvents(),
              ElementsAre(logLine(3,
                                  "DriverFeatureStaticGroup::setFeatureProperty(int) - "
                                  "Unrecognized feature property:  \"FeatureType\" for feature "
                                  "\"T."),
                          logLine(1,
                                  "CreateDynamicFeatureGroup() - Cannot set template static "
                                  "feature group feature type: \"D\".")));
  EXPECT_EQ(masterSet().FindFeatureInFeatureList("D"), nullptr);
}

}  // namespace
}  // namespace driver_feature::testing
