// What to do when a description names an update routine that does not exist.
#ifndef HOST_SESSION_MISSING_ROUTINE_H_
#define HOST_SESSION_MISSING_ROUTINE_H_

#include <filesystem>
#include <string>
#include <vector>

namespace driver_feature::host {

// The log line with which the feature library then ends the process.
inline constexpr const char* kNoUpdateRoutine =
    "FeatureXMLTagHandler() - Null Default Callback Handler pointer";

// The name of the first update routine of a feature-description element that is
// not loaded; empty when there is none.
std::string missingUpdateRoutine(void* description);

// The first library in the folders that contains the routine's name; "LIB.so"
// when none does. No library is loaded, since that would run its code.
std::string libraryWithRoutine(const std::string& routine,
                               const std::vector<std::filesystem::path>& folders);

}  // namespace driver_feature::host

#endif  // HOST_SESSION_MISSING_ROUTINE_H_
