#include "host/page/model_json.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>

#include "host/base/text.h"
#include "host/description/texts.h"
#include "host/page/shown_text.h"

namespace driver_feature::page {

using Json = nlohmann::json;

namespace {
using host::FeatureKind;

struct OffAndOn {
  const char* off;
  const char* on;
};
constexpr std::array<OffAndOn, 5> kSwitches = {
    {{"off", "on"}, {"false", "true"}, {"no", "yes"}, {"disabled", "enabled"}, {"0", "1"}}};

const char* wordOf(Section::Kind kind) {
  switch (kind) {
    case Section::Kind::kFeatures:
      return "features";
    case Section::Kind::kGroup:
      return "group";
    case Section::Kind::kRecords:
      return "records";
    case Section::Kind::kHardware:
      return "hardware";
  }
  return "";
}

// The shortest decimal number; null for what is not a number.
Json numberOf(float number) {
  return std::isfinite(number) ? Json::parse(host::numberText(number), nullptr, false) : Json();
}

// Where a feature or a group is in the description.
Json placeJson(const host::Model& model, const Layout& layout, const std::string& name) {
  const auto place = layout.places.find(name);
  const host::Position position = place != layout.places.end()
                                      ? place->second
                                      : host::Position{model.index.limitsOf(name).line, 0};
  return {{"file", shown(model.file)}, {"line", position.line}, {"column", position.column}};
}

class FeatureWriter {
 public:
  FeatureWriter(const host::Session& session, const Layout& layout, const host::TextLookUp& texts)
      : model_(session.model()), layout_(layout), texts_(texts) {}

  Json write(const CatalogFeature& feature) const {
    const host::FeatureView& view = *feature.view;
    Json json = {{"text", shown(texts_.textOf(feature.name, feature.name))},
                 {"secret", view.isEncrypted()},
                 {"hardware", feature.isHardware},
                 {"place", placeJson(model_, layout_, feature.name)}};
    if (feature.isColumn) json["column"] = true;
    switch (view.kind()) {
      case FeatureKind::kMultiSelect:
        writeList(feature, json);
        break;
      case FeatureKind::kIntEntry:
        writeWhole(feature, json);
        break;
      case FeatureKind::kFloatEntry:
        writeDecimal(feature, json);
        break;
      case FeatureKind::kTextEntry:
        writeText(feature, json);
        break;
      default:
        json["kind"] = "shown";
    }
    return json;
  }

 private:
  void writeList(const CatalogFeature& feature, Json& json) const {
    Json choices = Json::array();
    for (const CatalogChoice& choice : feature.choices) {
      std::string text = texts_.textOf(host::optionKey(feature.name, choice.name), "");
      if (text.empty()) choice.option->getOptionProperty(std::string("DisplayText"), text);
      choices.push_back(
          {{"name", choice.shown}, {"text", text.empty() ? choice.shown : shown(text)}});
    }
    json["kind"] = "list";
    json["choices"] = std::move(choices);
    json["default"] = shown(feature.view->defaultChoice().value_or(""));
    if (feature.choices.size() != 2) return;
    const std::string& first = feature.choices[0].name;
    const std::string& second = feature.choices[1].name;
    for (const auto& [off, on] : kSwitches) {
      const bool isUp = host::toLower(first) == off && host::toLower(second) == on;
      const bool isDown = host::toLower(first) == on && host::toLower(second) == off;
      if (!isUp && !isDown) continue;
      json["kind"] = "switch";
      json["off"] = shown(isUp ? first : second);
      json["on"] = shown(isUp ? second : first);
    }
  }

  void writeWhole(const CatalogFeature& feature, Json& json) const {
    const host::FeatureLimits& limits = model_.index.limitsOf(feature.name);
    json["kind"] = "integer";
    json["step"] = 1;
    json["default"] = std::to_string(feature.view->defaultInt());
    if (limits.intMin) json["min"] = *limits.intMin;
    if (limits.intMax) json["max"] = *limits.intMax;
  }

