// Settings files: the values and records of a session, kept in a file. The
// form of the text is described in host/settings/settings_text.h.
#ifndef HOST_SETTINGS_SETTINGS_FILE_H_
#define HOST_SETTINGS_SETTINGS_FILE_H_

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/settings/setting.h"
#include "model/core_feature_set.h"

namespace driver_feature::host {

// The text of a settings file with the value of every feature that has one and
// all records. Loading it gives the same values and records.
std::string composeSettings(CoreFeatureSet& set, const Model& model);

// The same without what nobody sets: hidden features with their default values,
// and members of templates, which are only the shape of records. Values of
// features that are marked "Encrypted" can be left out, with a comment that says
// so; a record that has one is then left out as a whole, since it would lack it.
enum class Secrets { kSaved, kLeftOut };
std::string composeSavedSettings(CoreFeatureSet& set, const Model& model, Secrets secrets);

// The text of a preset: what differs from the default values. Values of features
// that are marked "Encrypted" are left out.
std::string composePreset(CoreFeatureSet& set, const Model& model);

// Sets the values of a settings file, and makes its records the only ones of
// the groups that it names. The lines are checked as settings of the command
// line are, but a value that the feature has already is never refused, and a
// line may need another one to be made first, wherever that is.
//
// Otherwise there is a problem for each refused line, in the order of the
// lines, no value, record or other state has changed, and no notification was
// sent: the lines are tried in a copy of the process first.
Result<> loadSettings(CoreFeatureSet& set, const Model& model, const std::string& file);

// The same with the text of a settings file. The problems name no file.
Result<> loadSettingsText(CoreFeatureSet& set, const Model& model, std::string_view text);

// A feature's current value as a setting writes it. Nothing when it has none.
std::optional<std::string> settingText(const FeatureView& feature);

}  // namespace driver_feature::host

#endif  // HOST_SETTINGS_SETTINGS_FILE_H_
