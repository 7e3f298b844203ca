#include "host/check/findings.h"

#include <algorithm>
#include <tuple>

namespace driver_feature::check {

Finding refusal(Code code, host::Position position, const std::string& sentence,
                const std::string& remedy, const std::vector<std::string>& log) {
  return {code, position, sentence, remedy, log, true};
}

void sortByPosition(Findings& findings) {
  std::stable_sort(findings.begin(), findings.end(), [](const Finding& left, const Finding& right) {
    return std::tie(left.file, left.position) < std::tie(right.file, right.position);
  });
}

long countOf(const Findings& findings, Severity severity) {
  return std::count_if(findings.begin(), findings.end(), [severity](const Finding& finding) {
    return rowOf(finding.code).severity == severity;
  });
}

}  // namespace driver_feature::check
