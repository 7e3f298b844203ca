// The tables of properties say what the facts say that the tests of the library
// hold it to.

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host_interface_doc/markdown.h"
#include "support/property_facts.h"

namespace driver_feature::testing {
namespace {

using ::testing::ElementsAreArray;

const char* wordFor(Kind kind) {
  switch (kind) {
    case Kind::kNone:
      return "none";
    case Kind::kText:
      return "text";
    case Kind::kInt:
      return "int";
    case Kind::kFloat:
      return "float";
    case Kind::kBool:
      return "bool";
  }
  return "";
}

const char* wordFor(Use use) {
  if (use == Use::kNone) return "";
  return use == Use::kSet ? "set" : "both";
}

const char* wordFor(int valueType) {
  if (valueType == kAnyType) return "";
  if (valueType == kIntType) return "Int";
  return valueType == kTextType ? "Text" : "Float";
}

std::string quoted(const char* name) {
  return std::string(1, '"') + name + '"';
}

// The first columns of the page's table of that title; the last one is prose.
std::vector<Row> factsIn(const std::string& title) {
  std::vector<Row> table = firstTableOf(sectionOf(readPage("host-interface-properties.md"), title));
  for (Row& row : table) row.pop_back();
  return table;
}

TEST(HostInterfacePropertiesTest, TableOfFeaturesAndGroups_SaysWhatHolds) {
  std::vector<Row> expected;
  for (const PropertyFacts& facts : kPropertyFacts) {
    expected.push_back({quoted(facts.name), wordFor(facts.kind), wordFor(facts.feature),
                        wordFor(facts.staticGroup), wordFor(facts.dynamicGroup),
                        wordFor(facts.needed)});
  }
  EXPECT_THAT(factsIn("Features and groups"), ElementsAreArray(expected));
}

TEST(HostInterfacePropertiesTest, TableOfOptions_SaysWhatHolds) {
  std::vector<Row> expected;
  for (const OptionPropertyFacts& facts : kOptionPropertyFacts) {
    expected.push_back({quoted(facts.name), wordFor(facts.kind)});
  }
  EXPECT_THAT(factsIn("Options"), ElementsAreArray(expected));
}

}  // namespace
}  // namespace driver_feature::testing
