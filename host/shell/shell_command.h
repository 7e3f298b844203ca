// The command "shell": works on a description line by line.
#ifndef HOST_SHELL_SHELL_COMMAND_H_
#define HOST_SHELL_SHELL_COMMAND_H_

#include "host/command.h"

namespace driver_feature {

// At a terminal, lines are edited, completed and remembered, and a refused one
// does no harm. Any other input is a script: its first refused line is
// reported with its number and ends it with that line's status, or, with
// --keep-going, the rest is done first.
Command addShellCommand(CLI::App& program, const SessionRequest& general);

}  // namespace driver_feature

#endif  // HOST_SHELL_SHELL_COMMAND_H_
