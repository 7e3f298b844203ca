// Commands about settings files: write, load.
#ifndef HOST_SHELL_SETTINGS_COMMANDS_H_
#define HOST_SHELL_SETTINGS_COMMANDS_H_

#include "host/shell/command_table.h"

namespace driver_feature {

Refusal runWrite(Shell& shell, const Words& arguments);
Refusal runLoad(Shell& shell, const Words& arguments);
Proposals proposeFile(const Shell& shell, const Words& before, const std::string& word);

}  // namespace driver_feature

#endif  // HOST_SHELL_SETTINGS_COMMANDS_H_
