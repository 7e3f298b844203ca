// How a program runs its work.
#ifndef PROGRAMS_COMMON_GUARDED_RUN_H_
#define PROGRAMS_COMMON_GUARDED_RUN_H_

#include <functional>
#include <string_view>

namespace driver_feature::cli {

// Prepares the standard streams, starts messages with `start`, which must live as
// long as the process, and returns what `work` returns. When that throws, prints
// why and returns kFailure.
int runGuarded(std::string_view start, const std::function<int()>& work);

}  // namespace driver_feature::cli

#endif  // PROGRAMS_COMMON_GUARDED_RUN_H_
