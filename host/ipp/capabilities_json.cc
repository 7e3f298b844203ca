#include <charconv>
#include <string_view>
#include <utility>

#include <nlohmann/json.hpp>

#include "host/base/text.h"
#include "host/ipp/capabilities.h"

namespace driver_feature::ipp {

namespace {

using Json = nlohmann::json;

constexpr int kMostKind = static_cast<int>(host::Condition::Kind::kBelow);

// JSON holds UTF-8 only: \xNN is a byte that is not, \\ a backslash.
std::string escaped(const std::string& text) {
  std::string result;
  for (const std::string_view character : host::splitCharacters(text)) {
    const bool isByte = character.size() == 1 && static_cast<unsigned char>(character[0]) >= 0x80;
    if (isByte) {
      result += host::escapedByte(character[0]);
    } else {
      result += character == "\\" ? "\\\\" : character;
    }
  }
  return result;
}

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

template <class Value>
void addSome(Json& json, const char* name, const std::optional<Value>& value) {
  if (value) json[name] = *value;
}

void addText(Json& json, const char* name, const std::string& text) {
  if (!text.empty()) json[name] = escaped(text);
}

Json jsonOf(const std::vector<std::string>& texts) {
  Json json = Json::array();
  for (const std::string& text : texts) json.push_back(escaped(text));
  return json;
}

Json jsonOf(const host::Setting& setting) {
  return {{"name", escaped(setting.name)}, {"value", escaped(setting.value)}};
}

Json jsonOf(const ChoiceCapability& choice) {
  Json json = {{"name", escaped(choice.name)}};
  addText(json, "key", choice.key);
  addText(json, "ticketName", choice.ticketName);
  if (choice.hasSize()) {
    json["size"] = {choice.width,  choice.height, choice.left,
                    choice.bottom, choice.right,  choice.top};
  }
  return json;
}

Json jsonOf(const FeatureCapability& feature) {
  Json json = {{"name", escaped(feature.name)}, {"kind", host::wordOf(feature.kind)}};
  addText(json, "group", feature.group);
  addText(json, "key", feature.key);
  addText(json, "ticketName", feature.ticketName);
  addText(json, "syntax", feature.syntax);
  addText(json, "value", feature.value);
  addText(json, "allowedCharacters", feature.allowedCharacters);
  if (feature.isHardware) json["hardware"] = true;
  if (feature.isEncrypted) json["encrypted"] = true;
  addSome(json, "intMin", feature.intMin);
  addSome(json, "intMax", feature.intMax);
  addSome(json, "floatMin", feature.floatMin);
  addSome(json, "floatMax", feature.floatMax);
  addSome(json, "maxTextLength", feature.maxTextLength);
  if (!feature.enabler.name.empty()) json["enabler"] = jsonOf(feature.enabler);
  for (const ChoiceCapability& choice : feature.choices) json["choices"].push_back(jsonOf(choice));
  return json;
}

Json jsonOf(const PresetCapability& preset) {
  Json settings = Json::array();
  for (const host::Setting& setting : preset.settings) settings.push_back(jsonOf(setting));
  return {{"name", escaped(preset.name)}, {"settings", settings}};
}

Json jsonOf(const RuleCapability& rule) {
  Json conditions = Json::array();
  for (const ConditionCapability& each : rule.conditions) {
    conditions.push_back({{"feature", escaped(each.feature)},
                          {"kind", static_cast<int>(each.kind)},
                          {"choices", jsonOf(each.choices)},
                          {"number", each.number}});
  }
  return {{"id", escaped(rule.id)}, {"conditions", conditions}};
}

Json jsonOf(const LanguageCapability& language) {
  Json texts = Json::object();
  for (const auto& [key, text] : language.texts) texts[escaped(key)] = escaped(text);
  return {{"language", escaped(language.language)}, {"texts", texts}};
}

// Reading: what is missing stays as it is; what has another type throws.

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
  const std::string text = textIn(json, name);
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

template <class Item>
Json listOf(const std::vector<Item>& items) {
  Json json = Json::array();
  for (const Item& item : items) json.push_back(jsonOf(item));
  return json;
}

}  // namespace

std::string toJson(const Capabilities& capabilities) {
  const Json json = {{"features", listOf(capabilities.features)},
                     {"sizeFeature", escaped(capabilities.sizeFeature)},
                     {"presets", listOf(capabilities.presets)},
                     {"rules", listOf(capabilities.rules)},
                     {"languages", listOf(capabilities.languages)}};
  return json.dump();
}

host::Result<Capabilities> capabilitiesFromJson(const std::string& text) {
  try {
    return capabilitiesIn(Json::parse(text));
  } catch (const Json::exception&) {
    return host::fail(host::Problem::Kind::kMalformed,
                      "these are not the capabilities of a description");
  }
}

}  // namespace driver_feature::ipp
