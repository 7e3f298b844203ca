// The command about the records of a dynamic group.
#ifndef HOST_SHELL_RECORD_COMMANDS_H_
#define HOST_SHELL_RECORD_COMMANDS_H_

#include "host/shell/command_table.h"

namespace driver_feature {

Refusal runRecords(Shell& shell, const Words& arguments);
Proposals proposeRecords(const Shell& shell, const Words& before, const std::string& word);

}  // namespace driver_feature

#endif  // HOST_SHELL_RECORD_COMMANDS_H_
