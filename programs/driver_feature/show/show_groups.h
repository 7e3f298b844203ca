// The groups of a model and their records, for reading.
#ifndef PROGRAMS_DRIVER_FEATURE_SHOW_SHOW_GROUPS_H_
#define PROGRAMS_DRIVER_FEATURE_SHOW_SHOW_GROUPS_H_

#include <cstddef>
#include <string>

#include <nlohmann/json_fwd.hpp>

#include "host/settings/setting.h"
#include "model/core_feature_set.h"

namespace driver_feature::cli {

// A table of the groups in the order of the description, and one of the
// records of each dynamic group that has some; empty without groups. `width`
// is as for showTable().
std::string showGroups(const host::Model& model, CoreFeatureSet& set, std::size_t width);

// The same as a JSON array.
nlohmann::ordered_json groupsJson(const host::Model& model, CoreFeatureSet& set);

}  // namespace driver_feature::cli

#endif  // PROGRAMS_DRIVER_FEATURE_SHOW_SHOW_GROUPS_H_
