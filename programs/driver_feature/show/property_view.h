// Every property that the library returns for an object, for reading.
#ifndef PROGRAMS_DRIVER_FEATURE_SHOW_PROPERTY_VIEW_H_
#define PROGRAMS_DRIVER_FEATURE_SHOW_PROPERTY_VIEW_H_

#include <nlohmann/json_fwd.hpp>

#include "model/core_feature.h"

namespace driver_feature::cli {

// The properties that a feature or group has, as a JSON object from their
// names to their values.
nlohmann::ordered_json propertiesOf(CoreFeature& object);

// The same for each option of a feature, as an array; empty without options.
nlohmann::ordered_json optionsOf(CoreFeature& object);

}  // namespace driver_feature::cli

#endif  // PROGRAMS_DRIVER_FEATURE_SHOW_PROPERTY_VIEW_H_
