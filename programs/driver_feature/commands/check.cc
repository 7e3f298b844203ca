// "check": all faults of feature descriptions.

#include <algorithm>
#include <array>

#include "host/base/output_file.h"
#include "host/check/report.h"
#include "host/description/document.h"
#include "programs/common/colour.h"
#include "programs/common/console.h"
#include "programs/driver_feature/commands/check_run.h"
#include "programs/driver_feature/commands/commands.h"
#include "programs/driver_feature/commands/fix.h"
#include "programs/driver_feature/commands/watch.h"

namespace driver_feature::cli {

namespace {

constexpr const char* kFooter =
    "Reports every fault with its place, the line, a remedy and a code; --explain\n"
    "shows what a code means. \"-\" is standard input. Routines are searched for in the\n"
    "program and in the libraries given with --callbacks.\n"
    "\n"
    "--fix shows safe fixes as a diff: names that are one letter away from the only one\n"
    "that fits, and missing line ends. --fix --write makes these changes, in all files\n"
    "or in none. --watch checks again each time a file is saved.\n"
    "\n"
    "Rules, texts, presets, panels and media sizes, in the file or beside it, are\n"
    "checked as well; findings in a file beside name that file, which --watch follows\n"
    "as well.\n"
    "\n"
    "A comment allows a code in the element after it and everything inside:\n"
    "  <!-- driver-feature: allow DF303: the first tray is always there -->\n"
    "\n"
    "Examples:\n"
    "  driver-feature check office.xml --callbacks liboffice_routines.so\n"
    "  driver-feature check *.xml --strict --format github\n"
    "  driver-feature check office.xml --select DF3,DF501 --ignore DF303\n"
    "  driver-feature check --explain DF501\n"
    "\n"
    "Exit status: 0 nothing is wrong, 1 errors (with --strict also warnings; with --fix\n"
    "also changes to make), 2 wrong usage or a file that is not a feature description.";

constexpr std::array kRows = {
    ArgumentRow{"DESC", "FILE", "The feature descriptions, XML files", kRepeats},
    ArgumentRow{"--format", "FORMAT", "Print text, json, sarif or github; by default text"},
    ArgumentRow{"--json", "", "The same as --format json", kOptional, "--format"},
    ArgumentRow{"--color", "WHEN",
                "Use colours always or never; by default (auto) on a terminal, unless NO_COLOR is "
                "set"},
    ArgumentRow{"--select", "CODE,...", "Report only these codes; DF3 means all that begin with it",
                kRepeats},
    ArgumentRow{"--ignore", "CODE,...",
                "Do not report these codes; DF3 means all that begin with it", kRepeats},
    ArgumentRow{"--language", "LANGUAGE",
                "Report missing texts in this language, such as de, as an error"},
    ArgumentRow{"--strict", "", "Treat warnings as errors"},
    ArgumentRow{"--explain", "CODE", "Explain the code of a finding, or \"all\" codes"},
    ArgumentRow{"--fix", "", "Show safe fixes as a diff", kOptional, "--json"},
    ArgumentRow{"--write", "", "With --fix: make these changes"},
    ArgumentRow{"--watch", "", "Check again when a file changes, until Ctrl-C", kOptional, "--fix"},
};

host::Result<int> print(const std::string& text, int status) {
  return host::writeToStandardOutput(text).map([status] { return status; });
}

host::Result<int> explain(const std::string& code) {
  if (code == "all") return print(check::explainAllCodes(), kSuccess);
  const check::CodeRow* row = check::findCode(code);
  if (row != nullptr) return print(explainCode(*row), kSuccess);
  return host::refused("there is no code \"" + code + "\"; --explain all lists the codes");
}

host::Result<> refuseUsage(const Arguments& arguments) {
  const auto& files = arguments.texts("DESC");
  if (files.empty()) {
    return host::refused(
        "a feature description is needed; driver-feature check --help explains the usage");
  }
  if (std::count(files.begin(), files.end(), host::kStandardInput) > 1) {
    return host::refused("standard input (\"-\") is given twice; give it once");
  }
  if (arguments.has("--write") && !arguments.has("--fix")) {
    return host::refused("--write is for --fix; give both");
  }
  const bool needsFiles = arguments.has("--write") || arguments.has("--watch");
  if (needsFiles && std::count(files.begin(), files.end(), host::kStandardInput) > 0) {
    return host::refused(std::string(arguments.has("--watch") ? "--watch" : "--write") +
                         " needs files; standard input (\"-\") is not one");
  }
  return {};
}

// What every report of this line has in common.
host::Result<CheckRequest> requestOf(const Arguments& arguments,
                                     const host::SessionRequest& general) {
  if (host::Result<> used = refuseUsage(arguments); !used) return failureOf(used);
  CheckRequest request;
  request.files = arguments.texts("DESC");
  request.general = general;
  request.language = arguments.text("--language");
  request.strict = arguments.has("--strict");
  const std::string format = arguments.has("--json") ? "json" : arguments.text("--format", "text");
  const auto known = reportFormNamed(format);
  if (!known) {
    return host::refused("--format: there is no format \"" + format +
                         "\"; give text, json, sarif or github");
  }
  request.form = *known;
  auto colour = wantsColour(arguments.text("--color", "auto"));
  if (!colour) return failureOf(colour);
  request.colour = *colour;
  auto selection = check::Selection::read(arguments.texts("--select"), arguments.texts("--ignore"));
  if (!selection) return failureOf(selection);
  request.selection = std::move(*selection);
  return request;
}

host::Result<int> run(const Arguments& arguments, const host::SessionRequest& general) {
  if (arguments.has("--explain")) return explain(arguments.text("--explain"));
  const auto request = requestOf(arguments, general);
  if (!request) return host::Failure(request.error());
  if (arguments.has("--watch"))
    return watchDescriptions(request->files, [&] { return checkOnce(*request); });
  if (arguments.has("--fix")) return fixFiles(*request, arguments.has("--write"));
  return checkOnce(*request);
}

}  // namespace

const CommandRow kCheckCommand = {
    "check", "Find all faults of feature descriptions", kFooter, kRows, {}, &run};

}  // namespace driver_feature::cli
