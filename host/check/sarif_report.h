// Findings for programs that read SARIF 2.1.0: code hosts and editors.
#ifndef HOST_CHECK_SARIF_REPORT_H_
#define HOST_CHECK_SARIF_REPORT_H_

#include <string>
#include <vector>

#include "host/check/report.h"

namespace driver_feature::check {

// One run of the tool in this version. Findings that comments allow are in it,
// marked as suppressed, with the reasons.
std::string reportSarif(const std::vector<FileReport>& reports, const std::string& version);

}  // namespace driver_feature::check

#endif  // HOST_CHECK_SARIF_REPORT_H_
