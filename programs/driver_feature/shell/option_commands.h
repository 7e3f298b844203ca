// The command about the properties of an option.
#ifndef PROGRAMS_DRIVER_FEATURE_SHELL_OPTION_COMMANDS_H_
#define PROGRAMS_DRIVER_FEATURE_SHELL_OPTION_COMMANDS_H_

#include "programs/driver_feature/shell/command_table.h"

namespace driver_feature::cli {

host::Result<> runOption(Shell& shell, const Words& arguments);
Proposals proposeOption(const Shell& shell, const Words& before, const std::string& word);

}  // namespace driver_feature::cli

#endif  // PROGRAMS_DRIVER_FEATURE_SHELL_OPTION_COMMANDS_H_