  void writeDecimal(const CatalogFeature& feature, Json& json) const {
    const host::FeatureLimits& limits = model_.index.limitsOf(feature.name);
    json["kind"] = "decimal";
    json["default"] = host::numberText(feature.view->defaultFloat());
    if (limits.floatMin) json["min"] = numberOf(*limits.floatMin);
    if (limits.floatMax) json["max"] = numberOf(*limits.floatMax);
  }

  void writeText(const CatalogFeature& feature, Json& json) const {
    const host::FeatureLimits& limits = model_.index.limitsOf(feature.name);
    json["kind"] = "text";
    json["default"] = feature.view->isEncrypted() ? "" : shown(feature.view->defaultText());
    if (limits.maxTextLength) json["maxLength"] = *limits.maxTextLength;
    if (!limits.allowedCharacters.empty()) json["allowed"] = shown(limits.allowedCharacters);
  }

  const host::Model& model_;
  const Layout& layout_;
  const host::TextLookUp& texts_;
};

Json sectionsJson(const host::Model& model, const Layout& layout, const host::TextLookUp& texts) {
  Json sections = Json::array();
  for (const Section& section : layout.sections) {
    Json members = Json::array();
    for (const std::string& member : section.members) members.push_back(shown(member));
    sections.push_back(
        {{"id", shown(section.id)},
         {"text", section.id.empty() ? "" : shown(texts.textOf(section.id, section.id))},
         {"kind", wordOf(section.kind)},
         {"outer", shown(section.outer)},
         {"members", std::move(members)}});
    if (!section.id.empty()) sections.back()["place"] = placeJson(model, layout, section.id);
  }
  return sections;
}

// The first language of TextLookUp that the description has, as it spells it.
std::string languageOf(const std::vector<host::TextsOfLanguage>& languages,
                       const std::string& wanted) {
  const auto plain = [](std::string tag) {
    std::ranges::replace(tag, '_', '-');
    return host::toLower(std::move(tag));
  };
  for (const std::string& tag :
       {plain(wanted), plain(wanted.substr(0, wanted.find_first_of("-_")))}) {
    for (const host::TextsOfLanguage& texts : languages) {
      if (plain(texts.language) == tag) return texts.language;
    }
  }
  return languages.empty() ? "" : languages.front().language;
}

Json presetsJson(const host::Session& session, const host::TextLookUp& texts) {
  Json presets = Json::array();
  for (const host::Preset& preset : session.additions(host::kPresetsPart).presets) {
    const std::string own = preset.text.empty() ? preset.name : preset.text;
    presets.push_back({{"name", shown(preset.name)},
                       {"text", shown(texts.textOf(host::presetKey(preset.name), own))}});
  }
  return presets;
}

}  // namespace

Json modelJson(const host::Session& session, const Catalog& catalog, const Layout& layout,
               const std::string& language) {
  const auto& languages = session.additions(host::kTextsPart).texts;
  const host::TextLookUp texts(languages, language);
  const FeatureWriter writer(session, layout, texts);
  Json features = Json::object();
  for (const CatalogFeature& feature : catalog.features()) {
    features.emplace(feature.shown, writer.write(feature));
  }
  Json names = Json::array();
  for (const host::TextsOfLanguage& entry : languages) {
    const std::string name = shown(entry.language);
    if (std::ranges::find(names, Json(name)) == names.end()) names.push_back(name);
  }
  const std::filesystem::path file(session.model().file);
  return {{"name", shown(file.stem().string())},
          {"file", shown(session.model().file)},
          {"language", shown(languageOf(languages, language))},
          {"languages", std::move(names)},
          {"presets", presetsJson(session, texts)},
          {"sections", sectionsJson(session.model(), layout, texts)},
          {"features", std::move(features)},
          {"outputs", {"ps", "pjl", "ticket"}}};
}

}  // namespace driver_feature::page
