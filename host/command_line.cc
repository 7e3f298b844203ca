#include "host/command_line.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>

#include "host/check/check_command.h"
#include "host/command.h"
#include "host/completion/candidates.h"
#include "host/console.h"
#include "host/diff_command.h"
#include "host/dump_command.h"
#include "host/emit_command.h"
#include "host/nearest_name.h"
#include "host/output_file.h"
#include "host/ppd/import_command.h"
#include "host/queue/queue_command.h"
#include "host/shell/shell_command.h"
#include "host/show_command.h"
#include "host/text.h"
#include "host/try_command.h"
#include "host/version.h"

namespace driver_feature {

namespace {

constexpr const char* kExamples =
    "Examples:\n"
    "  driver-feature show office.xml\n"
    "  driver-feature emit office.xml --to ps -o PageSize=A4 -o Copies=2\n"
    "  driver-feature emit office.xml --to ticket --output job.xml\n"
    "\n"
    "Exit status: 0 success, 1 the description could not be loaded or the output\n"
    "not written, 2 wrong usage, an unusable file or a refused setting. A command\n"
    "with other statuses tells them in its own help.";

// Every command, in the order of the help.
constexpr std::array kCommands = {
    &addCheckCommand,   //
    &addShowCommand,    //
    &addEmitCommand,    //
    &addDumpCommand,    //
    &addTryCommand,     //
    &addDiffCommand,    //
    &addImportCommand,  //
    &addQueueCommand,   //
    &addShellCommand,   //
};

class CommandLine {
 public:
  CommandLine() {
    program_.footer(kExamples);
    program_.require_subcommand(0, 1);
    program_.add_flag("--version", version_,
                      "Print the versions of program and library, and how they were built");
    program_.add_option("--library", general_.library, "The feature library to load")
        ->type_name("PATH");
    program_
        .add_option("--callbacks", general_.routines,
                    "A library of the routines that the description names; may be repeated")
        ->type_name("LIB.so")
        ->allow_extra_args(false);
    auto* verbose = program_.add_flag("-v,--verbose", verbose_, "Show every log line");
    program_.add_flag("-q,--quiet", quiet_, "Show errors only")->excludes(verbose);
    for (const AddCommand add : kCommands) commands_.push_back(add(program_, general_));
  }

  const CLI::App& program() const { return program_; }

  int run(int argc, const char* const* argv) {
    try {
      program_.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
      return end(error);
    }
    if (verbose_) general_.detail = LogDetail::kAll;
    if (quiet_) general_.detail = LogDetail::kErrors;
    if (version_) return printVersions(general_.library);
    const auto chosen =
        std::find_if(commands_.begin(), commands_.end(),
                     [](const Command& command) { return command.arguments->parsed(); });
    if (chosen != commands_.end()) return chosen->run();
    complain("a command is needed: " + join(names(), ", ") +
             "; driver-feature --help explains them");
    return kUnusable;
  }

 private:
  std::vector<std::string> names() const {
    std::vector<std::string> names;
    for (const Command& command : commands_) names.push_back(command.arguments->get_name());
    return names;
  }

  int end(const CLI::ParseError& error) {
    if (dynamic_cast<const CLI::CallForHelp*>(&error) != nullptr) {
      const WriteProblem problem = writeToStandardOutput(program_.help());
      if (!problem) return kSuccess;
      complain(*problem);
      return kFailure;
    }
    complain(reasonOf(error));
    return kUnusable;
  }

  std::string reasonOf(const CLI::ParseError& error) const {
    const bool commandGiven = !program_.get_subcommands().empty();
    const std::string command = commandGiven ? program_.get_subcommands().front()->get_name() : "";
    const std::string help =
        "; driver-feature " + command + (commandGiven ? " " : "") + "--help explains the usage";
    if (dynamic_cast<const CLI::ExtrasError*>(&error) == nullptr) return error.what() + help;
    const std::vector<std::string> extras = program_.remaining(true);
    const std::string extra = extras.empty() ? "" : extras.front();
    if (commandGiven || extra.starts_with('-')) return "\"" + extra + "\" is not expected" + help;
    const auto nearest = nearestName(extra, names());
    return "there is no command \"" + extra + "\"; " +
           (nearest ? "did you mean \"" + *nearest + "\"?" : "give one of " + join(names(), ", "));
  }

  SessionRequest general_;
  CLI::App program_{
      "Loads the feature description of a printer driver, shows its features, and\n"
      "writes printer-ready output of them.",
      "driver-feature"};
  std::vector<Command> commands_;
  bool version_ = false;
  bool verbose_ = false;
  bool quiet_ = false;
};

}  // namespace

int runCommandLine(int argc, const char* const* argv) {
  if (argc > 1 && std::string(argv[1]) == "__complete") {
    const CommandLine line;
    const Completion completion = complete(line.program(), {argv + 2, argv + argc});
    return writeToStandardOutput(completionText(completion)) ? kFailure : kSuccess;
  }
  return CommandLine().run(argc, argv);
}

void readCommandLine(const std::function<void(const CLI::App& program)>& reader) {
  const CommandLine line;
  reader(line.program());
}

}  // namespace driver_feature
