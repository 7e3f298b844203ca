// Features and options by their "CLOKey": the name that a description gives
// them on command lines, such as "sides" and "two-sided-long-edge".
#ifndef HOST_SETTINGS_COMMAND_LINE_KEY_H_
#define HOST_SETTINGS_COMMAND_LINE_KEY_H_

#include <optional>
#include <string>

#include "host/settings/setting.h"

namespace driver_feature::host {

// The name of the first feature with that key; nothing without one.
std::optional<std::string> featureWithKey(const Model& model, const std::string& key);

// The value of the feature that the text means: the name of the option
// with that name or, if there is none, that key. Nothing when no option has
// it. A feature without options takes the text as it is.
std::optional<std::string> valueWithKey(const Model& model, const std::string& feature,
                                        const std::string& text);

// The setting with names in place of keys. An existing name takes precedence over
// a key; what is neither is kept.
Setting withoutKeys(const Model& model, const Setting& setting);

}  // namespace driver_feature::host

#endif  // HOST_SETTINGS_COMMAND_LINE_KEY_H_
