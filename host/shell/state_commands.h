// Commands about what holds for many values at once: save, restore, defaults,
// and the constraints of options.
#ifndef HOST_SHELL_STATE_COMMANDS_H_
#define HOST_SHELL_STATE_COMMANDS_H_

#include "host/shell/command_table.h"

namespace driver_feature {

Refusal runSave(Shell& shell, const Words& arguments);
Refusal runRestore(Shell& shell, const Words& arguments);
Refusal runDefaults(Shell& shell, const Words& arguments);
Refusal runConstrain(Shell& shell, const Words& arguments);
Refusal runRelease(Shell& shell, const Words& arguments);

Proposals proposeFeatures(const Shell& shell, const Words& before, const std::string& word);
Proposals proposeConstrain(const Shell& shell, const Words& before, const std::string& word);
Proposals proposeRelease(const Shell& shell, const Words& before, const std::string& word);

}  // namespace driver_feature

#endif  // HOST_SHELL_STATE_COMMANDS_H_
