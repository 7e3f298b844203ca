#include "host/ppd/import_command.h"

#include <clocale>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>

#include "host/command_arguments.h"
#include "host/console.h"
#include "host/ppd/import_run.h"

namespace driver_feature {

namespace {

constexpr const char* kFooter =
    "Every option of a PPD file becomes a feature of the same name, and the choices\n"
    "its options. Of several files, and with --all, each description has the name\n"
    "of its file with .xml in the place of .ppd or .ppd.gz, and goes beside it or to\n"
    "the folder given with --output.\n"
    "\n"
    "A summary of what a description cannot hold, constraints for one, goes to\n"
    "standard error; with --verbose each such thing is named. With --strict no\n"
    "description is written of a file that loses a part of an option or a constraint;\n"
    "texts for users and other keywords are never carried over, and are no error.\n"
    "\n"
    "Examples:\n"
    "  driver-feature import printer.ppd --output printer.xml\n"
    "  driver-feature import printer.ppd > printer.xml\n"
    "  driver-feature import --all ppds --output descriptions\n"
    "\n"
    "Exit status: 0 success, 1 a description could not be written, 2 wrong usage or\n"
    "a file that is no PPD file, 3 a file was refused by --strict. Of several files,\n"
    "the others are imported all the same, and the lowest of these statuses counts.";

struct Arguments {
  std::vector<std::string> files;
  std::string folder;
  std::string output;
  bool isStrict = false;
};

// libcups takes the language of the environment, for its messages and for
// which translations of a file it reads. The program speaks English, and what
// is said of a file must not depend on who asks.
void chooseLanguage() {
  std::setlocale(LC_MESSAGES, "C");
  ::setenv("LC_MESSAGES", "C", 1);
}

int run(const Arguments& arguments, LogDetail detail) {
  const ImportStyle style{detail, arguments.isStrict};
  chooseLanguage();
  if (arguments.files.empty() == arguments.folder.empty()) {
    complain(
        "either PPD files or --all DIR is needed; driver-feature import --help explains the "
        "usage");
    return kUnusable;
  }
  if (arguments.files.size() == 1) {
    const std::string output = arguments.output.empty() ? "-" : arguments.output;
    return importOne({arguments.files.front(), output}, style);
  }
  if (arguments.folder.empty())
    return importAll(planFiles(arguments.files, arguments.output), style);
  const ImportPlan plan = planFolder(arguments.folder, arguments.output);
  if (plan.jobs.empty() && plan.problems.empty()) {
    complain(arguments.folder + ": there is no file named *.ppd or *.ppd.gz in the folder");
    return kUnusable;
  }
  return importAll(plan, style);
}

}  // namespace

Command addImportCommand(CLI::App& program, const SessionRequest& general) {
  const auto arguments = std::make_shared<Arguments>();
  CLI::App* command =
      addCommand(program, "import", "Make feature descriptions of PPD files", kFooter);
  command->add_option("PPD", arguments->files, "The PPD files, compressed with gzip or not")
      ->type_name("FILE...");
  command
      ->add_option("--all", arguments->folder, "Import all PPD files of a folder and its folders")
      ->type_name("DIR");
  command
      ->add_option("--output", arguments->output,
                   "Write the description to this file; of several, the folder for them")
      ->type_name("FILE");
  command->add_flag("--strict", arguments->isStrict,
                    "Refuse a file that loses a part of an option or a constraint");
  return {command, [arguments, &general] { return run(*arguments, general.detail); }};
}

}  // namespace driver_feature
