#include "host/session/properties.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "host/base/nearest_name.h"
#include "host/base/text.h"
#include "host/description/description_index.h"

namespace driver_feature::host {

namespace {

using Type = PropertyType;

// AddCallbackType and TESKCommand are names, too, but no object has them.
constexpr PropertyEntry kProperties[] = {
    {"Name", Type::kText},
    {"AddCallbackRoutine", Type::kText},
    {"ValueString", Type::kText},
    {"CurrentTextValue", Type::kText},
    {"DefaultTextValue", Type::kText},
    {"OriginalTextValue", Type::kText},
    {"DeferredTextValue", Type::kText},
    {"TextValidationCharSet", Type::kText},
    {"PSCommand", Type::kText},
    {"PJLCommand", Type::kText},
    {"TESKAttributeSyntax", Type::kText},
    {"TESKJTAttributeName", Type::kText},
    {"TESKOAAttributeName", Type::kText},
    {"NonVORNAttributeName", Type::kText},
    {"InstOptAttributeName", Type::kText},
    {"AddPSCallbackRoutine", Type::kText},
    {"AddPJLCallbackRoutine", Type::kText},
    {"AddVORNCallbackRoutine", Type::kText},
    {"SortFunctionName", Type::kText},
    {"CLOKey", Type::kText},
    {"SNMPOID", Type::kText},
    {"SNMPOIDPrefix", Type::kText},
    {"BiDiDataSection", Type::kText},
    {"FeatureType", Type::kInt},
    {"FeatureValueType", Type::kInt},
    {"CurrentIntValue", Type::kInt},
    {"DefaultIntValue", Type::kInt},
    {"OriginalIntValue", Type::kInt},
    {"DeferredIntValue", Type::kInt},
    {"IntMinValue", Type::kInt},
    {"IntMaxValue", Type::kInt},
    {"MaxTextLength", Type::kInt},
    {"RecordInFocus", Type::kInt},
    {"CurrentFloatValue", Type::kFloat},
    {"DefaultFloatValue", Type::kFloat},
    {"OriginalFloatValue", Type::kFloat},
    {"DeferredFloatValue", Type::kFloat},
    {"FloatMinValue", Type::kFloat},
    {"FloatMaxValue", Type::kFloat},
    {"Sensitivity", Type::kBool},
    {"Visibility", Type::kBool},
    {"Encrypted", Type::kBool},
    {"FeatureInGroup", Type::kBool},
};

Failure refuseName(const std::string& name) {
  const auto nearest = nearestName(name, propertyNames());
  return refused("there is no property " + inQuotes(name) + "; " +
                 (nearest ? "did you mean " + inQuotes(*nearest) + "?"
                          : "\"help get\" shows how to list them"));
}

std::string nameOf(CoreFeature& object) {
  std::string name;
  object.getFeatureProperty(std::string("Name"), name);
  return name;
}

// The whole text as a number, with or without a sign.
template <class Number>
std::optional<Number> numberOf(std::string_view text) {
  if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
  Number number{};
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  if (result.ptr != text.data() + text.size() || result.ec != std::errc()) return std::nullopt;
  return number;
}

template <class Value>
Result<> store(CoreFeature& object, const std::string& name, const std::optional<Value>& value,
               const std::string& text, const char* kind) {
  if (!value) {
    return refused(inQuotes(text) + " is not a value for " + inQuotes(name) + "; give " + kind);
  }
  if (object.setFeatureProperty(name, *value)) return {};
  return refused("the library refuses this value of " + inQuotes(name) + " for " +
                 inQuotes(nameOf(object)) + "; \"log all\" shows why");
}

std::optional<bool> truthOf(const std::string& text) {
  if (text == "true" || text == "1") return true;
  if (text == "false" || text == "0") return false;
  return std::nullopt;
}

template <class Value, class Spell>
bool fetch(CoreFeature& object, const std::string& name, std::string& text, const Spell& spell) {
  Value value{};
  if (!object.getFeatureProperty(name, &value)) return false;
  text = spell(value);
  return true;
}

bool fetchAs(PropertyType type, CoreFeature& object, const std::string& name, std::string& text) {
  switch (type) {
    case PropertyType::kInt:
      return fetch<int>(object, name, text, [](int value) { return std::to_string(value); });
    case PropertyType::kFloat:
      return fetch<float>(object, name, text, [](float value) { return numberText(value); });
    case PropertyType::kBool:
      return fetch<bool>(object, name, text,
                         [](bool value) { return std::string(value ? "true" : "false"); });
    case PropertyType::kText:
      break;
  }
  return object.getFeatureProperty(name, text);
}

}  // namespace

std::span<const PropertyEntry> properties() {
  return kProperties;
}

const std::vector<std::string>& propertyNames() {
  static const std::vector<std::string> kNames = [] {
    std::vector<std::string> names;
    for (const PropertyEntry& entry : kProperties) names.emplace_back(entry.name);
    std::sort(names.begin(), names.end());
    return names;
  }();
  return kNames;
}

std::optional<PropertyType> typeOfProperty(const std::string& name) {
  for (const PropertyEntry& entry : kProperties) {
    if (entry.name == name) return entry.type;
  }
  return std::nullopt;
}

Result<> writeProperty(CoreFeature& object, const std::string& name, const std::string& text) {
  const auto type = typeOfProperty(name);
  if (!type) return refuseName(name);
  switch (*type) {
    case PropertyType::kInt:
      return store(object, name, numberOf<int>(text), text,
                   "a whole number from -2147483648 to 2147483647");
    case PropertyType::kFloat:
      return store(object, name, numberOf<float>(text), text, "a decimal number");
    case PropertyType::kBool:
      return store(object, name, truthOf(text), text, "true or false");
    case PropertyType::kText:
      break;
  }
  return store(object, name, std::optional(text), text, "a text");
}

Result<std::string> readProperty(CoreFeature& object, const std::string& name) {
  const auto type = typeOfProperty(name);
  if (!type) return refuseName(name);
  std::string text;
  if (fetchAs(*type, object, name, text)) return text;
  return refused(inQuotes(nameOf(object)) + " does not return property " + inQuotes(name) +
                 "; \"log all\" shows why");
}

}  // namespace driver_feature::host
