// Commands about what holds for many values at once: save, restore, defaults,
// and the constraints of options.
#ifndef PROGRAMS_DRIVER_FEATURE_SHELL_STATE_COMMANDS_H_
#define PROGRAMS_DRIVER_FEATURE_SHELL_STATE_COMMANDS_H_

#include "programs/driver_feature/shell/command_table.h"

namespace driver_feature::cli {

host::Result<> runSave(Shell& shell, const Words& arguments);
host::Result<> runRestore(Shell& shell, const Words& arguments);
host::Result<> runDefaults(Shell& shell, const Words& arguments);
host::Result<> runConstrain(Shell& shell, const Words& arguments);
host::Result<> runRelease(Shell& shell, const Words& arguments);

Proposals proposeFeatures(const Shell& shell, const Words& before, const std::string& word);
Proposals proposeConstrain(const Shell& shell, const Words& before, const std::string& word);
Proposals proposeRelease(const Shell& shell, const Words& before, const std::string& word);

}  // namespace driver_feature::cli

#endif  // PROGRAMS_DRIVER_FEATURE_SHELL_STATE_COMMANDS_H_
