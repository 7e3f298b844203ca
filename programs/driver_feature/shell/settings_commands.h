// Commands about settings files and presets: write, load, preset, presets.
#ifndef PROGRAMS_DRIVER_FEATURE_SHELL_SETTINGS_COMMANDS_H_
#define PROGRAMS_DRIVER_FEATURE_SHELL_SETTINGS_COMMANDS_H_

#include "programs/driver_feature/shell/command_table.h"

namespace driver_feature::cli {

host::Result<> runWrite(Shell& shell, const Words& arguments);
host::Result<> runLoad(Shell& shell, const Words& arguments);
host::Result<> runPreset(Shell& shell, const Words& arguments);
host::Result<> runPresets(Shell& shell, const Words& arguments);
Proposals proposePreset(const Shell& shell, const Words& before, const std::string& word);
Proposals proposeFile(const Shell& shell, const Words& before, const std::string& word);

}  // namespace driver_feature::cli

#endif  // PROGRAMS_DRIVER_FEATURE_SHELL_SETTINGS_COMMANDS_H_
