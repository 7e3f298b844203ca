// What each command of the program brings to its command line.
#ifndef HOST_COMMAND_H_
#define HOST_COMMAND_H_

#include <functional>

#include "host/session.h"

namespace CLI {  // NOLINT(readability-identifier-naming): the name is the library's.
class App;
}  // namespace CLI

namespace driver_feature {

// One command of the program: its arguments, and what it does once they are read.
struct Command {
  CLI::App* arguments = nullptr;
  std::function<int()> run;  // Answers the exit status.
};

// Adds a command to the program. `general` holds what the general options say by the time the
// command runs.
using AddCommand = Command (*)(CLI::App& program, const SessionRequest& general);

}  // namespace driver_feature

#endif  // HOST_COMMAND_H_
