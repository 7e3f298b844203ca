// The tables of properties: every name stands in them, and what they say about
// who takes it holds for the objects of the library.

#include <functional>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host_interface_doc/markdown.h"
#include "model/core_feature_group.h"
#include "plugin/loaded_library.h"

#include "Log.h"

extern "C" bool HostInterfaceDocUpdate() {
  return true;
}

namespace driver_feature::testing {
namespace {

using ::testing::ElementsAreArray;
using ::testing::EndsWith;

const std::vector<std::string> kFeatureNames = {
    "AddCallbackRoutine",
    "AddCallbackType",
    "AddPJLCallbackRoutine",
    "AddPSCallbackRoutine",
    "AddVORNCallbackRoutine",
    "BiDiDataSection",
    "CLOKey",
    "CurrentFloatValue",
    "CurrentIntValue",
    "CurrentTextValue",
    "DefaultFloatValue",
    "DefaultIntValue",
    "DefaultTextValue",
    "DeferredFloatValue",
    "DeferredIntValue",
    "DeferredTextValue",
    "Encrypted",
    "FeatureInGroup",
    "FeatureType",
    "FeatureValueType",
    "FloatMaxValue",
    "FloatMinValue",
    "InstOptAttributeName",
    "IntMaxValue",
    "IntMinValue",
    "MaxTextLength",
    "Name",
    "NonVORNAttributeName",
    "OriginalFloatValue",
    "OriginalIntValue",
    "OriginalTextValue",
    "PJLCommand",
    "PSCommand",
    "RecordInFocus",
    "SNMPOID",
    "SNMPOIDPrefix",
    "Sensitivity",
    "SortFunctionName",
    "TESKAttributeSyntax",
    "TESKCommand",
    "TESKJTAttributeName",
    "TESKOAAttributeName",
    "TextValidationCharSet",
    "ValueString",
    "Visibility",
};

const std::vector<std::string> kOptionNames = {
    "CLOKey",    "DisplayText", "Name",        "PJLCommand",        "PSCommand",
    "SNMPValue", "Sensitivity", "TESKCommand", "TESKTicketCommand", "Visibility",
};

constexpr const char* kDescription = R"(<Features>
  <BaseFeatureInfo DefaultCallbackHandler="HostInterfaceDocUpdate"/>
  <Feature FeatureType="MultiSelect" Name="Media"><Option Name="A4"/></Feature>
  <Feature FeatureType="UIOnly" Name="Label"/>
  <FeatureStaticGroup Name="Group"><Feature FeatureType="UIOnly" Name="A"/></FeatureStaticGroup>
  <FeatureDynamicGroup Name="List">
    <FeatureStaticGroup Name="Record"><Feature FeatureType="UIOnly" Name="B"/></FeatureStaticGroup>
  </FeatureDynamicGroup>
</Features>)";

std::string lastLine;  // Of the log.

void keepLine(int /*level*/, const char* /*category*/, const char* text, std::size_t length,
              void* /*context*/) {
  lastLine.assign(text, length);
}

class HostInterfacePropertiesTest : public LoadedLibraryTest {
 protected:
  void SetUp() override {
    LoadedLibraryTest::SetUp();
    SetLogHandler(keepLine, nullptr);
    ASSERT_EQ(library_.load(kDescription), 1);
  }
  ~HostInterfacePropertiesTest() override { SetLogHandler(nullptr, nullptr); }

  CoreFeature& object(const std::string& name) {
    return *library_.set().FindFeatureInFeatureList(name);
  }

