// Features and options by their "CLOKey": the name that a description gives
// them on command lines, such as "sides" and "two-sided-long-edge".
#ifndef PROGRAMS_FILTER_FEATURE_KEY_H_
#define PROGRAMS_FILTER_FEATURE_KEY_H_

#include <optional>
#include <string>

#include "host/settings/setting.h"

namespace driver_feature::filter {

// The name of the first feature with that key; nothing without one.
std::optional<std::string> featureWithKey(const host::Model& model, const std::string& key);

// The value of the feature that the text means: the name of the option
// with that name or, if there is none, that key. Nothing when no option has
// it. A feature without options takes the text as it is.
std::optional<std::string> valueWithKey(const host::Model& model, const std::string& feature,
                                        const std::string& text);

// The PJL command of the option "True" of a feature; nothing without one.
std::optional<std::string> pjlOfTrue(const host::Model& model, const std::string& feature);

}  // namespace driver_feature::filter

#endif  // PROGRAMS_FILTER_FEATURE_KEY_H_
