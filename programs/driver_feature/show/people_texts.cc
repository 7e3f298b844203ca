#include "programs/driver_feature/show/people_texts.h"

#include <vector>

#include <nlohmann/json.hpp>

#include "host/settings/settings_text.h"
#include "programs/driver_feature/show/secrets.h"
#include "programs/driver_feature/table.h"

namespace driver_feature::cli {

namespace {

using Json = nlohmann::ordered_json;

// The settings as lines of a settings file, without comments; of records the
// group alone.
std::vector<std::string> settingsOf(const host::Model& model, const host::Preset& preset) {
  const host::SettingsText text = host::parseSettings(preset.settings);
  std::vector<std::string> settings;
  for (const host::SettingsLine& line : text.features) {
    const auto feature = model.features.find(line.setting.name);
    const bool isSecret = feature != model.features.end() && feature->second.isEncrypted();
    settings.push_back(line.setting.name + "=" +
                       (isSecret && hidesSecrets() ? host::kMask : line.setting.value));
  }
  for (const host::SettingsRecord& record : text.records) {
    settings.push_back("[" + record.group + "]" + (record.isNone ? " none" : ""));
  }
  return settings;
}

}  // namespace

PeopleTexts::PeopleTexts(const host::Session& session, const std::string& language)
    : session_(session), texts_(session.additions(host::kTextsPart).texts, language) {}

std::string PeopleTexts::ofFeature(const std::string& name) const {
  return texts_.textOf(name, name);
}

std::string PeopleTexts::ofOption(const std::string& feature, const std::string& option) const {
  std::string text = texts_.textOf(host::optionKey(feature, option), "");
  if (!text.empty()) return text;
  const auto found = session_.model().features.find(feature);
  if (found == session_.model().features.end()) return option;
  const std::string shown = found->second.displayTextOf(option);
  return shown.empty() ? option : shown;
}

std::string PeopleTexts::ofPreset(const host::Preset& preset) const {
  return texts_.textOf(host::presetKey(preset.name),
                       preset.text.empty() ? preset.name : preset.text);
}

std::string PeopleTexts::ofPanel(const host::Panel& panel) const {
  return texts_.textOf(host::panelKey(panel.name), panel.text.empty() ? panel.name : panel.text);
}

std::string presetsText(const host::Session& session, const PeopleTexts& texts, std::size_t width) {
  const std::vector<host::Preset>& presets = session.additions(host::kPresetsPart).presets;
  if (presets.empty()) return "The description has no presets.\n";
  std::vector<TableRow> rows = {{{"PRESET", "TEXT"}, {"SETTINGS"}}};
  for (const host::Preset& preset : presets) {
    rows.push_back({{preset.name, texts.ofPreset(preset)}, settingsOf(session.model(), preset)});
  }
  return layOut(rows, width);
}

std::string presetsJson(const host::Session& session, const PeopleTexts& texts) {
  Json list = Json::array();
  for (const host::Preset& preset : session.additions(host::kPresetsPart).presets) {
    list.push_back({{"name", preset.name},
                    {"text", texts.ofPreset(preset)},
                    {"settings", settingsOf(session.model(), preset)},
                    {"file", preset.place.file},
                    {"line", preset.place.position.line}});
  }
  const Json document = {{"description", session.model().file}, {"presets", list}};
  return document.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

}  // namespace driver_feature::cli
