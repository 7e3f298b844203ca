// Commands that write: emit, dump; and those about the shell itself: log,
// help, quit.
#ifndef PROGRAMS_DRIVER_FEATURE_SHELL_OUTPUT_COMMANDS_H_
#define PROGRAMS_DRIVER_FEATURE_SHELL_OUTPUT_COMMANDS_H_

#include "programs/driver_feature/shell/command_table.h"

namespace driver_feature::cli {

host::Result<> runEmit(Shell& shell, const Words& arguments);
host::Result<> runDump(Shell& shell, const Words& arguments);
host::Result<> runLog(Shell& shell, const Words& arguments);
host::Result<> runHelp(Shell& shell, const Words& arguments);
host::Result<> runQuit(Shell& shell, const Words& arguments);

Proposals proposeEmit(const Shell& shell, const Words& before, const std::string& word);
Proposals proposeLog(const Shell& shell, const Words& before, const std::string& word);
Proposals proposeHelp(const Shell& shell, const Words& before, const std::string& word);

}  // namespace driver_feature::cli

#endif  // PROGRAMS_DRIVER_FEATURE_SHELL_OUTPUT_COMMANDS_H_
