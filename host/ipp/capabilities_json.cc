#include <string_view>
#include <utility>

#include <nlohmann/json.hpp>

#include "host/base/text.h"
#include "host/ipp/capabilities.h"

namespace driver_feature::ipp {

namespace {

using Json = nlohmann::json;

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

}  // namespace driver_feature::ipp
