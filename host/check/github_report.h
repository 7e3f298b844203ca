// Findings as GitHub's workflow commands, which make them visible in a change.
#ifndef HOST_CHECK_GITHUB_REPORT_H_
#define HOST_CHECK_GITHUB_REPORT_H_

#include <string>
#include <vector>

#include "host/check/report.h"

namespace driver_feature::check {

// A line ::error file=FILE,line=LINE,col=COLUMN,title=CODE::SENTENCE; REMEDY
// or ::warning for each finding.
std::string reportGithub(const std::vector<FileReport>& reports);

}  // namespace driver_feature::check

#endif  // HOST_CHECK_GITHUB_REPORT_H_
