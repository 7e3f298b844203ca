// One run of "check" over the files of a line.
#ifndef PROGRAMS_DRIVER_FEATURE_COMMANDS_CHECK_RUN_H_
#define PROGRAMS_DRIVER_FEATURE_COMMANDS_CHECK_RUN_H_

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/base/result.h"
#include "host/check/report.h"
#include "host/check/selection.h"
#include "host/session/plugin.h"
#include "host/session/session.h"

namespace driver_feature::cli {

enum class ReportForm { kText, kJson, kSarif, kGithub };

// Nothing for a name that is not one of text, json, sarif and github.
std::optional<ReportForm> reportFormNamed(std::string_view name);

struct CheckRequest {
  std::vector<std::string> files;  // "-" is standard input.
  host::SessionRequest general;
  check::Selection selection;
  ReportForm form = ReportForm::kText;
  bool colour = false;
  bool strict = false;
  std::string language = {};  // The language whose texts must be complete.
};

// Loads the feature library and the libraries of routines. Problem: kNotLoaded.
host::Result<host::Plugin> loadLibraries(const host::SessionRequest& general);

// The reports on the files, with the selected findings. Problems: those of
// loadLibraries(), and kNotLoaded when no child process can be made.
host::Result<std::vector<check::FileReport>> checkAll(const CheckRequest& request);

// Prints the reports and returns the exit status.
host::Result<int> printReports(const CheckRequest& request,
                               const std::vector<check::FileReport>& reports);

// Both.
host::Result<int> checkOnce(const CheckRequest& request);

}  // namespace driver_feature::cli

#endif  // PROGRAMS_DRIVER_FEATURE_COMMANDS_CHECK_RUN_H_
