// Reading JSON that another process has written. What is missing stays as it is;
// what has another type, or no name, makes the whole unusable.

#include <charconv>
#include <cstdint>

#include <nlohmann/json.hpp>

#include "host/ipp/capabilities.h"

namespace driver_feature::ipp {

namespace {

using Json = nlohmann::json;

constexpr int kMostKind = static_cast<int>(host::Condition::Kind::kBelow);

std::string unescaped(const std::string& text) {
  std::string result;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text[at] != '\\') {
      result += text[at];
      continue;
    }
    unsigned byte = 0;
    const char* digits = text.data() + at + 2;
    if (text.compare(at, 2, "\\x") == 0 && at + 4 <= text.size() &&
        std::from_chars(digits, digits + 2, byte, 16).ptr == digits + 2) {
      result += static_cast<char>(byte);
      at += 3;
    } else {
      result += '\\';
      ++at;
    }
  }
  return result;
}

[[noreturn]] void refuse(const char* why, const Json& json) {
  throw Json::type_error::create(302, why, &json);
}

std::string textIn(const Json& json, const char* name) {
  if (!json.is_object()) refuse("not an object", json);
  return json.contains(name) ? unescaped(json.at(name).get<std::string>()) : "";
}

int intIn(const Json& json) {
  if (!json.is_number_integer()) refuse("not an integer", json);
  const auto value = json.get<std::int64_t>();
  const bool isTooLarge = json.is_number_unsigned() && json.get<std::uint64_t>() > INT32_MAX;
  if (isTooLarge || value < INT32_MIN || value > INT32_MAX) refuse("not an int", json);
  return static_cast<int>(value);
}

std::optional<int> someInt(const Json& json, const char* name) {
  if (!json.contains(name)) return std::nullopt;
  return intIn(json.at(name));
}

std::optional<float> someFloat(const Json& json, const char* name) {
  if (!json.contains(name)) return std::nullopt;
  return json.at(name).get<float>();
}

// Calls `add` for each element of a list, which may be missing.
template <class Add>
void forEach(const Json& json, const char* name, const Add& add) {
  if (!json.contains(name)) return;
  const Json& list = json.at(name);
  if (!list.is_array()) refuse("not a list", list);
  for (const Json& each : list) add(each);
}

// What must be there, and must not be empty.
std::string nameIn(const Json& json, const char* name) {
  std::string text = textIn(json, name);
  if (text.empty()) refuse("no name", json);
  return text;
}

host::Setting settingIn(const Json& json) {
  return {nameIn(json, "name"), textIn(json, "value")};
}

ChoiceCapability choiceIn(const Json& json) {
  ChoiceCapability choice;
  choice.name = nameIn(json, "name");
  choice.key = textIn(json, "key");
  choice.ticketName = textIn(json, "ticketName");
  if (!json.contains("size")) return choice;
  const Json& size = json.at("size");
  const std::size_t numbers = 6;
  if (!size.is_array() || size.size() != numbers) refuse("not a size", size);
  int* const places[] = {&choice.width,  &choice.height, &choice.left,
                         &choice.bottom, &choice.right,  &choice.top};
  for (std::size_t i = 0; i < numbers; ++i) *places[i] = intIn(size[i]);
  return choice;
}

FeatureCapability featureIn(const Json& json) {
  FeatureCapability feature;
  const auto kind = host::kindNamed(textIn(json, "kind"));
  if (!kind || !host::holdsValue(*kind)) refuse("no kind", json);
  feature.kind = *kind;
  feature.name = nameIn(json, "name");
  feature.group = textIn(json, "group");
  feature.key = textIn(json, "key");
  feature.ticketName = textIn(json, "ticketName");
  feature.syntax = textIn(json, "syntax");
  feature.value = textIn(json, "value");
  feature.allowedCharacters = textIn(json, "allowedCharacters");
  feature.isHardware = json.value("hardware", false);
  feature.isEncrypted = json.value("encrypted", false);
  feature.intMin = someInt(json, "intMin");
  feature.intMax = someInt(json, "intMax");
  feature.floatMin = someFloat(json, "floatMin");
  feature.floatMax = someFloat(json, "floatMax");
  feature.maxTextLength = someInt(json, "maxTextLength");
  if (json.contains("enabler")) feature.enabler = settingIn(json.at("enabler"));
  forEach(json, "choices", [&](const Json& each) { feature.choices.push_back(choiceIn(each)); });
  return feature;
}

PresetCapability presetIn(const Json& json) {
  PresetCapability preset{nameIn(json, "name"), {}};
  forEach(json, "settings", [&](const Json& each) { preset.settings.push_back(settingIn(each)); });
  return preset;
}

ConditionCapability conditionIn(const Json& json) {
  const int kind = intIn(json.at("kind"));
  if (kind < 0 || kind > kMostKind) refuse("no kind", json);
  ConditionCapability condition;
  condition.feature = nameIn(json, "feature");
  condition.kind = static_cast<host::Condition::Kind>(kind);
  condition.number = json.at("number").get<double>();
  forEach(json, "choices", [&](const Json& each) {
    condition.choices.push_back(unescaped(each.get<std::string>()));
  });
  return condition;
}

RuleCapability ruleIn(const Json& json) {
  RuleCapability rule{nameIn(json, "id"), {}};
  forEach(json, "conditions",
          [&](const Json& each) { rule.conditions.push_back(conditionIn(each)); });
  return rule;
}

LanguageCapability languageIn(const Json& json) {
  LanguageCapability language{textIn(json, "language"), {}};
  for (const auto& [key, text] : json.at("texts").items()) {
    language.texts[unescaped(key)] = unescaped(text.get<std::string>());
  }
  return language;
}

Capabilities capabilitiesIn(const Json& json) {
  Capabilities all;
  all.sizeFeature = textIn(json, "sizeFeature");
  forEach(json, "features", [&](const Json& each) { all.features.push_back(featureIn(each)); });
  forEach(json, "presets", [&](const Json& each) { all.presets.push_back(presetIn(each)); });
  forEach(json, "rules", [&](const Json& each) { all.rules.push_back(ruleIn(each)); });
  forEach(json, "languages", [&](const Json& each) { all.languages.push_back(languageIn(each)); });
  return all;
}

}  // namespace

host::Result<Capabilities> capabilitiesFromJson(const std::string& text) {
  try {
    return capabilitiesIn(Json::parse(text));
  } catch (const Json::exception&) {
    return host::fail(host::Problem::Kind::kMalformed,
                      "these are not the capabilities of a description");
  }
}

}  // namespace driver_feature::ipp
