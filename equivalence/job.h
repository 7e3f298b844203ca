// Our output as a job that a PostScript interpreter can run.
#ifndef EQUIVALENCE_JOB_H_
#define EQUIVALENCE_JOB_H_

#include <string>

#include "equivalence/comparison.h"

namespace driver_feature::equivalence {

// What the interpreter prints at the end of such a job.
constexpr const char* kJobEnd = "job has ended";

// The sections of the output around an empty page. Left out are the PJL, which
// is not PostScript, and the section "ExitServer", which only a printer's own
// server loop can run.
std::string jobOf(const OurOutput& output);

// Writes the job into a file. False when that fails.
bool writeJob(const OurOutput& output, const std::string& file);

}  // namespace driver_feature::equivalence

#endif  // EQUIVALENCE_JOB_H_
