#include "programs/printer/hardware.h"

#include <algorithm>
#include <map>
#include <utility>

#include "host/base/input_file.h"
#include "host/base/output_file.h"
#include "host/base/text.h"
#include "host/settings/rule_keeping.h"
#include "host/settings/settings_text.h"

namespace driver_feature::printer {

namespace {

std::string textOf(const host::Setting& setting) {
  return setting.name + "=" + setting.value;
}

}  // namespace

std::vector<host::Setting> readHardware(const std::filesystem::path& file) {
  std::vector<host::Setting> settings;
  const auto text = host::readFile(file.string());
  if (!text) return settings;
  for (host::SettingsLine& line : host::parseSettings(*text).features) {
    settings.push_back(std::move(line.setting));
  }
  return settings;
}

host::Result<> writeHardware(const std::filesystem::path& file, const Hardware& hardware) {
  std::map<std::string, std::string> values;
  for (const auto* settings : {&hardware.kept, &hardware.given}) {
    for (const host::Setting& setting : *settings) values[setting.name] = setting.value;
  }
  std::string text = "# What is built into the printer: written by --set.\n";
  for (const auto& [name, value] : values) {
    if (!value.empty()) text += host::settingLine({name, value});
  }
  return host::writeAllOutputs({{file.string(), text, /*isPrivate=*/true, /*makesFolder=*/true}});
}

HardwareSession::HardwareSession(const host::Session& session)
    : session_(session),
      lists_(ipp::hardwareLists(session.model(), session.additions(host::kRulesPart))) {
  for (const auto& [name, view] : session_.model().features) {
    if (view.isAvailable()) features_.push_back(name);
    for (const host::Choice& choice : view.choices()) {
      if (choice.available) choices_.emplace_back(name, choice.name);
    }
  }
  std::sort(choices_.begin(), choices_.end());
}

host::Result<> HardwareSession::set(const host::Setting& setting) const {
  if (std::find(lists_.begin(), lists_.end(), setting.name) == lists_.end()) {
    return host::refused(host::inQuotes(setting.name) + " is not hardware of the printer; " +
                         (lists_.empty() ? "its description has no such features"
                                         : "choose one of " + host::join(lists_, ", ")));
  }
  return applySetting(session_.model(), setting);
}

host::Result<> HardwareSession::install(const Hardware& hardware, std::vector<std::string>& lines) {
  host::RuleKeeper keeper(session_);
  const auto isGivenAnew = [&](const host::Setting& kept) {
    return std::any_of(hardware.given.begin(), hardware.given.end(),
                       [&](const host::Setting& given) { return given.name == kept.name; });
  };
  for (const host::Setting& setting : hardware.kept) {
    if (isGivenAnew(setting)) continue;
    if (const auto done = set(setting); !done) {
      lines.push_back("the hardware " + textOf(setting) +
                      " is left out: " + describe(done.error()));
      continue;
    }
    keeper.noteSet(setting.name);
  }
  for (const host::Setting& setting : hardware.given) {
    if (setting.value.empty()) continue;
    if (auto done = set(setting); !done) return done;
    keeper.noteSet(setting.name);
  }
  auto kept = keeper.keep(host::RuleConduct::kMend);
  if (!kept) lines.push_back(describe(kept.error()));
  if (kept) lines.insert(lines.end(), kept->begin(), kept->end());
  const auto takenOut = keeper.takeOut();
  if (!takenOut.empty()) {
    lines.push_back("the hardware takes out " + std::to_string(takenOut.size()) +
                    (takenOut.size() == 1 ? " choice" : " choices"));
  }
  return {};
}

bool HardwareSession::isTakenOut(const std::string& feature, const std::string& choice) const {
  const host::FeatureView& view = session_.model().features.at(feature);
  if (!std::binary_search(choices_.begin(), choices_.end(), std::pair(feature, choice))) {
    return false;
  }
  for (const host::Choice& one : view.choices()) {
    if (one.name == choice) return !one.available;
  }
  return false;
}

void HardwareSession::restrict(ipp::Capabilities& capabilities) const {
  for (ipp::FeatureCapability& feature : capabilities.features) {
    std::erase_if(feature.choices, [&](const ipp::ChoiceCapability& choice) {
      // A default that the hardware forbids is for the rules to say.
      return choice.name != feature.value && !feature.isHardware &&
             isTakenOut(feature.name, choice.name);
    });
  }
  std::erase_if(capabilities.features, [&](const ipp::FeatureCapability& feature) {
    const bool wasAvailable =
        std::find(features_.begin(), features_.end(), feature.name) != features_.end();
    const bool isGone = wasAvailable && feature.enabler.name.empty() &&
                        !session_.model().features.at(feature.name).isAvailable();
    return isGone && !feature.isHardware;
  });
  std::erase_if(capabilities.presets, [&](const ipp::PresetCapability& preset) {
    return std::any_of(preset.settings.begin(), preset.settings.end(),
                       [&](const host::Setting& setting) {
                         const auto found = session_.model().features.find(setting.name);
                         return found != session_.model().features.end() &&
                                isTakenOut(setting.name, setting.value);
                       });
  });
}

}  // namespace driver_feature::printer
