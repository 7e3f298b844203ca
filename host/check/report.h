// Findings as text for people and as JSON for programs.
#ifndef HOST_CHECK_REPORT_H_
#define HOST_CHECK_REPORT_H_

#include <string>
#include <vector>

#include "host/check/findings.h"

namespace driver_feature {

// All that is known of one file.
struct FileReport {
  std::string file;
  bool usable = false;  // Whether there was a description to check.
  bool loaded = false;  // Whether the library loaded it in the trial.
  std::string loadEnd;  // How the trial ended; empty without a trial.
  Findings findings;    // In the order of their places.
};

// A line for each finding, FILE:LINE:COLUMN: error: SENTENCE; REMEDY [CODE],
// the log lines below it, and a line of totals. Errors only when `brief`.
std::string reportText(const std::vector<FileReport>& reports, bool brief);

std::string reportJson(const std::vector<FileReport>& reports);

// The explanation of a code, or of all of them.
std::string explainCode(const CodeRow& row);
std::string explainAllCodes();

}  // namespace driver_feature

#endif  // HOST_CHECK_REPORT_H_
