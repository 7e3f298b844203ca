#include "host/settings/preset_settings.h"

#include "host/base/child_process.h"
#include "host/base/nearest_name.h"
#include "host/base/text.h"
#include "host/description/beside_files.h"
#include "host/settings/settings_file.h"
#include "host/settings/settings_text.h"

namespace driver_feature::host {

namespace {

std::vector<std::string> namesOf(const std::vector<Preset>& presets) {
  std::vector<std::string> names;
  names.reserve(presets.size());
  for (const Preset& preset : presets) names.push_back(preset.name);
  return names;
}

}  // namespace

Result<const Preset*> findPreset(const std::vector<Preset>& presets, const std::string& name) {
  for (const Preset& preset : presets) {
    if (preset.name == name) return &preset;
  }
  const std::string wrong = "there is no preset " + inQuotes(name);
  if (presets.empty()) return refused(wrong + "; the description has none");
  const auto nearest = nearestName(name, namesOf(presets));
  return refused(wrong + (nearest ? "; did you mean " + inQuotes(*nearest) + "?"
                                  : "; give one of " + listed(namesOf(presets))));
}

std::string presetFile(const std::string& description, const std::string& name) {
  return besideName(description, ".presets/") + name + ".settings";
}

Result<> checkPresetName(const Session& session, const std::string& name) {
  const std::string& description = session.model().file;
  if (description == kStandardInput) {
    return refused(
        "a preset is written beside the description, and this one is standard input; give a file");
  }
  const bool isPlain = printable(name) == name && name.find('/') == std::string::npos &&
                       name.find('\\') == std::string::npos && !name.starts_with('.');
  if (!isPlain || name.empty()) {
    return refused(inQuotes(name) +
                   " cannot be a file's name; leave out slashes and control characters, and do "
                   "not begin with a dot");
  }
  for (const Preset& preset : session.additions(kPresetsPart).presets) {
    if (preset.name != name || preset.place.file != description) continue;
    return refused("the description has a preset of this name in line " +
                   std::to_string(preset.place.position.line) + "; give another name");
  }
  return {};
}

Result<> applyPreset(CoreFeatureSet& set, const Model& model, const Preset& preset) {
  Result<> applied = loadSettingsText(set, model, preset.settings);
  if (applied) return applied;
  // Lines count from where the text begins in its file.
  const auto place = [&preset](Problem& problem) {
    problem.file = preset.settingsPlace.file;
    if (problem.position.line > 0) problem.position.line += preset.settingsPlace.position.line - 1;
  };
  place(applied.error());
  for (Problem& problem : applied.error().more) place(problem);
  return applied;
}

Result<std::vector<Setting>> tryPreset(CoreFeatureSet& set, const Model& model,
                                       const Preset& preset) {
  const auto texts = runInChild(ChildStreams::kDropped, [&] {
    std::vector<std::string> rows;
    if (const Result<> applied = applyPreset(set, model, preset); !applied) {
      Problems problems = applied.error().more;
      problems.insert(problems.begin(), applied.error());
      for (const Problem& problem : problems) {
        rows.insert(rows.end(), {"", std::to_string(problem.position.line), problem.text});
      }
      return rows;
    }
    for (const Setting& setting : currentSettings(model)) {
      rows.insert(rows.end(), {"value", setting.name, setting.value});
    }
    return rows;
  });
  if (!texts) return fail(texts.error().kind, texts.error().text);
  std::vector<Setting> settings;
  Problems problems;
  for (std::size_t i = 0; i + 2 < texts->size(); i += 3) {
    const std::string& first = (*texts)[i + 1];
    if ((*texts)[i] == "value") {
      settings.push_back({first, (*texts)[i + 2]});
    } else {
      problems.push_back(problemAt(std::stoi(first), (*texts)[i + 2]));
      problems.back().file = preset.settingsPlace.file;
    }
  }
  if (!problems.empty()) return failureOfAll(std::move(problems));
  return settings;
}

std::vector<Setting> currentSettings(const Model& model) {
  std::vector<Setting> settings;
  for (const auto& [name, feature] : model.features) {
    if (const auto value = settingText(feature)) settings.push_back({name, *value});
  }
  return settings;
}

}  // namespace driver_feature::host
