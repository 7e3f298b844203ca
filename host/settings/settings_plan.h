// Applying what a settings file holds.
#ifndef HOST_SETTINGS_SETTINGS_PLAN_H_
#define HOST_SETTINGS_SETTINGS_PLAN_H_

#include <vector>

#include "host/settings/settings_text.h"
#include "model/core_feature_set.h"

namespace driver_feature::host {

// Applies the settings in their order, and then the records. A value that a
// later line has changed through a routine of the description is set again.
// Returns a problem for each line that is refused; the others are still
// applied.
Problems applyLines(CoreFeatureSet& set, const Model& model, const SettingsText& text);

}  // namespace driver_feature::host

#endif  // HOST_SETTINGS_SETTINGS_PLAN_H_
