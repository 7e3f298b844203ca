#include "host/show_command.h"

#include <memory>
#include <string>

#include <CLI/CLI.hpp>

#include "host/command_arguments.h"
#include "host/console.h"
#include "host/show.h"
#include "host/show_details.h"

namespace driver_feature {

namespace {

constexpr const char* kFooter =
    "With NAME, one feature or group is shown in full: every property, the limits,\n"
    "the options with their commands, the routines, and the groups around it.\n"
    "\n"
    "Examples:\n"
    "  driver-feature show office.xml\n"
    "  driver-feature show office.xml PageSize\n"
    "  driver-feature show office.xml --json | jq '.features[].name'\n"
    "  driver-feature show office.xml --records PageExceptions page_exceptions.json\n"
    "  driver-feature show office.xml -o Copies=2 --save two-copies.conf\n"
    "\n"
    "Exit status: 0 success, 1 the description could not be loaded or the output\n"
    "not written, 2 wrong usage, an unusable file or a refused setting.";

struct Arguments {
  std::string description;
  std::string name;
  Changes changes;
  bool json = false;
};

int compose(const Arguments& arguments, const Session& session, std::size_t width,
            std::string& text) {
  const Model& model = session.model();
  CoreFeatureSet& set = session.features();
  if (arguments.name.empty()) {
    text = arguments.json ? showJson(model, set) : showTable(model, set, width);
    return kSuccess;
  }
  if (const Refusal refusal = refuseDetails(model, arguments.name)) {
    complain(*refusal);
    return kUnusable;
  }
  text = arguments.json ? detailsJson(model, set, arguments.name)
                        : detailsText(model, set, arguments.name, width);
  return kSuccess;
}

int show(const Arguments& arguments, const SessionRequest& general) {
  SessionRequest request = general;
  request.description = arguments.description;
  const std::size_t width = terminalWidth();
  return workOnDescription(request, arguments.changes,
                           [&](Session& session, std::vector<Result>& results) {
                             results.emplace_back();
                             return compose(arguments, session, width, results.back().bytes);
                           });
}

}  // namespace

Command addShowCommand(CLI::App& program, const SessionRequest& general) {
  const auto arguments = std::make_shared<Arguments>();
  CLI::App* command =
      addCommand(program, "show", "Show the features with their values and choices", kFooter);
  addDescription(*command, arguments->description);
  command->add_option("NAME", arguments->name, "One feature or group to show in full")
      ->type_name("TEXT");
  command->add_flag("--json", arguments->json, "Print a JSON document");
  addChanges(*command, arguments->changes);
  return {command, [arguments, &general] { return show(*arguments, general); }};
}

}  // namespace driver_feature
