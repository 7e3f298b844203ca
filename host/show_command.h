// The command that shows features and groups with their values.
#ifndef HOST_SHOW_COMMAND_H_
#define HOST_SHOW_COMMAND_H_

#include "host/command.h"

namespace driver_feature {

// Adds the command "show". `general` must outlive the command.
Command addShowCommand(CLI::App& program, const SessionRequest& general);

}  // namespace driver_feature

#endif  // HOST_SHOW_COMMAND_H_
