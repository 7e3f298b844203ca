// The program's arguments.
#ifndef HOST_COMMAND_LINE_H_
#define HOST_COMMAND_LINE_H_

#include <optional>

#include "host/changes.h"
#include "host/command.h"
#include "host/emit.h"
#include "host/session.h"

namespace driver_feature {

enum class CommandCode { kShow, kEmit, kDump, kTry, kVersion, kOther };

struct CommandLine {
  CommandCode command = CommandCode::kShow;
  Command other;  // For CommandCode::kOther.
  SessionRequest session;
  Changes changes;
  EmitRequest emit;
  bool json = false;  // For CommandCode::kShow.
};

// Reads the arguments. Answers the status with which the program has to end
// at once (after help, or after a line about wrong usage), else nothing.
std::optional<int> readCommandLine(int argc, const char* const* argv, CommandLine& line);

}  // namespace driver_feature

#endif  // HOST_COMMAND_LINE_H_
