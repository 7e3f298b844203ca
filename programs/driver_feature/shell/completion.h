// Proposals for the word that is being written.
#ifndef PROGRAMS_DRIVER_FEATURE_SHELL_COMPLETION_H_
#define PROGRAMS_DRIVER_FEATURE_SHELL_COMPLETION_H_

#include <string>
#include <string_view>

#include "programs/driver_feature/shell/command_table.h"

namespace driver_feature::cli {

// Completes a line up to the cursor. The proposed words begin with what is
// written of the word. They are in byte order, each once, without quotes and
// escapes.
Proposals complete(const Shell& shell, std::string_view line);

}  // namespace driver_feature::cli

#endif  // PROGRAMS_DRIVER_FEATURE_SHELL_COMPLETION_H_
