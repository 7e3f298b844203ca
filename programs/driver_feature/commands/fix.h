// "check --fix": the safe fixes of findings.
#ifndef PROGRAMS_DRIVER_FEATURE_COMMANDS_FIX_H_
#define PROGRAMS_DRIVER_FEATURE_COMMANDS_FIX_H_

#include "host/base/result.h"
#include "programs/driver_feature/commands/check_run.h"

namespace driver_feature::cli {

// Prints a diff of the safe fixes; `write` makes these changes, in all files or
// in none, and prints the report of the fixed files in place of the diff. Returns
// the exit status: for a diff 1 if there is one. Problems: those of checkAll(),
// and kNotWritten.
host::Result<int> fixFiles(const CheckRequest& request, bool write);

}  // namespace driver_feature::cli

#endif  // PROGRAMS_DRIVER_FEATURE_COMMANDS_FIX_H_
