#include "host/check/attribute_table.h"

#include <algorithm>

#include "host/base/text.h"

namespace driver_feature::check {

namespace {

constexpr unsigned bit(host::FeatureKind kind) {
  return 1U << static_cast<unsigned>(kind);
}

constexpr unsigned kAll = ~0U;
constexpr unsigned kList = bit(host::FeatureKind::kMultiSelect);
constexpr unsigned kInt = bit(host::FeatureKind::kIntEntry);
constexpr unsigned kText = bit(host::FeatureKind::kTextEntry);
constexpr unsigned kFloat = bit(host::FeatureKind::kFloatEntry);

using Form = ValueForm;

constexpr AttributeRule kAttributeRules[] = {
    {"ByteEscapes", host::Role::kDescription, Form::kYesNo},

    {"DefaultCallbackHandler", host::Role::kBaseInfo},
    {"LoadVORNCallbackHandler", host::Role::kBaseInfo},

    {"FeatureType", host::Role::kFeature},
    {"Name", host::Role::kFeature},
    {"Sensitivity", host::Role::kFeature, Form::kBool},
    {"Visibility", host::Role::kFeature, Form::kBool},
    {"Encrypted", host::Role::kFeature, Form::kBool, kText},
    {"PJLCommand", host::Role::kFeature},
    {"PSCommand", host::Role::kFeature},
    {"TESKOAAttributeName", host::Role::kFeature},
    {"TESKJTAttributeName", host::Role::kFeature},
    {"TESKAttributeSyntax", host::Role::kFeature},
    {"InstOptAttributeName", host::Role::kFeature},
    {"NonVORNAttributeName", host::Role::kFeature},
    {"AddCallbackRoutine", host::Role::kFeature},
    {"AddPJLCallbackRoutine", host::Role::kFeature},
    {"AddPSCallbackRoutine", host::Role::kFeature},
    {"AddVORNCallbackRoutine", host::Role::kFeature},
    {"SNMPOID", host::Role::kFeature},
    {"SNMPOIDPrefix", host::Role::kFeature},
    {"BiDiDataSection", host::Role::kFeature},
    {"CLOKey", host::Role::kFeature},
    {"IntMaxValue", host::Role::kFeature, Form::kInt, kInt},
    {"IntMinValue", host::Role::kFeature, Form::kInt, kInt},
    {"FloatMaxValue", host::Role::kFeature, Form::kFloat, kFloat},
    {"FloatMinValue", host::Role::kFeature, Form::kFloat, kFloat},
    {"TextValidationCharSet", host::Role::kFeature, Form::kText, kText},
    {"MaxTextLength", host::Role::kFeature, Form::kInt, kText},
    {"DefaultValue", host::Role::kFeature, Form::kText, kList | kText},
    {"DefaultValue", host::Role::kFeature, Form::kInt, kInt},
    {"DefaultValue", host::Role::kFeature, Form::kFloat, kFloat},

    {"Name", host::Role::kOption},
    {"Sensitivity", host::Role::kOption, Form::kBool},
    {"PJLCommand", host::Role::kOption},
    {"PSCommand", host::Role::kOption},
    {"TESKCommand", host::Role::kOption},
    {"TESKTicketCommand", host::Role::kOption},
    {"SNMPValue", host::Role::kOption},
    {"CLOKey", host::Role::kOption},

    {"Name", host::Role::kStaticGroup},
    {"PJLCommand", host::Role::kStaticGroup},
    {"PSCommand", host::Role::kStaticGroup},
    {"TESKOAAttributeName", host::Role::kStaticGroup},
    {"TESKJTAttributeName", host::Role::kStaticGroup},
    {"TESKAttributeSyntax", host::Role::kStaticGroup},
    {"AddPJLCallbackRoutine", host::Role::kStaticGroup},
    {"AddPSCallbackRoutine", host::Role::kStaticGroup},
    {"AddVORNCallbackRoutine", host::Role::kStaticGroup},

    {"Name", host::Role::kDynamicGroup},
    {"PJLCommand", host::Role::kDynamicGroup},
    {"PSCommand", host::Role::kDynamicGroup},
    {"TESKOAAttributeName", host::Role::kDynamicGroup},
    {"TESKJTAttributeName", host::Role::kDynamicGroup},
    {"TESKAttributeSyntax", host::Role::kDynamicGroup},
    {"SortFunctionName", host::Role::kDynamicGroup},
};

bool isFor(const AttributeRule& rule, const host::Element& element) {
  if (rule.role != element.role) return false;
  return !element.kind || (rule.kinds & bit(*element.kind)) != 0;
}

std::vector<std::string> ownerWords(const AttributeRule& rule) {
  switch (rule.role) {
    case host::Role::kDescription:
      return {"FeatureDescription"};
    case host::Role::kBaseInfo:
      return {"BaseFeatureInfo"};
    case host::Role::kOption:
      return {"options"};
    case host::Role::kStaticGroup:
      return {"static groups"};
    case host::Role::kDynamicGroup:
      return {"dynamic groups"};
    default:
      break;
  }
  if (rule.kinds == kAll) return {"features"};
  std::vector<std::string> words;
  for (std::size_t i = 0; i < host::featureTypeWords().size(); ++i) {
    if ((rule.kinds & (1U << i)) != 0) words.push_back(host::featureTypeWords()[i] + " features");
  }
  return words;
}

}  // namespace

std::span<const AttributeRule> attributeRules() {
  return kAttributeRules;
}

const AttributeRule* findRule(const host::Element& element, const std::string& attribute) {
  const auto* found = std::find_if(
      std::begin(kAttributeRules), std::end(kAttributeRules),
      [&](const AttributeRule& rule) { return isFor(rule, element) && attribute == rule.name; });
  return found != std::end(kAttributeRules) ? found : nullptr;
}

std::vector<std::string> attributeNames(const host::Element& element) {
  std::vector<std::string> names;
  for (const AttributeRule& rule : kAttributeRules) {
    if (isFor(rule, element)) names.emplace_back(rule.name);
  }
  return names;
}

std::string ownersOf(const std::string& attribute) {
  std::vector<std::string> owners;
  for (const AttributeRule& rule : kAttributeRules) {
    if (attribute != rule.name) continue;
    for (const std::string& word : ownerWords(rule)) owners.push_back(word);
  }
  return host::join(owners, ", ");
}

}  // namespace driver_feature::check
