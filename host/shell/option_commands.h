// The command about the properties of an option.
#ifndef HOST_SHELL_OPTION_COMMANDS_H_
#define HOST_SHELL_OPTION_COMMANDS_H_

#include "host/shell/command_table.h"

namespace driver_feature {

Refusal runOption(Shell& shell, const Words& arguments);
Proposals proposeOption(const Shell& shell, const Words& before, const std::string& word);

}  // namespace driver_feature

#endif  // HOST_SHELL_OPTION_COMMANDS_H_
