// Presets of a description as settings of a session.
#ifndef HOST_SETTINGS_PRESET_SETTINGS_H_
#define HOST_SETTINGS_PRESET_SETTINGS_H_

#include <string>
#include <utility>
#include <vector>

#include "host/base/result.h"
#include "host/description/additions.h"
#include "host/session/session.h"
#include "host/settings/setting.h"
#include "model/core_feature_set.h"

namespace driver_feature::host {

// The preset of that name. Refused, with the nearest name, when there is none.
Result<const Preset*> findPreset(const std::vector<Preset>& presets, const std::string& name);

// The file beside a description that holds the preset of that name.
std::string presetFile(const std::string& description, const std::string& name);

// Whether a preset can be saved under this name. Refused are names that are not
// file names, those of presets in the description itself, and any for a
// description of standard input.
Result<> checkPresetName(const Session& session, const std::string& name);

// Applies the settings of the preset, as loadSettings() does with a file: all of
// them, or none and a problem for each refused line, with the preset's file and
// line.
Result<> applyPreset(CoreFeatureSet& set, const Model& model, const Preset& preset);

// The same in a copy of the process. Returns the values that the features then
// have.
Result<std::vector<Setting>> tryPreset(CoreFeatureSet& set, const Model& model,
                                       const Preset& preset);

// The values of all features that have one, as settings write them.
std::vector<Setting> currentSettings(const Model& model);

}  // namespace driver_feature::host

#endif  // HOST_SETTINGS_PRESET_SETTINGS_H_
