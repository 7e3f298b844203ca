// Imports PPD files and reports on standard error.
#ifndef PROGRAMS_DRIVER_FEATURE_COMMANDS_IMPORT_RUN_H_
#define PROGRAMS_DRIVER_FEATURE_COMMANDS_IMPORT_RUN_H_

#include <string>

#include "host/base/result.h"
#include "host/session/log.h"
#include "programs/driver_feature/commands/import_plan.h"

namespace driver_feature::cli {

struct ImportStyle {
  host::LogDetail detail = host::LogDetail::kUsual;
  // Whether a file that loses parts of options or constraints is refused: its
  // description is then not written.
  bool isStrict = false;
};

// The exit status of files that are refused for what they lose.
inline constexpr int kLossy = 3;

// Imports one file to `output`; "-" is standard output. Sums up what is not
// carried over, unless only errors are to be shown; with LogDetail::kAll names
// everything. Returns the program's exit status.
host::Result<int> importOne(const ImportJob& job, const ImportStyle& style);

// Imports every file of the plan, even if others fail, and prints a summary for
// each file and for all. Shows its progress on a terminal. Returns 1 when
// a description could not be written, else 2 when a file or folder could not
// be read, else 3 when a file was refused.
int importAll(const ImportPlan& plan, const ImportStyle& style);

}  // namespace driver_feature::cli

#endif  // PROGRAMS_DRIVER_FEATURE_COMMANDS_IMPORT_RUN_H_
