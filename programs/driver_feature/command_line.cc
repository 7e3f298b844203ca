#include "programs/driver_feature/command_line.h"

#include <array>
#include <string>
#include <vector>

#include "host/base/output_file.h"
#include "host/base/text.h"
#include "host/session/routine_runs.h"
#include "host/settings/setting.h"
#include "programs/common/console.h"
#include "programs/driver_feature/commands/commands.h"
#include "programs/driver_feature/completion/candidates.h"
#include "programs/driver_feature/run_caught.h"
#include "programs/driver_feature/version.h"

namespace driver_feature::cli {

namespace {

constexpr const char* kSummary =
    "Loads the feature description of a printer driver, shows its features, and\n"
    "writes their printer-ready output.";

constexpr const char* kFooter =
    "Examples:\n"
    "  driver-feature show office.xml\n"
    "  driver-feature emit office.xml --to ps -o PageSize=A4 -o Copies=2\n"
    "  driver-feature emit office.xml --to ticket --output job.xml\n"
    "\n"
    "Exit status: 0 success, 1 the description could not be loaded or the output\n"
    "not written, 2 wrong usage, an unusable file or a refused setting. Commands\n"
    "with other exit statuses list them in their own help.";

constexpr std::array kGeneral = {
    ArgumentRow{"-h,--help", "", "Print this help message and exit"},
    ArgumentRow{"--version", "",
                "Print the versions of program and library, and how they were built"},
    ArgumentRow{"--library", "PATH", "The feature library to load"},
    ArgumentRow{"--callbacks", "LIB.so",
                "A library of the routines that the description names; may be repeated", kRepeats},
    ArgumentRow{"-v,--verbose", "", "Show every log line"},
    ArgumentRow{"-q,--quiet", "", "Show errors only", kOptional, "--verbose"},
};

constexpr std::array kCommands = {
    &kCheckCommand,    //
    &kShowCommand,     //
    &kEmitCommand,     //
    &kDumpCommand,     //
    &kTryCommand,      //
    &kResolveCommand,  //
    &kDiffCommand,     //
    &kTestCommand,     //
    &kNewCommand,      //
    &kImportCommand,   //
    &kQueueCommand,    //
    &kShellCommand,    //
    &kPreviewCommand,  //
    &kLspCommand,      //
    &kHelpCommand,     //
};

host::SessionRequest generalOf(const Arguments& arguments) {
  host::SessionRequest general;
  general.library = arguments.text("--library");
  general.routines = arguments.texts("--callbacks");
  if (arguments.has("--verbose")) general.detail = host::LogDetail::kAll;
  if (arguments.has("--quiet")) general.detail = host::LogDetail::kErrors;
  general.report = printError;
  general.loadSetting = host::applyLoadedSetting;
  return general;
}

host::Result<int> print(const std::string& text) {
  return host::writeToStandardOutput(text).map([] { return kSuccess; });
}

// Routines of others are kept away from this process, which says what they did.
host::Result<int> runCommand(const CommandRow& command, const Arguments& arguments,
                             const host::SessionRequest& general) {
  if (!command.runsRoutines || general.routines.empty()) return command.run(arguments, general);
  return host::runWithRoutines([&] {
    return runCaught([&] {
      const host::Result<int> status = command.run(arguments, general);
      return status ? *status : report(status.error());
    });
  });
}

host::Result<int> run(int argc, const char* const* argv) {
  if (argc > 1 && std::string(argv[1]) == "__complete") {
    return print(completionText(complete(programRows(), {argv + 2, argv + argc})));
  }
  auto line = readLine(programRows(), argc, argv);
  if (!line) return failureOf(line);
  if (!line->help.empty()) return print(line->help);
  const host::SessionRequest general = generalOf(line->arguments);
  if (line->arguments.has("--version")) {
    auto versions = versionText(general.library);
    if (!versions) return failureOf(versions);
    return print(*versions);
  }
  if (line->command != nullptr) return runCommand(*line->command, line->arguments, general);
  std::vector<std::string> names;
  names.reserve(kCommands.size());
  for (const CommandRow* command : kCommands) names.emplace_back(command->name);
  return host::refused("a command is needed: " + host::join(names, ", ") +
                       "; driver-feature --help explains them");
}

}  // namespace

const ProgramRows& programRows() {
  static constexpr ProgramRows kRows = {"driver-feature", kSummary, kFooter, kGeneral, kCommands};
  return kRows;
}

int runCommandLine(int argc, const char* const* argv) {
  const host::Result<int> status = run(argc, argv);
  return status ? *status : report(status.error());
}

}  // namespace driver_feature::cli
