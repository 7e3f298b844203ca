// Findings as text for people and as JSON for programs.
#ifndef HOST_CHECK_REPORT_H_
#define HOST_CHECK_REPORT_H_

#include <optional>
#include <string>
#include <vector>

#include "host/check/findings.h"
#include "host/check/trial_load.h"
#include "host/session/log.h"

namespace driver_feature::check {

// All that is known about one file.
struct FileReport {
  std::string file;
  bool usable = false;             // Whether there was a description to check.
  std::optional<LoadReport> load;  // The library's result; nothing when unusable.
  Findings findings;               // In the order of their places.
};

// A line for each finding, FILE:LINE:COLUMN: error: SENTENCE; REMEDY [CODE],
// with the log lines below it; a note on each file that the library does not
// load, with its errors; and a line of totals. kErrors leaves the warnings
// out, kAll adds the log of every load.
std::string reportText(const std::vector<FileReport>& reports, host::LogDetail detail);

std::string reportJson(const std::vector<FileReport>& reports);

// The explanation of a code, or of all of them.
std::string explainCode(const CodeRow& row);
std::string explainAllCodes();

}  // namespace driver_feature::check

#endif  // HOST_CHECK_REPORT_H_
