// The arguments that several commands share.
#ifndef HOST_COMMAND_ARGUMENTS_H_
#define HOST_COMMAND_ARGUMENTS_H_

#include <string>

#include "host/changes.h"

namespace CLI {  // NOLINT(readability-identifier-naming): the name is the library's.
class App;
}  // namespace CLI

namespace driver_feature {

// Adds a command whose help ends in `footer`. The general options may stand
// behind it.
CLI::App* addCommand(CLI::App& program, const std::string& name, const std::string& summary,
                     const std::string& footer);

// The description that the command works on. `file` must outlive the reading
// of the arguments, and so must `changes` below.
void addDescription(CLI::App& command, std::string& file);

// What the command changes before it does its work: -o, --records, --settings,
// --save, and --allow-control-characters.
void addChanges(CLI::App& command, Changes& changes);

// --allow-control-characters alone. `allow` must outlive the reading, too.
void addAllowance(CLI::App& command, bool& allow);

}  // namespace driver_feature

#endif  // HOST_COMMAND_ARGUMENTS_H_
