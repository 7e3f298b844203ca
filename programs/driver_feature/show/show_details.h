// One feature or group in full, for reading.
#ifndef PROGRAMS_DRIVER_FEATURE_SHOW_SHOW_DETAILS_H_
#define PROGRAMS_DRIVER_FEATURE_SHOW_SHOW_DETAILS_H_

#include <cstddef>
#include <string>

#include "host/settings/setting.h"
#include "model/core_feature_set.h"

namespace driver_feature::cli {

// Refuses a name that no feature or group has.
host::Result<> checkDetails(const host::Model& model, const std::string& name);

// Everything about the feature or, when there is none, the group of that name:
// every property that it has, its limits, options, routines, members and
// records, and the groups that it is in. Properties that are empty texts are
// left out. `width` is as for showTable().
std::string detailsText(const host::Model& model, CoreFeatureSet& set, const std::string& name,
                        std::size_t width);

// The same as an indented JSON document with a line end, empty texts included.
std::string detailsJson(const host::Model& model, CoreFeatureSet& set, const std::string& name);

}  // namespace driver_feature::cli

#endif  // PROGRAMS_DRIVER_FEATURE_SHOW_SHOW_DETAILS_H_
