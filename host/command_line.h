// The program's arguments: the general options, and one of its commands.
#ifndef HOST_COMMAND_LINE_H_
#define HOST_COMMAND_LINE_H_

#include <functional>

namespace CLI {  // NOLINT(readability-identifier-naming): the name is the library's.
class App;
}  // namespace CLI

namespace driver_feature {

// Reads the arguments and runs the command that they name. Answers the
// program's exit status; wrong usage is told in a line on standard error.
//
// As its first argument, "__complete" makes the program complete the last of
// the other arguments and print what completionText() composes; the functions
// for the shells ask so. It is no command: no help names it.
int runCommandLine(int argc, const char* const* argv);

// Hands over the model of the arguments, as the manual page needs it. The
// model lives until `reader` returns.
void readCommandLine(const std::function<void(const CLI::App& program)>& reader);

}  // namespace driver_feature

#endif  // HOST_COMMAND_LINE_H_
