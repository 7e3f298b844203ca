// Compares the rules with the library: they must agree about every description.
#ifndef HOST_CHECK_VERDICT_H_
#define HOST_CHECK_VERDICT_H_

#include "host/check/findings.h"
#include "host/check/trial_load.h"

namespace driver_feature::check {

// Adds a finding when the library has loaded what the rules refuse, has not
// loaded what they accept, or gives a different reason than the first refusal
// of `findings`. The findings are in the order of the rules.
void compareVerdicts(const LoadReport& report, host::Position description, Findings& findings);

}  // namespace driver_feature::check

#endif  // HOST_CHECK_VERDICT_H_
