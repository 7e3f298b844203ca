// From the settings of a session to its outputs: the one way for all commands
// that write them.
#ifndef PROGRAMS_DRIVER_FEATURE_OUTPUTS_H_
#define PROGRAMS_DRIVER_FEATURE_OUTPUTS_H_

#include <string>
#include <vector>

#include "host/base/result.h"
#include "host/session/output_form.h"
#include "host/session/session.h"

namespace driver_feature::cli {

struct OutputRequest {
  host::OutputForm form = host::OutputForm::kPostScript;
  // Of a ticket.
  bool usesInstallableNames = false;
  std::string argument1 = {};
  std::string argument2 = {};
};

// The outputs of the features with their present values, in the order of the
// requests. Problem: kNotWritten, for each feature and group whose command the
// library leaves out because it cannot be formatted.
host::Result<std::vector<std::string>> composeOutputs(host::Session& session,
                                                      const std::vector<OutputRequest>& requests);

}  // namespace driver_feature::cli

#endif  // PROGRAMS_DRIVER_FEATURE_OUTPUTS_H_
