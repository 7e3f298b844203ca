// What the cases of a folder write now.
#ifndef PROGRAMS_DRIVER_FEATURE_CASES_CASE_RUN_H_
#define PROGRAMS_DRIVER_FEATURE_CASES_CASE_RUN_H_

#include <string>
#include <vector>

#include "host/base/result.h"
#include "host/session/session.h"
#include "programs/driver_feature/cases/case_folder.h"

namespace driver_feature::cli {

struct CaseRun {
  std::string failure;  // Why it could not be run to its end; empty when it was.
  CaseOutputs outputs;
};

// Runs the cases in the order of the folder, each in a process of its own. When
// the description or a library of routines cannot be loaded, the reason is printed
// and there are no runs, or there is a problem.
host::Result<std::vector<CaseRun>> runCases(const CaseFolder& folder,
                                            const host::SessionRequest& request,
                                            bool allowsControlCharacters);

}  // namespace driver_feature::cli

#endif  // PROGRAMS_DRIVER_FEATURE_CASES_CASE_RUN_H_
