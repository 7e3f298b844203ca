#include "host/command_line.h"

#include <CLI/CLI.hpp>

#include <map>
#include <string>
#include <vector>

#include "host/console.h"
#include "host/nearest_name.h"
#include "host/output_file.h"
#include "host/shell/shell_command.h"
#include "host/text.h"

namespace driver_feature {

namespace {

constexpr const char* kExamples =
    "Examples:\n"
    "  driver-feature show office.xml\n"
    "  driver-feature emit office.xml --to ps -o PageSize=A4 -o Copies=2\n"
    "  driver-feature emit office.xml --to ticket --output job.xml\n"
    "\n"
    "Exit status: 0 success, 1 the description could not be loaded or the output\n"
    "not written, 2 wrong usage, an unusable file or a refused setting.";

constexpr const char* kShowExamples =
    "Examples:\n"
    "  driver-feature show office.xml\n"
    "  driver-feature show office.xml --json | jq '.features[].name'\n"
    "  driver-feature show office.xml --records StoredJobs jobs.json";

constexpr const char* kEmitExamples =
    "Settings are checked and applied in the order given; when one is refused,\n"
    "nothing is written.\n"
    "\n"
    "Examples:\n"
    "  driver-feature emit office.xml --to ps -o PageSize=A4 -o Copies=2\n"
    "  driver-feature emit office.xml --to pjl --output job.pjl\n"
    "  driver-feature emit office.xml --to ticket --inst-opt";

constexpr const char* kDumpExamples =
    "Examples:\n"
    "  driver-feature dump office.xml\n"
    "  driver-feature dump office.xml -o Duplex=LongEdge";

constexpr const char* kTryExamples =
    "The table holds every feature that the changes have reached, directly or\n"
    "through a routine of the description.\n"
    "\n"
    "Examples:\n"
    "  driver-feature try office.xml -o MediaType=Envelope";

const std::vector<std::string> kCommands = {"show", "emit", "dump", "try", "shell"};

class Arguments {
 public:
  explicit Arguments(CommandLine& line) : line_(line) {
    program_.footer(kExamples);
    program_.require_subcommand(0, 1);
    program_.add_flag("--version", version_, "Print the versions of program and library");
    program_.add_option("--library", line.session.library, "The feature library to load")
        ->type_name("PATH");
    program_
        .add_option("--callbacks", line.session.routines,
                    "A library of the routines that the description names; may be repeated")
        ->type_name("LIB.so")
        ->allow_extra_args(false);
    auto* verbose = program_.add_flag("-v,--verbose", verbose_, "Show every log line");
    program_.add_flag("-q,--quiet", quiet_, "Show errors only")->excludes(verbose);
    addShow();
    addEmit();
    addDump();
    addTry();
    line.other = addShellCommand(program_, line.session);
  }

  std::optional<int> read(int argc, const char* const* argv) {
    try {
      program_.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
      return end(error);
    }
    if (verbose_) line_.session.detail = LogDetail::kAll;
    if (quiet_) line_.session.detail = LogDetail::kErrors;
    if (version_) {
      line_.command = CommandCode::kVersion;
    } else if (*show_) {
      line_.command = CommandCode::kShow;
    } else if (*emit_) {
      line_.command = CommandCode::kEmit;
    } else if (*dump_) {
      line_.command = CommandCode::kDump;
    } else if (*try_) {
      line_.command = CommandCode::kTry;
    } else if (*line_.other.arguments) {
      line_.command = CommandCode::kOther;
    } else {
      complain("a command is needed: " + commandNames() + "; driver-feature --help explains them");
      return kUnusable;
    }
    return std::nullopt;
  }

 private:
  void addShow() {
    show_ = program_.add_subcommand("show", "Show the features with their values and choices");
    addDescription(show_, kShowExamples);
    show_->add_flag("--json", line_.json, "Print a JSON document");
    addChanges(show_);
  }

  void addDump() {
    dump_ = program_.add_subcommand("dump", "Let the library print its whole model");
    addDescription(dump_, kDumpExamples);
    addChanges(dump_);
  }

  void addTry() {
    try_ = program_.add_subcommand(
        "try", "Save all values, make the changes, restore the values, and show each step");
    addDescription(try_, kTryExamples);
    addChanges(try_);
  }

  // What every command changes before it does its work.
  void addChanges(CLI::App* command) {
    command->add_option("-o,--option", line_.changes.settings, "Set a feature; may be repeated")
        ->type_name("NAME=VALUE")
        ->allow_extra_args(false);
    command
        ->add_option_function<std::vector<std::string>>(
            "--records",
            [this](const std::vector<std::string>& words) {
              for (std::size_t i = 0; i + 1 < words.size(); i += 2) {
                line_.changes.records.push_back({words[i], words[i + 1]});
              }
            },
            "Add the records of a JSON file to a dynamic group; may be repeated")
        ->type_name("GROUP FILE")
        ->type_size(2)
        ->allow_extra_args(false);
  }

  static std::string commandNames() { return join(kCommands, ", "); }

  void addEmit() {
    emit_ = program_.add_subcommand("emit", "Write printer-ready output of the features");
    addDescription(emit_, kEmitExamples);
    static const std::map<std::string, OutputForm> kForms = {{"pjl", OutputForm::kPjl},
                                                             {"ps", OutputForm::kPostScript},
                                                             {"ticket", OutputForm::kTicket}};
    emit_
        ->add_option_function<std::string>(
            "--to", [this](const std::string& form) { line_.emit.form = kForms.at(form); },
            "What to write: ps, pjl or ticket")
        ->required()
        ->type_name("FORM")
        ->check([](const std::string& form) {
          return kForms.contains(form) ? std::string()
                                       : "no such form \"" + form + "\"; give ps, pjl or ticket";
        });
    addChanges(emit_);
    emit_->add_option("--output", line_.emit.file, "Write to a file, whole or not at all")
        ->type_name("FILE");
    emit_->add_flag("--inst-opt", line_.emit.installableOptions,
                    "Let a ticket use the names of installable options");
    emit_
        ->add_option("--ticket-argument1", line_.emit.ticketArgument1, "First argument of a ticket")
        ->type_name("TEXT");
    emit_
        ->add_option("--ticket-argument2", line_.emit.ticketArgument2,
                     "Second argument of a ticket")
        ->type_name("TEXT");
  }

  void addDescription(CLI::App* command, const char* examples) {
    command->footer(examples);
    command->fallthrough();  // The general options may stand behind the command.
    command->add_option("DESC", line_.session.description, "The feature description, an XML file")
        ->required()
        ->type_name("FILE");
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
    const auto nearest = nearestName(extra, kCommands);
    return "there is no command \"" + extra + "\"; " +
           (nearest ? "did you mean \"" + *nearest + "\"?" : "give one of " + commandNames());
  }

  CommandLine& line_;
  CLI::App program_{
      "Loads the feature description of a printer driver, shows its features, and\n"
      "writes printer-ready output of them.",
      "driver-feature"};
  CLI::App* show_ = nullptr;
  CLI::App* emit_ = nullptr;
  CLI::App* dump_ = nullptr;
  CLI::App* try_ = nullptr;
  bool version_ = false;
  bool verbose_ = false;
  bool quiet_ = false;
};

}  // namespace

std::optional<int> readCommandLine(int argc, const char* const* argv, CommandLine& line) {
  return Arguments(line).read(argc, argv);
}

}  // namespace driver_feature
