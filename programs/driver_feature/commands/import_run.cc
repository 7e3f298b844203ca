#include "programs/driver_feature/commands/import_run.h"

#include <filesystem>
#include <map>
#include <system_error>
#include <vector>

#include "host/base/output_file.h"
#include "host/base/text.h"
#include "host/ppd/import/import.h"
#include "programs/common/console.h"
#include "programs/driver_feature/commands/loss_report.h"
#include "programs/driver_feature/commands/progress.h"

namespace driver_feature::cli {

namespace {

constexpr const char* kHint = "; --verbose names each";
constexpr const char* kRefused = "refused by --strict";

void printLosses(const std::string& file, const std::vector<std::string>& lines) {
  const std::string begin = file + ": not carried over: ";
  for (const std::string& line : lines) printError(std::string(begin).append(line));
}

std::string refusalOf(const std::string& file) {
  return file +
         ": no description is written: with --strict the loss of parts of options or of "
         "constraints is an error";
}

class Run {
 public:
  Run(const ImportPlan& plan, const ImportStyle& style)
      : plan_(plan), style_(style), progress_(plan.jobs.size()) {}

  int all() {
    for (const std::string& problem : plan_.problems) fail("left out", problem);
    for (const ImportJob& job : plan_.jobs) {
      progress_.next(job.file);
      one(job);
    }
    progress_.clear();
    sumUp();
    if (unwritten_ > 0) return kFailure;
    if (causes_.empty()) return kSuccess;
    return causes_.size() == causes_.count(kRefused) ? kLossy : kUnusable;
  }

 private:
  void one(const ImportJob& job) {
    const auto description = ppd::importPpd(job.file);
    if (!description) return fail(description.error().cause, description.error().text);
    reportLosses(job.file, description->losses);
    if (style_.isStrict && losesChoices(description->losses)) {
      return fail(kRefused, refusalOf(job.file));
    }
    std::error_code ignored;  // The file then cannot be written, which is reported.
    const auto folder = std::filesystem::path(job.output).parent_path();
    if (!folder.empty()) std::filesystem::create_directories(folder, ignored);
    if (const host::Result<> written = host::writeToFile(job.output, description->text); !written) {
      ++unwritten_;
      return fail("description cannot be written", written.error().text);
    }
    ++imported_;
    features_ += description->features;
    options_ += description->options;
  }

  void fail(const std::string& cause, const std::string& text) {
    ++causes_[cause];
    progress_.clear();
    printError(text);
  }

  void reportLosses(const std::string& file, const ppd::Losses& losses) {
    for (const auto& [kind, number] : countsOf(losses)) losses_[kind] += number;
    if (style_.detail == host::LogDetail::kErrors) return;
    progress_.clear();
    const bool all = style_.detail == host::LogDetail::kAll;
    printLosses(file, all ? losses.lines() : summaryOf(losses, ""));
  }

  void sumUp() const {
    long failed = 0;
    std::vector<std::string> causes;
    for (const auto& [cause, number] : causes_) {
      failed += number;
      causes.push_back(cause + " (" + std::to_string(number) + ")");
    }
    printError(host::counted(imported_, "PPD file", "PPD files") + " imported, with " +
               host::counted(features_, "feature", "features") + " and " +
               host::counted(options_, "option", "options"));
    const std::string lost = countText(losses_);
    const char* hint = style_.detail == host::LogDetail::kAll ? "" : kHint;
    if (!lost.empty()) printError("not carried over in all: " + lost + hint);
    if (failed > 0)
      printError(host::counted(failed, "failure", "failures") + ": " + host::join(causes, ", "));
  }

  const ImportPlan& plan_;
  ImportStyle style_;
  Progress progress_;
  std::map<std::string, long> causes_;  // Of failures.
  LossCounts losses_;
  long unwritten_ = 0;
  long imported_ = 0;
  long features_ = 0;
  long options_ = 0;
};

}  // namespace

host::Result<int> importOne(const ImportJob& job, const ImportStyle& style) {
  std::error_code ignored;  // The two are then not the same file.
  if (job.output != "-" && std::filesystem::equivalent(job.file, job.output, ignored)) {
    return host::refused(job.output +
                         ": is the PPD file itself; give the description another name");
  }
  auto description = ppd::importPpd(job.file);
  if (!description) return failureOf(description);
  const ppd::Losses& losses = description->losses;
  if (style.detail == host::LogDetail::kAll) printLosses(job.file, losses.lines());
  if (style.detail == host::LogDetail::kUsual) printLosses(job.file, summaryOf(losses, kHint));
  if (style.isStrict && losesChoices(losses)) {
    printError(refusalOf(job.file));
    return kLossy;
  }
  return host::writeToFile(job.output, description->text).map([] { return kSuccess; });
}

int importAll(const ImportPlan& plan, const ImportStyle& style) {
  return Run(plan, style).all();
}

}  // namespace driver_feature::cli
