#include "host/shell/properties.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "host/nearest_name.h"

namespace driver_feature {

namespace {

struct PropertyEntry {
  const char* name;
  PropertyType type;
};

using Type = PropertyType;

// AddCallbackType and TESKCommand are names, too, but no object takes them.
constexpr PropertyEntry kProperties[] = {
    {"AddCallbackRoutine", Type::kText},
    {"AddPJLCallbackRoutine", Type::kText},
    {"AddPSCallbackRoutine", Type::kText},
    {"AddVORNCallbackRoutine", Type::kText},
    {"BiDiDataSection", Type::kText},
    {"CLOKey", Type::kText},
    {"CurrentFloatValue", Type::kFloat},
    {"CurrentIntValue", Type::kInt},
    {"CurrentTextValue", Type::kText},
    {"DefaultFloatValue", Type::kFloat},
    {"DefaultIntValue", Type::kInt},
    {"DefaultTextValue", Type::kText},
    {"DeferredFloatValue", Type::kFloat},
    {"DeferredIntValue", Type::kInt},
    {"DeferredTextValue", Type::kText},
    {"Encrypted", Type::kBool},
    {"FeatureInGroup", Type::kBool},
    {"FeatureType", Type::kInt},
    {"FeatureValueType", Type::kInt},
    {"FloatMaxValue", Type::kFloat},
    {"FloatMinValue", Type::kFloat},
    {"InstOptAttributeName", Type::kText},
    {"IntMaxValue", Type::kInt},
    {"IntMinValue", Type::kInt},
    {"MaxTextLength", Type::kInt},
    {"Name", Type::kText},
    {"NonVORNAttributeName", Type::kText},
    {"OriginalFloatValue", Type::kFloat},
    {"OriginalIntValue", Type::kInt},
    {"OriginalTextValue", Type::kText},
    {"PJLCommand", Type::kText},
    {"PSCommand", Type::kText},
    {"RecordInFocus", Type::kInt},
    {"SNMPOID", Type::kText},
    {"SNMPOIDPrefix", Type::kText},
    {"Sensitivity", Type::kBool},
    {"SortFunctionName", Type::kText},
    {"TESKAttributeSyntax", Type::kText},
    {"TESKJTAttributeName", Type::kText},
    {"TESKOAAttributeName", Type::kText},
    {"TextValidationCharSet", Type::kText},
    {"ValueString", Type::kText},
    {"Visibility", Type::kBool},
};

std::string quoted(const std::string& text) {
  return "\"" + text + "\"";
}

Refusal refuseName(const std::string& name) {
  const auto nearest = nearestName(name, propertyNames());
  return "there is no property " + quoted(name) + "; " +
         (nearest ? "did you mean " + quoted(*nearest) + "?"
                  : "\"help get\" tells how to list them");
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
Refusal store(CoreFeature& object, const std::string& name, const std::optional<Value>& value,
              const std::string& text, const char* kind) {
  if (!value) return quoted(text) + " is no value for " + quoted(name) + "; give " + kind;
  if (object.setFeatureProperty(name, *value)) return std::nullopt;
  return "the library refuses this value of " + quoted(name) + " for " + quoted(nameOf(object)) +
         "; \"log all\" shows why";
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

const std::vector<std::string>& propertyNames() {
  static const std::vector<std::string> kNames = [] {
    std::vector<std::string> names;
    for (const PropertyEntry& entry : kProperties) names.emplace_back(entry.name);
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

Refusal writeProperty(CoreFeature& object, const std::string& name, const std::string& text) {
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

Refusal readProperty(CoreFeature& object, const std::string& name, std::string& text) {
  const auto type = typeOfProperty(name);
  if (!type) return refuseName(name);
  if (fetchAs(*type, object, name, text)) return std::nullopt;
  return quoted(nameOf(object)) + " gives no property " + quoted(name) + "; \"log all\" shows why";
}

}  // namespace driver_feature
