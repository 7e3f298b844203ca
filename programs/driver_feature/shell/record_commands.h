// The command about the records of a dynamic group.
#ifndef PROGRAMS_DRIVER_FEATURE_SHELL_RECORD_COMMANDS_H_
#define PROGRAMS_DRIVER_FEATURE_SHELL_RECORD_COMMANDS_H_

#include "programs/driver_feature/shell/command_table.h"

namespace driver_feature::cli {

host::Result<> runRecords(Shell& shell, const Words& arguments);
Proposals proposeRecords(const Shell& shell, const Words& before, const std::string& word);

}  // namespace driver_feature::cli

#endif  // PROGRAMS_DRIVER_FEATURE_SHELL_RECORD_COMMANDS_H_
