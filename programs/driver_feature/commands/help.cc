// "help": what --help prints, as a command.

#include <array>
#include <string>
#include <vector>

#include "host/base/nearest_name.h"
#include "host/base/output_file.h"
#include "host/base/text.h"
#include "programs/common/console.h"
#include "programs/driver_feature/command_line.h"
#include "programs/driver_feature/commands/commands.h"

namespace driver_feature::cli {

namespace {

constexpr const char* kFooter =
    "Examples:\n"
    "  driver-feature help emit\n"
    "  driver-feature help check\n"
    "\n"
    "Exit status: 0 success, 2 there is no such command.";

constexpr std::array kRows = {
    ArgumentRow{"COMMAND", "COMMAND", "The command to explain; without one, the program"}};

host::Result<int> run(const Arguments& arguments, const host::SessionRequest& /*general*/) {
  const std::string wanted = arguments.text("COMMAND");
  std::vector<std::string> names;
  bool isKnown = wanted.empty();
  for (const CommandRow* command : programRows().commands) {
    names.emplace_back(command->name);
    isKnown = isKnown || wanted == command->name;
  }
  if (!isKnown) {
    const auto nearest = host::nearestName(wanted, names);
    return host::refused("there is no command " + host::inQuotes(wanted) + "; " +
                         (nearest ? "did you mean " + host::inQuotes(*nearest) + "?"
                                  : "give one of " + host::join(names, ", ")));
  }
  std::vector<const char*> words = {programRows().name};
  if (!wanted.empty()) words.push_back(wanted.c_str());
  words.push_back("--help");
  const auto line = readLine(programRows(), static_cast<int>(words.size()), words.data());
  if (!line) return host::Failure(line.error());
  return host::writeToStandardOutput(line->help).map([] { return kSuccess; });
}

}  // namespace

const CommandRow kHelpCommand = {
    "help", "Explain the program or one of its commands", kFooter, kRows, {}, &run};

}  // namespace driver_feature::cli
