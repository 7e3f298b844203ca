// The command that compares two settings files by what they change.
#ifndef HOST_DIFF_COMMAND_H_
#define HOST_DIFF_COMMAND_H_

#include "host/command.h"

namespace driver_feature {

// Adds the command "diff". `general` must outlive the command.
Command addDiffCommand(CLI::App& program, const SessionRequest& general);

}  // namespace driver_feature

#endif  // HOST_DIFF_COMMAND_H_
