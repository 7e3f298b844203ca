// The tables of slots: every operation is in its object's table, in the row of
// its number, with its signature.

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "host_interface_doc/markdown.h"

namespace driver_feature::testing {
namespace {

using Signatures = std::vector<std::string>;

const Signatures kOption = {
    "bool getOptionProperty(const std::string& name, std::string& value)",
    "bool getOptionProperty(const std::string& name, bool* value)",
    "bool setOptionProperty(const std::string& name, const std::string& value)",
    "bool setOptionProperty(const std::string& name, bool value)",
    "bool isConstraintSetEmpty()",
    "bool addConstraint(const long& id)",
    "bool removeConstraint(const long& id)",
};

const Signatures kCoreFeature = {
    "bool setFeatureProperty(const std::string& name, const std::string& value)",
    "bool setFeatureProperty(const std::string& name, int value)",
    "bool setFeatureProperty(const std::string& name, float value)",
    "bool setFeatureProperty(const std::string& name, bool value)",
    "bool getFeatureProperty(const std::string& name, std::string& value)",
    "bool getFeatureProperty(const std::string& name, int* value)",
    "bool getFeatureProperty(const std::string& name, bool* value)",
    "bool getFeatureProperty(const std::string& name, float* value)",
    "int getFeatureType()",
    "int fetchNumberOfOptions()",
    "int fetchOptionIndexByName(const std::string& name)",
    "CoreOption* fetchCurrentOption()",
    "CoreOption* fetchOptionByName(const std::string& attribute, const std::string& value)",
    "CoreOption* fetchOptionByName(std::string name)",
    "CoreOption* fetchOptionByIndex(int index)",
};

const Signatures kControlledSetters = {
    "bool setFeaturePropertyWithConstraintControl(const std::string& name, const std::string& "
    "value, bool suppressUpdate)",
    "bool setFeaturePropertyWithConstraintControl(const std::string& name, int value, bool "
    "suppressUpdate)",
    "bool setFeaturePropertyWithConstraintControl(const std::string& name, float value, bool "
    "suppressUpdate)",
    "bool setFeaturePropertyWithConstraintControl(const std::string& name, bool value, bool "
    "suppressUpdate)",
};

const Signatures kSet = {
    "void dumpFeatureListValues()",
    "int fetchNumberOfFeatures()",
    "DriverFeature* fetchFeatureByIndex(int index)",
    "CoreFeature* FindFeatureInFeatureList(const std::string& name)",
    "CoreFeature* FindFeatureInFeatureList(const std::string& attribute, const std::string& value)",
    "DriverFeatureOption* CreateOptionForFeature(const std::string& featureName, const "
    "std::string& optionName, int number)",
    "void serialize(std::string& output, int pdlType, bool includeInstOpt, const char* "
    "ticketArgument1, const char* ticketArgument2)",
    "void restoreDefaultFeatureValues()",
};

Signatures joined(std::initializer_list<Signatures> parts) {
  Signatures all;
  for (const Signatures& part : parts) all.insert(all.end(), part.begin(), part.end());
  return all;
}

Signatures ofFeature() {
  return joined({kCoreFeature,
                 {"int getFeatureOptionCount()",
                  "bool applyOptionConstraint(const std::string& optionName, long id, bool hide)"},
                 kControlledSetters,
                 {"bool isConstraintSetEmpty()", "bool addConstraint(const long& id)",
                  "bool removeConstraint(const long& id)", "std::set<long>* getConstraintSet()",
                  "int fetchOptionIndexByName(const std::string& attribute, const std::string& "
                  "value)"}});
}

Signatures ofStaticGroup() {
  return joined({kCoreFeature,
                 {"int fetchNumberOfFeaturesInGroup()",
                  "CoreFeature* fetchFeatureInGroupByIndex(unsigned index)"}});
}

Signatures ofDynamicGroup() {
  return joined(
      {kCoreFeature,
       {"bool addStaticGroupToDynamicGroup(AttributeMap& values)",
        "int fetchNumberOfDynamicEntries()",
        "IntermediateStaticFeatureGroup* getDynamicEntryByIndex(unsigned index)",
        "bool removeDynamicEntryByIndex(unsigned index)", "bool removeAllDynamicEntries()",
        "bool detectDuplicateRecord(AttributeMap& values)"},
       kControlledSetters,
       {"bool isConstraintSetEmpty()", "bool addConstraint(const long& index)",
        "bool removeConstraint(const long& index)", "std::set<long>* fetchSelectedEntries()",
        "bool addStaticGroupToDynamicGroupWithSort(AttributeMap& values, bool sort)",
        "bool sortList()"}});
}

// The table under `title` holds exactly these operations, the first in slot 0,
// each with a text about what it does.
void expectTable(const std::string& title, const std::string& interface, const Signatures& slots) {
  const std::string section = sectionOf(readPage("host-interface-slots.md"), title);
  EXPECT_NE(section.find('`' + interface + '`'), std::string::npos) << title;
  const std::vector<Row> table = firstTableOf(section);
  EXPECT_EQ(table.size(), slots.size()) << title;
  for (std::size_t slot = 0; slot < slots.size() && slot < table.size(); ++slot) {
    SCOPED_TRACE(title + ", slot " + std::to_string(slot));
    const Row& row = table[slot];
    ASSERT_GE(row.size(), 4U);
    EXPECT_EQ(row[0], std::to_string(slot));
    EXPECT_EQ(row[1], '`' + slots[slot] + '`');
    EXPECT_NE(row[2], "");
  }
}

TEST(HostInterfaceSlots, Option_SevenSlots_InTheirRows) {
  expectTable("Option", "IntermediateCoreOption", kOption);
}

TEST(HostInterfaceSlots, Feature_TwentySixSlots_InTheirRows) {
  ASSERT_EQ(ofFeature().size(), 26U);
  expectTable("Feature", "IntermediateCoreFeature", ofFeature());
}

TEST(HostInterfaceSlots, StaticGroup_SeventeenSlots_InTheirRows) {
  ASSERT_EQ(ofStaticGroup().size(), 17U);
  expectTable("Static group", "IntermediateStaticFeatureGroup", ofStaticGroup());
}

TEST(HostInterfaceSlots, DynamicGroup_ThirtyOneSlots_InTheirRows) {
  ASSERT_EQ(ofDynamicGroup().size(), 31U);
  expectTable("Dynamic group", "IntermediateDynamicFeatureGroup", ofDynamicGroup());
}

TEST(HostInterfaceSlots, Set_EightSlots_InTheirRows) {
  expectTable("Set", "CoreFeatureSet", kSet);
}

}  // namespace
}  // namespace driver_feature::testing
