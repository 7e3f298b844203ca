#include "host/command_line.h"

#include <CLI/CLI.hpp>

#include <map>
#include <string>
#include <vector>

#include "host/console.h"
#include "host/nearest_name.h"
#include "host/output_file.h"

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
    "  driver-feature show office.xml --json | jq '.features[].name'";

constexpr const char* kEmitExamples =
    "Settings are checked and applied in the order given; when one is refused,\n"
    "nothing is written.\n"
    "\n"
    "Examples:\n"
    "  driver-feature emit office.xml --to ps -o PageSize=A4 -o Copies=2\n"
    "  driver-feature emit office.xml --to pjl --output job.pjl\n"
    "  driver-feature emit office.xml --to ticket --inst-opt";

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
      line_.command = Command::kVersion;
    } else if (*show_) {
      line_.command = Command::kShow;
    } else if (*emit_) {
      line_.command = Command::kEmit;
    } else {
      complain("a command is needed: show or emit; driver-feature --help explains them");
      return kUnusable;
    }
    return std::nullopt;
  }

 private:
  void addShow() {
    show_ = program_.add_subcommand("show", "Show the features with their values and choices");
    addDescription(show_, kShowExamples);
    show_->add_flag("--json", line_.json, "Print a JSON document");
  }

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
    emit_
        ->add_option("-o,--option", line_.emit.settings,
                     "Set a feature before writing; may be repeated")
        ->type_name("NAME=VALUE")
        ->allow_extra_args(false);
    emit_->add_option("--output", line_.emit.file, "Write to a file, whole or not at all")
        ->type_name("FILE");
    emit_->add_flag("--inst-opt", line_.emit.installableOptions,
                    "Let a ticket use the names of installable options");
    emit_->add_option("--ticket-arg1", line_.emit.ticketArgument1, "First argument of a ticket")
        ->type_name("TEXT");
    emit_->add_option("--ticket-arg2", line_.emit.ticketArgument2, "Second argument of a ticket")
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
    const auto nearest = nearestName(extra, {"show", "emit"});
    return "there is no command \"" + extra + "\"; " +
           (nearest ? "did you mean \"" + *nearest + "\"?" : "give show or emit");
  }

  CommandLine& line_;
  CLI::App program_{
      "Loads the feature description of a printer driver, shows its features, and\n"
      "writes printer-ready output of them.",
      "driver-feature"};
  CLI::App* show_ = nullptr;
  CLI::App* emit_ = nullptr;
  bool version_ = false;
  bool verbose_ = false;
  bool quiet_ = false;
};

}  // namespace

std::optional<int> readCommandLine(int argc, const char* const* argv, CommandLine& line) {
  return Arguments(line).read(argc, argv);
}

}  // namespace driver_feature
