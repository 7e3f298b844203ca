// The command that tries settings out and takes them back.
#ifndef HOST_TRY_COMMAND_H_
#define HOST_TRY_COMMAND_H_

#include "host/command.h"

namespace driver_feature {

// Adds the command "try". `general` must outlive the command.
Command addTryCommand(CLI::App& program, const SessionRequest& general);

}  // namespace driver_feature

#endif  // HOST_TRY_COMMAND_H_
