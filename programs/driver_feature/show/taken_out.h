// The choices that rules of the description take out, and why.
#ifndef PROGRAMS_DRIVER_FEATURE_SHOW_TAKEN_OUT_H_
#define PROGRAMS_DRIVER_FEATURE_SHOW_TAKEN_OUT_H_

#include <string>

#include <nlohmann/json_fwd.hpp>

#include "host/settings/rule_keeping.h"

namespace driver_feature::cli {

// A paragraph with the choices of a feature that nothing can allow with the
// present hardware, and the rules that forbid each; of all features when the
// name is empty. Empty when there are none.
std::string showTakenOut(host::RuleKeeper& rules, const std::string& feature);

// The same of all features, as a JSON list.
nlohmann::ordered_json takenOutJson(host::RuleKeeper& rules);

}  // namespace driver_feature::cli

#endif  // PROGRAMS_DRIVER_FEATURE_SHOW_TAKEN_OUT_H_
