#include "host/ppd/import_command.h"

#include <memory>
#include <string>

#include <CLI/CLI.hpp>

#include "host/command_arguments.h"
#include "host/console.h"
#include "host/output_file.h"
#include "host/ppd/import.h"

namespace driver_feature {

namespace {

constexpr const char* kFooter =
    "Every option of the PPD file becomes a feature of the same name. What a\n"
    "description cannot hold, constraints for one, is named on standard error.\n"
    "\n"
    "Examples:\n"
    "  driver-feature import printer.ppd --output printer.xml\n"
    "\n"
    "Exit status: 0 success, 1 the description could not be written, 2 wrong usage or\n"
    "a file that is no PPD file.";

struct Arguments {
  std::string file;
  std::string output = "-";
};

int run(const Arguments& arguments) {
  std::string problem;
  const auto description = importPpd(arguments.file, problem);
  if (!description) {
    complain(problem);
    return kUnusable;
  }
  for (const std::string& line : description->losses.lines(false)) {
    complain(arguments.file + ": not carried over: " + line);
  }
  const WriteProblem failure = writeToFile(arguments.output, description->text);
  if (!failure) return kSuccess;
  complain(*failure);
  return kFailure;
}

}  // namespace

Command addImportCommand(CLI::App& program, const SessionRequest& /*general*/) {
  const auto arguments = std::make_shared<Arguments>();
  CLI::App* command =
      addCommand(program, "import", "Make a feature description of a PPD file", kFooter);
  command->add_option("PPD", arguments->file, "The PPD file, compressed with gzip or not")
      ->required()
      ->type_name("FILE");
  command->add_option("--output", arguments->output, "Write the description to this file")
      ->type_name("FILE");
  return {command, [arguments] { return run(*arguments); }};
}

}  // namespace driver_feature
