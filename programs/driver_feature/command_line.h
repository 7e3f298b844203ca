// The program's arguments: the general options, and one of its commands.
#ifndef PROGRAMS_DRIVER_FEATURE_COMMAND_LINE_H_
#define PROGRAMS_DRIVER_FEATURE_COMMAND_LINE_H_

#include "programs/driver_feature/arguments.h"

namespace driver_feature::cli {

// The general options, and every command.
const ProgramRows& programRows();

// Reads the arguments, runs the command that they name, and prints the problem
// when there is one. Returns the program's exit status.
//
// As its first argument, "__complete" makes the program complete the last of
// the other arguments and print what completionText() composes; the functions
// for the shells do so. It is not a command: no help names it.
int runCommandLine(int argc, const char* const* argv);

}  // namespace driver_feature::cli

#endif  // PROGRAMS_DRIVER_FEATURE_COMMAND_LINE_H_
