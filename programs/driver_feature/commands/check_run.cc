#include "programs/driver_feature/commands/check_run.h"

#include <algorithm>
#include <utility>

#include "host/base/output_file.h"
#include "host/base/standard_streams.h"
#include "host/check/check.h"
#include "host/check/github_report.h"
#include "host/check/sarif_report.h"
#include "host/description/document.h"
#include "programs/common/console.h"
#include "programs/driver_feature/version.h"

namespace driver_feature::cli {

namespace {

struct FormRow {
  std::string_view name;
  ReportForm form;
};

constexpr FormRow kForms[] = {{"text", ReportForm::kText},
                              {"json", ReportForm::kJson},
                              {"sarif", ReportForm::kSarif},
                              {"github", ReportForm::kGithub}};

int statusOf(const std::vector<check::FileReport>& reports, bool strict) {
  const bool unusable = std::any_of(reports.begin(), reports.end(),
                                    [](const check::FileReport& report) { return !report.usable; });
  if (unusable) return kUnusable;
  const bool failed =
      std::any_of(reports.begin(), reports.end(), [strict](const check::FileReport& report) {
        // Whatever the line or a comment leaves out, a description that does not
        // load is not right.
        return !report.load->loaded || countOf(report.findings, check::Severity::kError) > 0 ||
               (strict && !report.findings.empty());
      });
  return failed ? kFailure : kSuccess;
}

std::string textOf(const CheckRequest& request, const std::vector<check::FileReport>& reports) {
  switch (request.form) {
    case ReportForm::kJson:
      return reportJson(reports);
    case ReportForm::kSarif:
      return reportSarif(reports, programVersion());
    case ReportForm::kGithub:
      return reportGithub(reports);
    case ReportForm::kText:
      break;
  }
  return reportText(reports, {request.general.detail, request.colour});
}

}  // namespace

std::optional<ReportForm> reportFormNamed(std::string_view name) {
  for (const FormRow& row : kForms) {
    if (row.name == name) return row.form;
  }
  return std::nullopt;
}

host::Result<host::Plugin> loadLibraries(const host::SessionRequest& general) {
  host::Result<host::Plugin> plugin = host::Plugin::load(general.library);
  if (!plugin) return plugin;
  for (const std::string& routines : general.routines) {
    if (host::Result<> loaded = host::loadRoutines(routines); !loaded) return failureOf(loaded);
  }
  return plugin;
}

host::Result<std::vector<check::FileReport>> checkAll(const CheckRequest& request) {
  // What a library prints while it is loaded must not get into the report.
  const host::StandardOutputDiversion diversion;
  const auto plugin = loadLibraries(request.general);
  if (!plugin) return host::Failure(plugin.error());
  std::vector<check::FileReport> reports;
  for (const std::string& file : request.files) {
    auto report = check::checkFile(file, *plugin, check::Trial::kLoadAndOutputs, request.language);
    if (!report) return failureOf(report);
    if (file == host::kStandardInput) report->file = "standard input";
    request.selection.apply(report->findings);
    reports.push_back(std::move(*report));
  }
  return reports;
}

host::Result<int> printReports(const CheckRequest& request,
                               const std::vector<check::FileReport>& reports) {
  return host::writeToStandardOutput(textOf(request, reports)).map([&] {
    return statusOf(reports, request.strict);
  });
}

host::Result<int> checkOnce(const CheckRequest& request) {
  const auto reports = checkAll(request);
  if (!reports) return host::Failure(reports.error());
  return printReports(request, *reports);
}

}  // namespace driver_feature::cli
