// Commands about values and properties: set, get, show.
#ifndef HOST_SHELL_VALUE_COMMANDS_H_
#define HOST_SHELL_VALUE_COMMANDS_H_

#include "host/shell/command_table.h"

namespace driver_feature {

Refusal runSet(Shell& shell, const Words& arguments);
Refusal runGet(Shell& shell, const Words& arguments);
Refusal runShow(Shell& shell, const Words& arguments);

Proposals proposeSet(const Shell& shell, const Words& before, const std::string& word);
Proposals proposeGet(const Shell& shell, const Words& before, const std::string& word);
Proposals proposeShow(const Shell& shell, const Words& before, const std::string& word);

}  // namespace driver_feature

#endif  // HOST_SHELL_VALUE_COMMANDS_H_
