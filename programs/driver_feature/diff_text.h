// Differences as they are printed.
#ifndef PROGRAMS_DRIVER_FEATURE_DIFF_TEXT_H_
#define PROGRAMS_DRIVER_FEATURE_DIFF_TEXT_H_

#include <string>
#include <vector>

#include "host/base/line_diff.h"

namespace driver_feature::cli {

// Common lines around each change of an output.
inline constexpr std::size_t kDiffContext = 3;

// Whether the lines hold a change.
bool hasChange(const std::vector<host::DiffLine>& lines);

// The lines under "--- FIRST" and "+++ SECOND", which name the two texts.
std::string composeDiff(const std::string& first, const std::string& second,
                        const std::vector<host::DiffLine>& lines, bool coloured);

}  // namespace driver_feature::cli

#endif  // PROGRAMS_DRIVER_FEATURE_DIFF_TEXT_H_
