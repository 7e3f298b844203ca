// Findings as text for people and as JSON for programs.
#ifndef HOST_CHECK_REPORT_H_
#define HOST_CHECK_REPORT_H_

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "host/check/allowances.h"
#include "host/check/findings.h"
#include "host/check/trial_load.h"
#include "host/session/log.h"

namespace driver_feature::check {

// All that is known about one file.
struct FileReport {
  std::string file;
  bool usable = false;                        // Whether there was a description to check.
  std::optional<LoadReport> load;             // The library's result; nothing when unusable.
  Findings findings;                          // In the order of their places.
  std::vector<AllowedFinding> allowed;        // Those that comments of the file allow.
  std::string source;                         // The text as UTF-8; empty when it cannot be read.
  std::map<std::string, std::string> beside;  // The texts of other files that findings name.
  std::string mark;                           // The file's byte order mark; may be empty.
  bool isUtf8 = false;  // Whether the file is `mark` and `source`, byte for byte.
};

// The file that a finding is about.
const std::string& fileOf(const FileReport& report, const Finding& finding);

// How a text for people looks.
struct TextStyle {
  host::LogDetail detail = host::LogDetail::kUsual;
  bool colour = false;  // With the escape sequences of terminals.
};

// A line for each finding, FILE:LINE:COLUMN: error: SENTENCE; REMEDY [CODE],
// with the line of the file and the log lines below it; a note on each file that
// the library does not load, with its errors; and a line of totals. kErrors
// leaves the warnings out, kAll adds the log of every load.
std::string reportText(const std::vector<FileReport>& reports, const TextStyle& style);

// "error" or "warning".
const char* wordOf(Severity severity);

std::string reportJson(const std::vector<FileReport>& reports);

// The explanation of a code, or of all of them.
std::string explainCode(const CodeRow& row);
std::string explainAllCodes();

}  // namespace driver_feature::check

#endif  // HOST_CHECK_REPORT_H_
