// The command that writes printer-ready output.
#ifndef HOST_EMIT_COMMAND_H_
#define HOST_EMIT_COMMAND_H_

#include "host/command.h"

namespace driver_feature {

// Adds the command "emit". `general` must outlive the command.
Command addEmitCommand(CLI::App& program, const SessionRequest& general);

}  // namespace driver_feature

#endif  // HOST_EMIT_COMMAND_H_
