// Runs a command that works on a description.
#ifndef PROGRAMS_DRIVER_FEATURE_WORK_H_
#define PROGRAMS_DRIVER_FEATURE_WORK_H_

#include <functional>
#include <vector>

#include "host/base/output_file.h"
#include "host/base/result.h"
#include "host/session/session.h"
#include "host/settings/changes.h"

namespace driver_feature::cli {

// Opens the session, makes the changes, and lets `work` compose its outputs, all
// with standard output diverted. Then writes the outputs, the settings file to
// save among them: all or, as far as they are files, none.
using Work =
    std::function<host::Result<>(host::Session& session, std::vector<host::OutputText>& outputs)>;
host::Result<int> workOnDescription(const host::SessionRequest& request,
                                    const host::Changes& changes, const Work& work);

}  // namespace driver_feature::cli

#endif  // PROGRAMS_DRIVER_FEATURE_WORK_H_
