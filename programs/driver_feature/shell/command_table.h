// The commands of the shell: one record each, which reading, help and completion
// use.
#ifndef PROGRAMS_DRIVER_FEATURE_SHELL_COMMAND_TABLE_H_
#define PROGRAMS_DRIVER_FEATURE_SHELL_COMMAND_TABLE_H_

#include <cstddef>
#include <span>
#include <string>
#include <vector>

#include "programs/driver_feature/shell/words.h"

namespace driver_feature::cli {

class Shell;

// Proposals for a word that is being written.
struct Proposals {
  std::vector<std::string> words;
  bool files = false;       // Names of files, too.
  bool unfinished = false;  // More of the same word is to follow.
};

struct ShellCommand {
  const char* name;
  const char* arguments;  // As a line of usage shows them; empty for none.
  const char* summary;    // One line.
  const char* details;    // The rest of its help: lines with line ends; may be empty.
  std::size_t fewest;     // Numbers of arguments.
  std::size_t most;
  // Does its work, and writes its result through the shell. The number of
  // arguments is within the limits.
  host::Result<> (*run)(Shell& shell, const Words& arguments);
  // Proposes for the argument after `before`, of which `word` is written; what
  // does not begin with `word` is left out by the caller. Null for none.
  Proposals (*propose)(const Shell& shell, const Words& before, const std::string& word);
};

inline constexpr std::size_t kAnyNumber = static_cast<std::size_t>(-1);

// In the order of the help.
std::span<const ShellCommand> shellCommands();

// Refused when there is none of that name; never null.
host::Result<const ShellCommand*> findCommand(const std::string& name);

std::vector<std::string> commandNames();

}  // namespace driver_feature::cli

#endif  // PROGRAMS_DRIVER_FEATURE_SHELL_COMMAND_TABLE_H_
