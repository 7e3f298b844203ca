// What the programs print for people on standard error, and the statuses with
// which they end.
#ifndef PROGRAMS_COMMON_CONSOLE_H_
#define PROGRAMS_COMMON_CONSOLE_H_

#include <string_view>

#include "host/base/result.h"

namespace driver_feature::cli {

inline constexpr int kSuccess = 0;
inline constexpr int kFailure = 1;   // The description could not be loaded, or output not written.
inline constexpr int kUnusable = 2;  // Wrong usage, an unusable input or a refused setting.

// Writes "driver-feature: TEXT" and a line end to standard error. Control
// characters of the text are spelled out, so that it stays on one line.
void printError(std::string_view text);

// Writes a line for the problem, and one for each that comes with it.
void printProblem(const host::Problem& problem);

// Writes `start` in front of messages from now on, in place of
// "driver-feature: ". It must live as long as the process.
void startMessagesWith(std::string_view start);

// printError() for a lack of memory; takes none itself.
void printLackOfMemory();

// The status that a problem asks for.
int statusOf(const host::Problem& problem);

// Prints the problem and returns its status.
int report(const host::Problem& problem);

}  // namespace driver_feature::cli

#endif  // PROGRAMS_COMMON_CONSOLE_H_
