// Runs the output routines: writes a real output of each form in a child process.
#ifndef HOST_CHECK_TRIAL_OUTPUT_H_
#define HOST_CHECK_TRIAL_OUTPUT_H_

#include "host/base/result.h"
#include "host/check/findings.h"
#include "host/description/element.h"
#include "host/session/plugin.h"

namespace driver_feature::check {

// Writes, with all defaults, each form for which the description names a routine,
// and adds a finding for a routine that does not return. What the routines print
// is dropped. The library must load the description. Problem: no child process
// can be made.
host::Result<> tryOutputs(const host::Plugin& plugin, void* handle,
                          const host::Element& description, Findings& findings);

}  // namespace driver_feature::check

#endif  // HOST_CHECK_TRIAL_OUTPUT_H_
