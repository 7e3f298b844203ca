#include "host/try_command.h"

#include <memory>
#include <string>

#include <CLI/CLI.hpp>

#include "host/command_arguments.h"
#include "host/trial.h"

namespace driver_feature {

namespace {

constexpr const char* kFooter =
    "The table holds every feature that the changes have reached, directly or\n"
    "through a routine of the description. --save writes the changed values.\n"
    "\n"
    "Examples:\n"
    "  driver-feature try office.xml -o MediaType=Envelope\n"
    "\n"
    "Exit status: 0 every value was restored, 1 one was not, or the description\n"
    "could not be loaded, 2 wrong usage, an unusable file or a refused setting.";

struct Arguments {
  std::string description;
  Changes changes;
};

}  // namespace

Command addTryCommand(CLI::App& program, const SessionRequest& general) {
  const auto arguments = std::make_shared<Arguments>();
  CLI::App* command = addCommand(
      program, "try", "Save all values, make the changes, restore the values, and show each step",
      kFooter);
  addDescription(*command, arguments->description);
  addChanges(*command, arguments->changes);
  return {command, [arguments, &general] {
            SessionRequest session = general;
            session.description = arguments->description;
            return tryChanges(session, arguments->changes);
          }};
}

}  // namespace driver_feature
