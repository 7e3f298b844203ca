// What the filter reads of options beyond their values.
#ifndef PROGRAMS_FILTER_FEATURE_KEY_H_
#define PROGRAMS_FILTER_FEATURE_KEY_H_

#include <optional>
#include <string>

#include "host/session/model.h"
#include "host/settings/setting.h"

namespace driver_feature::filter {

// The PJL command of the option "True" of a feature; nothing without one.
std::optional<std::string> pjlOfTrue(const host::Model& model, const std::string& feature);

// The setting by its "CLOKey" and that of its option, for a feature that writes no
// commands; nothing for others, and without a key.
std::optional<host::Setting> settingWithoutCommands(const host::Model& model,
                                                    const host::Setting& setting);

}  // namespace driver_feature::filter

#endif  // PROGRAMS_FILTER_FEATURE_KEY_H_
