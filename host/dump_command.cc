#include "host/dump_command.h"

#include <memory>
#include <string>

#include <CLI/CLI.hpp>

#include "host/command_arguments.h"
#include "host/dump.h"

namespace driver_feature {

namespace {

constexpr const char* kFooter =
    "Examples:\n"
    "  driver-feature dump office.xml\n"
    "  driver-feature dump office.xml -o Duplex=LongEdge\n"
    "\n"
    "Exit status: 0 success, 1 the description could not be loaded or the listing\n"
    "not written, 2 wrong usage, an unusable file or a refused setting.";

struct Arguments {
  std::string description;
  Changes changes;
};

}  // namespace

Command addDumpCommand(CLI::App& program, const SessionRequest& general) {
  const auto arguments = std::make_shared<Arguments>();
  CLI::App* command = addCommand(program, "dump", "Let the library print its whole model", kFooter);
  addDescription(*command, arguments->description);
  addChanges(*command, arguments->changes);
  return {command, [arguments, &general] {
            SessionRequest session = general;
            session.description = arguments->description;
            return dump(session, arguments->changes);
          }};
}

}  // namespace driver_feature
