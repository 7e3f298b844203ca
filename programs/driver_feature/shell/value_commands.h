// Commands about values and properties: set, get, show.
#ifndef PROGRAMS_DRIVER_FEATURE_SHELL_VALUE_COMMANDS_H_
#define PROGRAMS_DRIVER_FEATURE_SHELL_VALUE_COMMANDS_H_

#include "programs/driver_feature/shell/command_table.h"

namespace driver_feature::cli {

host::Result<> runSet(Shell& shell, const Words& arguments);
host::Result<> runGet(Shell& shell, const Words& arguments);
host::Result<> runShow(Shell& shell, const Words& arguments);

host::Result<> runResolve(Shell& shell, const Words& arguments);

Proposals proposeSet(const Shell& shell, const Words& before, const std::string& word);
Proposals proposeGet(const Shell& shell, const Words& before, const std::string& word);
Proposals proposeShow(const Shell& shell, const Words& before, const std::string& word);

}  // namespace driver_feature::cli

#endif  // PROGRAMS_DRIVER_FEATURE_SHELL_VALUE_COMMANDS_H_
