// What the tests, the documents' tests and the fuzz targets know about the
// properties, written by hand: the one source beside the product's own tables.
#ifndef TESTS_SUPPORT_PROPERTY_FACTS_H_
#define TESTS_SUPPORT_PROPERTY_FACTS_H_

#include <algorithm>
#include <iterator>
#include <string>
#include <vector>

namespace driver_feature::testing {

enum class Kind { kNone, kText, kInt, kFloat, kBool };

// Whether an object lets a property be set, or set and read. None can only be read.
enum class Use { kNone, kSet, kBoth };

// Who hears of a store: nobody, everybody after a change, or the host always.
enum class Told { kNobody, kOnChange, kAlways };

// The value type that a feature must have before a property can be set.
inline constexpr int kAnyType = -1;
inline constexpr int kIntType = 1;
inline constexpr int kTextType = 2;
inline constexpr int kFloatType = 3;

struct PropertyFacts {
  const char* name;
  Kind kind;
  Use feature = Use::kNone;
  Use staticGroup = Use::kNone;
  Use dynamicGroup = Use::kNone;
  int needed = kAnyType;
  Told told = Told::kNobody;
};

// Every property of features and groups, in the order of the names.
inline constexpr PropertyFacts kPropertyFacts[] = {
    {"AddCallbackRoutine", Kind::kText, Use::kSet},
    {"AddCallbackType", Kind::kNone},
    {"AddPJLCallbackRoutine", Kind::kText, Use::kBoth, Use::kBoth, Use::kBoth},
    {"AddPSCallbackRoutine", Kind::kText, Use::kBoth, Use::kBoth, Use::kBoth},
    {"AddVORNCallbackRoutine", Kind::kText, Use::kBoth, Use::kBoth, Use::kBoth},
    {"BiDiDataSection", Kind::kText, Use::kBoth},
    {"CLOKey", Kind::kText, Use::kBoth},
    {"CurrentFloatValue", Kind::kFloat, Use::kBoth, Use::kNone, Use::kNone, kFloatType,
     Told::kOnChange},
    {"CurrentIntValue", Kind::kInt, Use::kBoth, Use::kNone, Use::kNone, kIntType, Told::kOnChange},
    {"CurrentTextValue", Kind::kText, Use::kBoth, Use::kNone, Use::kNone, kTextType,
     Told::kOnChange},
    {"DefaultFloatValue", Kind::kFloat, Use::kBoth, Use::kNone, Use::kNone, kFloatType},
    {"DefaultIntValue", Kind::kInt, Use::kBoth, Use::kNone, Use::kNone, kIntType},
    {"DefaultTextValue", Kind::kText, Use::kBoth, Use::kNone, Use::kNone, kTextType},
    {"DeferredFloatValue", Kind::kFloat, Use::kBoth, Use::kNone, Use::kNone, kFloatType},
    {"DeferredIntValue", Kind::kInt, Use::kBoth, Use::kNone, Use::kNone, kIntType},
    {"DeferredTextValue", Kind::kText, Use::kBoth, Use::kNone, Use::kNone, kTextType},
    {"Encrypted", Kind::kBool, Use::kBoth, Use::kNone, Use::kNone, kTextType, Told::kAlways},
    {"FeatureInGroup", Kind::kBool, Use::kBoth, Use::kBoth},
    {"FeatureType", Kind::kInt, Use::kBoth, Use::kBoth},
    {"FeatureValueType", Kind::kInt, Use::kBoth},
    {"FloatMaxValue", Kind::kFloat, Use::kBoth, Use::kNone, Use::kNone, kFloatType},
    {"FloatMinValue", Kind::kFloat, Use::kBoth, Use::kNone, Use::kNone, kFloatType},
    {"InstOptAttributeName", Kind::kText, Use::kBoth, Use::kBoth, Use::kBoth},
    {"IntMaxValue", Kind::kInt, Use::kSet, Use::kNone, Use::kNone, kIntType},
    {"IntMinValue", Kind::kInt, Use::kSet, Use::kNone, Use::kNone, kIntType},
    {"MaxTextLength", Kind::kInt, Use::kBoth, Use::kNone, Use::kNone, kTextType},
    {"Name", Kind::kText, Use::kBoth, Use::kBoth, Use::kBoth},
    {"NonVORNAttributeName", Kind::kText, Use::kBoth, Use::kBoth, Use::kBoth},
    {"OriginalFloatValue", Kind::kFloat, Use::kBoth, Use::kNone, Use::kNone, kFloatType},
    {"OriginalIntValue", Kind::kInt, Use::kBoth, Use::kNone, Use::kNone, kIntType},
    {"OriginalTextValue", Kind::kText, Use::kBoth, Use::kNone, Use::kNone, kTextType},
    {"PJLCommand", Kind::kText, Use::kBoth, Use::kBoth, Use::kSet},
    {"PSCommand", Kind::kText, Use::kBoth, Use::kBoth, Use::kSet},
    {"RecordInFocus", Kind::kInt, Use::kNone, Use::kNone, Use::kBoth, kAnyType, Told::kAlways},
    {"SNMPOID", Kind::kText, Use::kBoth},
    {"SNMPOIDPrefix", Kind::kText, Use::kBoth},
    {"Sensitivity", Kind::kBool, Use::kBoth, Use::kNone, Use::kBoth, kAnyType, Told::kAlways},
    {"SortFunctionName", Kind::kText, Use::kNone, Use::kNone, Use::kSet},
    {"TESKAttributeSyntax", Kind::kText, Use::kBoth, Use::kBoth, Use::kBoth},
    {"TESKCommand", Kind::kNone},
    {"TESKJTAttributeName", Kind::kText, Use::kBoth, Use::kBoth, Use::kBoth},
    {"TESKOAAttributeName", Kind::kText, Use::kBoth, Use::kBoth, Use::kBoth},
    {"TextValidationCharSet", Kind::kText, Use::kBoth, Use::kNone, Use::kNone, kTextType},
    {"ValueString", Kind::kText, Use::kBoth, Use::kNone, Use::kNone, kAnyType, Told::kOnChange},
    {"Visibility", Kind::kBool, Use::kBoth, Use::kNone, Use::kBoth, kAnyType, Told::kAlways},
};

struct OptionPropertyFacts {
  const char* name;
  Kind kind;
};

// Every property of options, in the order of the names. All can be set and read.
inline constexpr OptionPropertyFacts kOptionPropertyFacts[] = {
    {"CLOKey", Kind::kText},      {"DisplayText", Kind::kText}, {"Name", Kind::kText},
    {"PJLCommand", Kind::kText},  {"PSCommand", Kind::kText},   {"SNMPValue", Kind::kText},
    {"Sensitivity", Kind::kBool}, {"TESKCommand", Kind::kText}, {"TESKTicketCommand", Kind::kText},
    {"Visibility", Kind::kBool},
};

// Names that no feature and no group knows; the first three are an option's.
inline const std::vector<std::string> kUnknownNames = {"DisplayText",
                                                       "SNMPValue",
                                                       "TESKTicketCommand",
                                                       "",
                                                       "name",
                                                       "NAME",
                                                       "Names",
                                                       "Nam",
                                                       " Name",
                                                       "Name ",
                                                       "Aardvark",
                                                       "Visibility2",
                                                       "zzz",
                                                       std::string("Name\0", 5),
                                                       std::string("\0Name", 5)};

// The names of a table, all of them or those of a kind.
template <class Table>
std::vector<std::string> namesOf(const Table& table) {
  std::vector<std::string> names;
  for (const auto& facts : table) names.emplace_back(facts.name);
  return names;
}
template <class Table>
std::vector<std::string> namesOf(const Table& table, Kind kind) {
  std::vector<std::string> names;
  for (const auto& facts : table) {
    if (facts.kind == kind) names.emplace_back(facts.name);
  }
  return names;
}

// The properties of a kind that an object such as &PropertyFacts::staticGroup lets
// be set, and those of them that can be read as well.
inline std::vector<PropertyFacts> factsToSet(Use PropertyFacts::*owner, Kind kind) {
  std::vector<PropertyFacts> found(std::begin(kPropertyFacts), std::end(kPropertyFacts));
  std::erase_if(found, [=](const PropertyFacts& facts) {
    return facts.kind != kind || facts.*owner == Use::kNone;
  });
  return found;
}
inline std::vector<PropertyFacts> factsToRead(Use PropertyFacts::*owner, Kind kind) {
  std::vector<PropertyFacts> found = factsToSet(owner, kind);
  std::erase_if(found, [=](const PropertyFacts& facts) { return facts.*owner != Use::kBoth; });
  return found;
}

// The facts of a table but for some names.
inline std::vector<PropertyFacts> factsBut(const std::vector<std::string>& these,
                                           std::vector<PropertyFacts> table) {
  for (const std::string& name : these) {
    std::erase_if(table, [&](const PropertyFacts& facts) { return facts.name == name; });
  }
  return table;
}

// Every name of features and groups and every unknown one, but for these.
inline std::vector<std::string> namesBut(const std::vector<std::string>& these) {
  std::vector<std::string> names = namesOf(kPropertyFacts);
  names.insert(names.end(), kUnknownNames.begin(), kUnknownNames.end());
  std::erase_if(names, [&these](const std::string& name) {
    return std::find(these.begin(), these.end(), name) != these.end();
  });
  return names;
}

}  // namespace driver_feature::testing

#endif  // TESTS_SUPPORT_PROPERTY_FACTS_H_
