// A case compared with its expected outputs.
#ifndef PROGRAMS_DRIVER_FEATURE_CASES_CASE_COMPARISON_H_
#define PROGRAMS_DRIVER_FEATURE_CASES_CASE_COMPARISON_H_

#include <string>
#include <vector>

#include "programs/driver_feature/cases/case_folder.h"
#include "programs/driver_feature/cases/case_run.h"

namespace driver_feature::cli {

// An output that is not as expected.
struct CaseChange {
  std::string file;      // Its name in the folder.
  std::string what;      // "ps differs".
  std::string expected;  // Empty without a file.
  std::string written;
};

class CaseComparison {
 public:
  CaseComparison(std::string name, const ExpectedOutputs& expected, const CaseRun& run);

  const std::string& name() const { return name_; }
  const std::string& failure() const { return failure_; }  // Why it could not be run.
  const std::vector<CaseChange>& changes() const { return changes_; }
  bool isAsExpected() const { return failure_.empty() && changes_.empty(); }

  // A line for the case, and the changes as "diff" shows them.
  std::string report(bool coloured) const;

 private:
  std::string name_;
  std::string failure_;
  std::vector<CaseChange> changes_;
};

}  // namespace driver_feature::cli

#endif  // PROGRAMS_DRIVER_FEATURE_CASES_CASE_COMPARISON_H_
