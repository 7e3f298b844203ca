// Runs the program's work and reports the exceptions that leave it.
#ifndef PROGRAMS_DRIVER_FEATURE_RUN_CAUGHT_H_
#define PROGRAMS_DRIVER_FEATURE_RUN_CAUGHT_H_

#include <functional>

namespace driver_feature::cli {

// What `work` returns. When it throws, prints why and returns kFailure: the
// routine's name if a routine of the description has thrown, otherwise what the
// exception says; a shorter line when there is no memory left to compose it.
int runCaught(const std::function<int()>& work);

}  // namespace driver_feature::cli

#endif  // PROGRAMS_DRIVER_FEATURE_RUN_CAUGHT_H_
