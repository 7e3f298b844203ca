#include "host/check/check_command.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <memory>

#include "host/check/check.h"
#include "host/console.h"
#include "host/output_file.h"

namespace driver_feature {

namespace {

constexpr const char* kExamples =
    "Every fault is reported with its place, a remedy and a code that --explain\n"
    "explains. Routines are looked for in the program and in the libraries given\n"
    "with --callbacks.\n"
    "\n"
    "Examples:\n"
    "  driver-feature check office.xml --callbacks liboffice_routines.so\n"
    "  driver-feature check *.xml --strict --json\n"
    "  driver-feature check --explain DF501\n"
    "\n"
    "Exit status: 0 nothing is wrong, 1 errors (with --strict also warnings), 2 wrong\n"
    "usage or a file that is no feature description.";

struct CheckRequest {
  std::vector<std::string> files;
  std::string code;
  bool json = false;
  bool strict = false;
};

int print(const std::string& text, int status) {
  const WriteProblem problem = writeToStandardOutput(text);
  if (!problem) return status;
  complain(*problem);
  return kFailure;
}

int explain(const std::string& code) {
  if (code == "all") return print(explainAllCodes(), kSuccess);
  const CodeRow* row = findCode(code);
  if (row != nullptr) return print(explainCode(*row), kSuccess);
  complain("there is no code \"" + code + "\"; --explain all lists the codes");
  return kUnusable;
}

int statusOf(const std::vector<FileReport>& reports, bool strict) {
  const bool unusable = std::any_of(reports.begin(), reports.end(),
                                    [](const FileReport& report) { return !report.usable; });
  if (unusable) return kUnusable;
  const bool failed =
      std::any_of(reports.begin(), reports.end(), [strict](const FileReport& report) {
        return countOf(report.findings, Severity::kError) > 0 ||
               (strict && !report.findings.empty());
      });
  return failed ? kFailure : kSuccess;
}

// The reports; none, after a line on standard error, when the libraries
// cannot be loaded.
std::vector<FileReport> checkAll(const CheckRequest& request, const SessionRequest& general) {
  // What a library prints while it is loaded must not get into the report.
  const StandardOutputDiversion diversion;
  std::string problem;
  const auto plugin = Plugin::load(general.library, problem);
  bool ready = plugin != nullptr;
  for (const std::string& routines : general.routines) {
    ready = ready && loadRoutines(routines, problem);
  }
  if (!ready) {
    complain(problem);
    return {};
  }
  std::vector<FileReport> reports;
  for (const std::string& file : request.files) reports.push_back(checkFile(file, *plugin));
  return reports;
}

int runCheck(const CheckRequest& request, const SessionRequest& general) {
  if (!request.code.empty()) return explain(request.code);
  if (request.files.empty()) {
    complain("a feature description is needed; driver-feature check --help explains the usage");
    return kUnusable;
  }
  const std::vector<FileReport> reports = checkAll(request, general);
  if (reports.empty()) return kFailure;
  return print(request.json ? reportJson(reports) : reportText(reports, general.detail),
               statusOf(reports, request.strict));
}

}  // namespace

Command addCheckCommand(CLI::App& program, const SessionRequest& general) {
  const auto request = std::make_shared<CheckRequest>();
  Command command;
  command.arguments = program.add_subcommand("check", "Find all faults of feature descriptions");
  command.arguments->footer(kExamples);
  command.arguments->fallthrough();  // The general options may stand behind the command.
  command.arguments->add_option("DESC", request->files, "The feature descriptions, XML files")
      ->type_name("FILE...");
  command.arguments->add_flag("--json", request->json, "Print a JSON document");
  command.arguments->add_flag("--strict", request->strict, "Let warnings fail, too");
  command.arguments
      ->add_option("--explain", request->code, "Explain a code of a finding, or all of them")
      ->type_name("CODE");
  command.run = [request, &general] { return runCheck(*request, general); };
  return command;
}

}  // namespace driver_feature
