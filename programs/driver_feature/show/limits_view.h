// The limits of a feature, for reading.
#ifndef PROGRAMS_DRIVER_FEATURE_SHOW_LIMITS_VIEW_H_
#define PROGRAMS_DRIVER_FEATURE_SHOW_LIMITS_VIEW_H_

#include <string>
#include <vector>

#include <nlohmann/json_fwd.hpp>

#include "host/description/description_index.h"

namespace driver_feature::cli {

// "from 1 to 9", "at most 8 characters" and so on; none without limits.
std::vector<std::string> limitTexts(const host::FeatureLimits& limits);

// The same as a JSON object.
nlohmann::ordered_json limitsJson(const host::FeatureLimits& limits);

// A float as the decimal number that a reader expects: 0.1, not 0.10000000149.
// Null for what is not a number.
nlohmann::ordered_json floatJson(float number);

// A set of characters: four or more neighbours among the ASCII letters or
// digits as a range, and the others in quotes in their order: A-Z and "-_".
std::string characterSetText(const std::string& characters);

}  // namespace driver_feature::cli

#endif  // PROGRAMS_DRIVER_FEATURE_SHOW_LIMITS_VIEW_H_
