// The program's arguments: the general options, and one of its commands.
#ifndef HOST_COMMAND_LINE_H_
#define HOST_COMMAND_LINE_H_

namespace driver_feature {

// Reads the arguments and runs the command that they name. Answers the
// program's exit status; wrong usage is told in a line on standard error.
int runCommandLine(int argc, const char* const* argv);

}  // namespace driver_feature

#endif  // HOST_COMMAND_LINE_H_
