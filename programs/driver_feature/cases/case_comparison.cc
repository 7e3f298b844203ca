#include "programs/driver_feature/cases/case_comparison.h"

#include <algorithm>
#include <utility>

#include "host/base/line_diff.h"
#include "host/base/text.h"
#include "programs/driver_feature/diff_text.h"

namespace driver_feature::cli {

namespace {

// Each line of the text on a line of its own, harmless to a terminal.
std::string printableLines(std::string_view text) {
  std::string lines;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    lines += (lines.empty() ? "" : "\n      ") + host::printable(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return lines;
}

}  // namespace

CaseComparison::CaseComparison(std::string name, const ExpectedOutputs& expected,
                               const CaseRun& run)
    : name_(std::move(name)), failure_(run.failure) {
  if (!failure_.empty()) return;
  for (std::size_t i = 0; i < kCaseOutputs.size(); ++i) {
    const std::string before = expected[i].value_or("");
    const std::string& now = run.outputs[i];
    if (before == now) continue;
    const char* fault = !expected[i] ? " is missing" : now.empty() ? " is not written" : " differs";
    changes_.push_back(
        {name_ + "." + kCaseOutputs[i], kCaseOutputs[i] + std::string(fault), before, now});
  }
}

std::string CaseComparison::report(bool coloured) const {
  if (isAsExpected()) return "ok    " + host::printable(name_) + "\n";
  std::vector<std::string> reasons;
  std::string differences;
  for (const CaseChange& change : changes_) {
    reasons.push_back(change.what);
    const auto lines =
        host::diffLines(host::visibleLines(change.expected), host::visibleLines(change.written));
    const std::string file = host::printable(change.file);
    differences += composeDiff(file + " (expected)", file + " (written now)",
                               withContext(lines, kDiffContext), coloured);
  }
  const std::string reason =
      failure_.empty() ? host::join(reasons, ", ") : printableLines(failure_);
  return "FAIL  " + host::printable(name_) + ": " + reason + "\n" + differences;
}

}  // namespace driver_feature::cli
