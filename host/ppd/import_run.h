// Imports PPD files and reports on standard error.
#ifndef HOST_PPD_IMPORT_RUN_H_
#define HOST_PPD_IMPORT_RUN_H_

#include <string>

#include "host/log_printer.h"
#include "host/ppd/import_plan.h"

namespace driver_feature {

// Imports one file to `output`; "-" is standard output. Names everything that
// is not carried over, unless only errors are to be shown. Answers the
// program's exit status.
int importOne(const ImportJob& job, LogDetail detail);

// Imports every file of the plan, whatever becomes of the others, and sums up.
// What is not carried over is counted per file, parts of options apart, which
// are named; with LogDetail::kAll everything is named. Shows on a terminal how
// far it is. Answers 1 when a description could not be written, else 2 when a
// file or folder could not be read.
int importAll(const ImportPlan& plan, LogDetail detail);

}  // namespace driver_feature

#endif  // HOST_PPD_IMPORT_RUN_H_
