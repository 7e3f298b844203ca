// Commands that write: emit, dump; and those about the shell itself: log,
// help, quit.
#ifndef HOST_SHELL_OUTPUT_COMMANDS_H_
#define HOST_SHELL_OUTPUT_COMMANDS_H_

#include "host/shell/command_table.h"

namespace driver_feature {

Refusal runEmit(Shell& shell, const Words& arguments);
Refusal runDump(Shell& shell, const Words& arguments);
Refusal runLog(Shell& shell, const Words& arguments);
Refusal runHelp(Shell& shell, const Words& arguments);
Refusal runQuit(Shell& shell, const Words& arguments);

Proposals proposeEmit(const Shell& shell, const Words& before, const std::string& word);
Proposals proposeLog(const Shell& shell, const Words& before, const std::string& word);
Proposals proposeHelp(const Shell& shell, const Words& before, const std::string& word);

}  // namespace driver_feature

#endif  // HOST_SHELL_OUTPUT_COMMANDS_H_
