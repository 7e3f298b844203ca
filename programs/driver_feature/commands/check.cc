// "check": all faults of feature descriptions.

#include "host/check/check.h"

#include <algorithm>
#include <array>

#include "host/base/output_file.h"
#include "host/base/standard_streams.h"
#include "programs/common/console.h"
#include "programs/driver_feature/commands/commands.h"

namespace driver_feature::cli {

namespace {

constexpr const char* kFooter =
    "Reports every fault with its place, a remedy and a code; --explain shows what a\n"
    "code means. Routines are searched for in the program and in the libraries given\n"
    "with --callbacks.\n"
    "\n"
    "Examples:\n"
    "  driver-feature check office.xml --callbacks liboffice_routines.so\n"
    "  driver-feature check *.xml --strict --json\n"
    "  driver-feature check --explain DF501\n"
    "\n"
    "Exit status: 0 nothing is wrong, 1 errors (with --strict also warnings), 2 wrong\n"
    "usage or a file that is not a feature description.";

constexpr std::array kRows = {
    ArgumentRow{"DESC", "FILE", "The feature descriptions, XML files", kRepeats},
    ArgumentRow{"--json", "", "Print a JSON document"},
    ArgumentRow{"--strict", "", "Treat warnings as errors"},
    ArgumentRow{"--explain", "CODE", "Explain a code of a finding, or all of them"},
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

int statusOf(const std::vector<check::FileReport>& reports, bool strict) {
  const bool unusable = std::any_of(reports.begin(), reports.end(),
                                    [](const check::FileReport& report) { return !report.usable; });
  if (unusable) return kUnusable;
  const bool failed =
      std::any_of(reports.begin(), reports.end(), [strict](const check::FileReport& report) {
        return countOf(report.findings, check::Severity::kError) > 0 ||
               (strict && !report.findings.empty());
      });
  return failed ? kFailure : kSuccess;
}

host::Result<std::vector<check::FileReport>> checkAll(const std::vector<std::string>& files,
                                                      const host::SessionRequest& general) {
  // What a library prints while it is loaded must not get into the report.
  const host::StandardOutputDiversion diversion;
  host::Result<host::Plugin> plugin = host::Plugin::load(general.library);
  if (!plugin) return failureOf(plugin);
  for (const std::string& routines : general.routines) {
    if (host::Result<> loaded = host::loadRoutines(routines); !loaded) return failureOf(loaded);
  }
  std::vector<check::FileReport> reports;
  for (const std::string& file : files) {
    auto report = check::checkFile(file, *plugin);
    if (!report) return failureOf(report);
    reports.push_back(std::move(*report));
  }
  return reports;
}

host::Result<int> run(const Arguments& arguments, const host::SessionRequest& general) {
  if (arguments.has("--explain")) return explain(arguments.text("--explain"));
  if (!arguments.has("DESC")) {
    return host::refused(
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

}  // namespace driver_feature::cli
