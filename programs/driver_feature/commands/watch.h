// Repeats work whenever a description changes.
#ifndef PROGRAMS_DRIVER_FEATURE_COMMANDS_WATCH_H_
#define PROGRAMS_DRIVER_FEATURE_COMMANDS_WATCH_H_

#include <functional>
#include <string>
#include <vector>

#include "host/base/result.h"

namespace driver_feature::cli {

// Runs `work` in a child process of its own, so that libraries are loaded anew,
// and again each time one of the descriptions or a file beside it has been
// written, has come or has gone. Ends when a signal ends the process. Problem: the
// folder of a file cannot be watched.
host::Result<int> watchDescriptions(const std::vector<std::string>& files,
                                    const std::function<host::Result<int>()>& work);

}  // namespace driver_feature::cli

#endif  // PROGRAMS_DRIVER_FEATURE_COMMANDS_WATCH_H_
