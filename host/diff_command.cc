#include "host/diff_command.h"

#include <memory>

#include <CLI/CLI.hpp>

#include "host/command_arguments.h"
#include "host/diff.h"

namespace driver_feature {

namespace {

constexpr const char* kFooter =
    "Tells how the values, the records and the three outputs differ. Control\n"
    "characters are shown as \\r, \\t or \\xNN, and a backslash as \\\\. An empty\n"
    "file, such as /dev/null, stands for the defaults.\n"
    "\n"
    "Examples:\n"
    "  driver-feature diff office.xml draft.conf final.conf\n"
    "  driver-feature diff office.xml /dev/null final.conf --json\n"
    "\n"
    "Exit status: 0 no difference, 1 a difference, 2 the two could not be compared.";

struct Arguments {
  std::string description;
  DiffRequest request;
};

}  // namespace

Command addDiffCommand(CLI::App& program, const SessionRequest& general) {
  const auto arguments = std::make_shared<Arguments>();
  CLI::App* command =
      addCommand(program, "diff", "Compare what two settings files change", kFooter);
  addDescription(*command, arguments->description);
  command->add_option("FIRST", arguments->request.first, "A settings file")
      ->required()
      ->type_name("FILE");
  command->add_option("SECOND", arguments->request.second, "The settings file to compare it with")
      ->required()
      ->type_name("FILE");
  addAllowance(*command, arguments->request.allowControlCharacters);
  command->add_flag("--json", arguments->request.json, "Print a JSON document");
  return {command, [arguments, &general] {
            SessionRequest session = general;
            session.description = arguments->description;
            return diff(session, arguments->request);
          }};
}

}  // namespace driver_feature
