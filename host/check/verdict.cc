#include "host/check/verdict.h"

#include <algorithm>

namespace driver_feature::check {

namespace {

constexpr const char* kRemedy =
    "the check and the library disagree; report this with the description";

// This does not end the process: the load continues without the routine.
constexpr const char* kNoLoadRoutine =
    "FeatureXMLTagHandler() - Null Custom Load VORN Callback Handler pointer";

std::vector<std::string> reasonsOf(const LoadReport& report) {
  std::vector<std::string> reasons;
  for (const LoadLine& line : report.lines) {
    if (line.level == 1 && line.text != kNoLoadRoutine) reasons.push_back(line.text);
  }
  return reasons;
}

}  // namespace

void compareVerdicts(const LoadReport& report, host::Position description, Findings& findings) {
  const auto refused = std::find_if(findings.begin(), findings.end(),
                                    [](const Finding& finding) { return finding.refused; });
  const std::vector<std::string> reasons = reasonsOf(report);
  if (refused == findings.end()) {
    if (report.loaded) return;
    if (!report.routine.empty()) {
      // It ends with what to do.
      const std::size_t remedy = report.routine.rfind("; ");
      findings.push_back(
          {Code::kLoadRefused, description,
           "the library did not load the description, because " + report.routine.substr(0, remedy),
           report.routine.substr(remedy + 2), reasons});
      return;
    }
    findings.push_back({Code::kLoadRefused, description,
                        "the library did not load the description (" + report.end + ")",
                        "check whether one of its routines ends the process", reasons});
  } else if (report.loaded) {
    findings.push_back({Code::kLoadAccepted,
                        description,
                        "the library loaded the description despite line " +
                            std::to_string(refused->position.line),
                        kRemedy,
                        {}});
  } else if (reasons != refused->log) {
    findings.push_back({Code::kOtherReason, description,
                        "the library refused the description (" + report.end +
                            ") for a different reason than that of line " +
                            std::to_string(refused->position.line),
                        kRemedy, reasons});
  }
}

}  // namespace driver_feature::check
