// "check": all faults of feature descriptions.

#include "host/check/check.h"

#include <algorithm>
#include <array>

#include "host/base/output_file.h"
#include "host/base/standard_streams.h"
#include "programs/common/console.h"
#include "programs/driver_feature/commands/commands.h"

namespace driver_feature {

namespace {

constexpr const char* kFooter =
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

constexpr std::array kRows = {
    ArgumentRow{"DESC", "FILE", "The feature descriptions, XML files", kRepeats},
    ArgumentRow{"--json", "", "Print a JSON document"},
    ArgumentRow{"--strict", "", "Treat warnings as errors"},
    ArgumentRow{"--explain", "CODE", "Explain a code of a finding, or all of them"},
};

Result<int> print(const std::string& text, int status) {
  return writeToStandardOutput(text).map([status] { return status; });
}

Result<int> explain(const std::string& code) {
  if (code == "all") return print(explainAllCodes(), kSuccess);
  const CodeRow* row = findCode(code);
  if (row != nullptr) return print(explainCode(*row), kSuccess);
  return refused("there is no code \"" + code + "\"; --explain all lists the codes");
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

Result<std::vector<FileReport>> checkAll(const std::vector<std::string>& files,
                                         const SessionRequest& general) {
  // What a library prints while it is loaded must not get into the report.
  const StandardOutputDiversion diversion;
  Result<Plugin> plugin = Plugin::load(general.library);
  if (!plugin) return failureOf(plugin);
  for (const std::string& routines : general.routines) {
    if (Result<> loaded = loadRoutines(routines); !loaded) return failureOf(loaded);
  }
  std::vector<FileReport> reports;
  for (const std::string& file : files) {
    auto report = checkFile(file, *plugin);
    if (!report) return failureOf(report);
    reports.push_back(std::move(*report));
  }
  return reports;
}

Result<int> run(const Arguments& arguments, const SessionRequest& general) {
  if (arguments.has("--explain")) return explain(arguments.text("--explain"));
  if (!arguments.has("DESC")) {
    return refused(
        "a feature description is needed; driver-feature check --help explains the usage");
  }
  auto reports = checkAll(arguments.texts("DESC"), general);
  if (!reports) return failureOf(reports);
  return print(
      arguments.has("--json") ? reportJson(*reports) : reportText(*reports, general.detail),
      statusOf(*reports, arguments.has("--strict")));
}

}  // namespace

const CommandRow kCheckCommand = {
    "check", "Find all faults of feature descriptions", kFooter, kRows, {}, &run};

}  // namespace driver_feature