  static std::vector<Row> table(const std::string& title) {
    return firstTableOf(sectionOf(readPage("host-interface-properties.md"), title));
  }
};

std::vector<std::string> firstColumn(const std::vector<Row>& table) {
  std::vector<std::string> cells;
  for (const Row& row : table) cells.push_back(row.at(0));
  return cells;
}

std::vector<std::string> quoted(std::vector<std::string> names) {
  for (std::string& name : names) name = '"' + name + '"';
  return names;
}

std::string unquoted(const std::string& name) {
  return name.substr(1, name.size() - 2);
}

// Which of the two an object answers with true: "", "set", "get" or "both".
std::string access(bool set, bool get) {
  if (set) return get ? "both" : "set";
  return get ? "get" : "";
}

template <class Value>
std::string accessAs(CoreFeature& object, const std::string& name, const Value& value) {
  const bool set = object.setFeatureProperty(name, value);
  Value read{};
  if constexpr (std::is_same_v<Value, std::string>) {
    return access(set, object.getFeatureProperty(name, read));
  } else {
    return access(set, object.getFeatureProperty(name, &read));
  }
}

// What the object answers for each kind of value, as the table would say it.
std::string describe(CoreFeature& object, const std::string& name) {
  std::string text;
  const auto add = [&text](const char* kind, const std::string& word) {
    if (!word.empty()) text += std::string(kind) + ' ' + word;
  };
  add("text", accessAs(object, name, std::string("x")));
  add("int", accessAs(object, name, 2));
  add("float", accessAs(object, name, 0.5F));
  add("bool", accessAs(object, name, true));
  return text;
}

std::string expected(const Row& row, std::size_t column) {
  return row.at(column).empty() ? "" : row.at(1) + ' ' + row.at(column);
}

TEST_F(HostInterfacePropertiesTest, Tables_Names_AreTheVocabularies) {
  EXPECT_THAT(firstColumn(table("Features and groups")), ElementsAreArray(quoted(kFeatureNames)));
  EXPECT_THAT(firstColumn(table("Options")), ElementsAreArray(quoted(kOptionNames)));
}

TEST_F(HostInterfacePropertiesTest, FeatureTable_EveryRow_IsWhatTheObjectsTake) {
  // The objects by address, because their names are among what is set.
  CoreFeature& feature = object("Label");
  CoreFeature& group = object("Group");
  CoreFeature& list = object("List");
  for (const Row& row : table("Features and groups")) {
    ASSERT_EQ(row.size(), 7U) << row.at(0);
    const std::string name = unquoted(row[0]);
    EXPECT_EQ(describe(feature, name), expected(row, 2)) << name << " of a feature";
    EXPECT_EQ(describe(group, name), expected(row, 3)) << name << " of a static group";
    EXPECT_EQ(describe(list, name), expected(row, 4)) << name << " of a dynamic group";
  }
}

// A feature without a value refuses what needs one, and says which.
TEST_F(HostInterfacePropertiesTest, FeatureTable_ValueTypeColumn_IsWhatTheSettersAskFor) {
  CoreFeature& feature = object("Label");
  for (const Row& row : table("Features and groups")) {
    const std::string name = unquoted(row[0]);
    if (row.at(2).empty() || name == "FeatureType" || name == "FeatureValueType") continue;
    lastLine = "no line";
    if (row[1] == "text") feature.setFeatureProperty(name, std::string("x"));
    if (row[1] == "int") feature.setFeatureProperty(name, 2);
    if (row[1] == "float") feature.setFeatureProperty(name, 0.5F);
    if (row[1] == "bool") feature.setFeatureProperty(name, true);
    if (row.at(5).empty()) {
      EXPECT_EQ(lastLine.find("valued feature."), std::string::npos) << name << ": " << lastLine;
      continue;
    }
    std::string word = row[5];
    // In every locale, one without a small "i" for "I" too.
    word[0] = static_cast<char>(word[0] - 'A' + 'a');
    EXPECT_THAT(lastLine, EndsWith("where the feature is not a " + word + " valued feature."))
        << name;
  }
}

TEST_F(HostInterfacePropertiesTest, OptionTable_EveryRow_IsWhatOptionsTake) {
  CoreOption& option = *object("Media").fetchOptionByIndex(0);
  for (const Row& row : table("Options")) {
    const std::string name = unquoted(row.at(0));
    std::string text;
    bool flag = false;
    const bool asText = option.setOptionProperty(name, std::string("x")) &&
                        option.getOptionProperty(name, text) && text == "x";
    const bool asFlag =
        option.setOptionProperty(name, true) && option.getOptionProperty(name, &flag) && flag;
    EXPECT_EQ(asText, row.at(1) == "text") << name;
    EXPECT_EQ(asFlag, row.at(1) == "bool") << name;
  }
}

}  // namespace
}  // namespace driver_feature::testing
