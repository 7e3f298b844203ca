// The command that prints the library's own listing of the whole model.
#ifndef HOST_DUMP_COMMAND_H_
#define HOST_DUMP_COMMAND_H_

#include "host/command.h"

namespace driver_feature {

// Adds the command "dump". `general` must outlive the command.
Command addDumpCommand(CLI::App& program, const SessionRequest& general);

}  // namespace driver_feature

#endif  // HOST_DUMP_COMMAND_H_
