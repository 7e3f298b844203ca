#include "host/check/attribute_table.h"

#include <algorithm>

#include "host/base/text.h"

namespace driver_feature {

namespace {

constexpr unsigned bit(FeatureKind kind) {
  return 1U << static_cast<unsigned>(kind);
}

constexpr unsigned kAll = ~0U;
constexpr unsigned kList = bit(FeatureKind::kMultiSelect);
constexpr unsigned kInt = bit(FeatureKind::kIntEntry);
constexpr unsigned kText = bit(FeatureKind::kTextEntry);
constexpr unsigned kFloat = bit(FeatureKind::kFloatEntry);

using Form = ValueForm;

constexpr AttributeRule kRules[] = {
    {"DefaultCallbackHandler", Role::kBaseInfo},
    {"LoadVORNCallbackHandler", Role::kBaseInfo},

    {"FeatureType", Role::kFeature},
    {"Name", Role::kFeature},
    {"Sensitivity", Role::kFeature, Form::kBool},
    {"Visibility", Role::kFeature, Form::kBool},
    {"Encrypted", Role::kFeature, Form::kBool, kText},
    {"PJLCommand", Role::kFeature},
    {"PSCommand", Role::kFeature},
    {"TESKOAAttributeName", Role::kFeature},
    {"TESKJTAttributeName", Role::kFeature},
    {"TESKAttributeSyntax", Role::kFeature},
    {"InstOptAttributeName", Role::kFeature},
    {"NonVORNAttributeName", Role::kFeature},
    {"AddCallbackRoutine", Role::kFeature},
    {"AddPJLCallbackRoutine", Role::kFeature},
    {"AddPSCallbackRoutine", Role::kFeature},
    {"AddVORNCallbackRoutine", Role::kFeature},
    {"SNMPOID", Role::kFeature},
    {"SNMPOIDPrefix", Role::kFeature},
    {"BiDiDataSection", Role::kFeature},
    {"CLOKey", Role::kFeature},
    {"IntMaxValue", Role::kFeature, Form::kInt, kInt},
    {"IntMinValue", Role::kFeature, Form::kInt, kInt},
    {"FloatMaxValue", Role::kFeature, Form::kFloat, kFloat},
    {"FloatMinValue", Role::kFeature, Form::kFloat, kFloat},
    {"TextValidationCharSet", Role::kFeature, Form::kText, kText},
    {"MaxTextLength", Role::kFeature, Form::kInt, kText},
    {"DefaultValue", Role::kFeature, Form::kText, kList | kText},
    {"DefaultValue", Role::kFeature, Form::kInt, kInt},
    {"DefaultValue", Role::kFeature, Form::kFloat, kFloat},

    {"Name", Role::kOption},
    {"Sensitivity", Role::kOption, Form::kBool},
    {"PJLCommand", Role::kOption},
    {"PSCommand", Role::kOption},
    {"TESKCommand", Role::kOption},
    {"TESKTicketCommand", Role::kOption},
    {"SNMPValue", Role::kOption},
    {"CLOKey", Role::kOption},

    {"Name", Role::kStaticGroup},
    {"PJLCommand", Role::kStaticGroup},
    {"PSCommand", Role::kStaticGroup},
    {"TESKOAAttributeName", Role::kStaticGroup},
    {"TESKJTAttributeName", Role::kStaticGroup},
    {"TESKAttributeSyntax", Role::kStaticGroup},
    {"AddPJLCallbackRoutine", Role::kStaticGroup},
    {"AddPSCallbackRoutine", Role::kStaticGroup},
    {"AddVORNCallbackRoutine", Role::kStaticGroup},

    {"Name", Role::kDynamicGroup},
    {"PJLCommand", Role::kDynamicGroup},
    {"PSCommand", Role::kDynamicGroup},
    {"TESKOAAttributeName", Role::kDynamicGroup},
    {"TESKJTAttributeName", Role::kDynamicGroup},
    {"TESKAttributeSyntax", Role::kDynamicGroup},
    {"SortFunctionName", Role::kDynamicGroup},
};

bool isFor(const AttributeRule& rule, const Element& element) {
  if (rule.role != element.role) return false;
  return !element.kind || (rule.kinds & bit(*element.kind)) != 0;
}

std::vector<std::string> ownerWords(const AttributeRule& rule) {
  switch (rule.role) {
    case Role::kBaseInfo:
      return {"BaseFeatureInfo"};
    case Role::kOption:
      return {"options"};
    case Role::kStaticGroup:
      return {"static groups"};
    case Role::kDynamicGroup:
      return {"dynamic groups"};
    default:
      break;
  }
  if (rule.kinds == kAll) return {"features"};
  std::vector<std::string> words;
  for (std::size_t i = 0; i < featureTypeWords().size(); ++i) {
    if ((rule.kinds & (1U << i)) != 0) words.push_back(featureTypeWords()[i] + " features");
  }
  return words;
}

}  // namespace

std::span<const AttributeRule> attributeRules() {
  return kRules;
}

const AttributeRule* findRule(const Element& element, const std::string& attribute) {
  const auto* found = std::find_if(
      std::begin(kRules), std::end(kRules),
      [&](const AttributeRule& rule) { return attribute == rule.name && isFor(rule, element); });
  return found != std::end(kRules) ? found : nullptr;
}

std::vector<std::string> attributeNames(const Element& element) {
  std::vector<std::string> names;
  for (const AttributeRule& rule : kRules) {
    if (isFor(rule, element)) names.emplace_back(rule.name);
  }
  return names;
}

std::string ownersOf(const std::string& attribute) {
  std::vector<std::string> owners;
  for (const AttributeRule& rule : kRules) {
    if (attribute != rule.name) continue;
    for (const std::string& word : ownerWords(rule)) owners.push_back(word);
  }
  return join(owners, ", ");
}

}  // namespace driver_feature
