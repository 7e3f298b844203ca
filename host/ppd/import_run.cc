#include "host/ppd/import_run.h"

#include <filesystem>
#include <map>
#include <system_error>
#include <vector>

#include "host/console.h"
#include "host/output_file.h"
#include "host/ppd/import.h"
#include "host/ppd/progress.h"
#include "host/text.h"

namespace driver_feature {

namespace {

std::string counted(long number, const std::string& one, const std::string& several) {
  return std::to_string(number) + " " + (number == 1 ? one : several);
}

// "2 constraints, 1 text": what was lost, in numbers.
std::string countsOf(const std::map<LossKind, long>& losses) {
  struct Row {
    LossKind kind;
    const char* one;
    const char* several;
  };
  constexpr Row kRows[] = {{LossKind::kOption, "part of an option", "parts of options"},
                           {LossKind::kConstraint, "constraint", "constraints"},
                           {LossKind::kText, "text for users", "texts for users"},
                           {LossKind::kKeyword, "other keyword", "other keywords"}};
  std::vector<std::string> counts;
  for (const Row& row : kRows) {
    const auto loss = losses.find(row.kind);
    if (loss == losses.end() || loss->second == 0) continue;
    counts.push_back(counted(loss->second, row.one, row.several));
  }
  return join(counts, ", ");
}

constexpr LossKind kLossKinds[] = {LossKind::kOption, LossKind::kConstraint, LossKind::kText,
                                   LossKind::kKeyword};

std::map<LossKind, long> countsOf(const Losses& losses) {
  std::map<LossKind, long> counts;
  for (const LossKind kind : kLossKinds) counts[kind] = losses.count(kind);
  return counts;
}

void complainOfLosses(const std::string& file, const std::vector<std::string>& lines) {
  const std::string begin = file + ": not carried over: ";
  for (const std::string& line : lines) complain(std::string(begin).append(line));
}

class Run {
 public:
  Run(const ImportPlan& plan, LogDetail detail)
      : plan_(plan), detail_(detail), progress_(plan.jobs.size()) {}

  int all() {
    for (const std::string& problem : plan_.problems) fail("left out", problem);
    for (const ImportJob& job : plan_.jobs) {
      progress_.next(job.file);
      one(job);
    }
    progress_.clear();
    sumUp();
    if (unwritten_ > 0) return kFailure;
    return causes_.empty() ? kSuccess : kUnusable;
  }

 private:
  void one(const ImportJob& job) {
    PpdProblem problem;
    const auto description = importPpd(job.file, problem);
    if (!description) return fail(problem.cause, problem.text);
    reportLosses(job.file, description->losses);
    std::error_code ignored;  // The file then cannot be written, which is told.
    const auto folder = std::filesystem::path(job.output).parent_path();
    if (!folder.empty()) std::filesystem::create_directories(folder, ignored);
    if (const WriteProblem failure = writeToFile(job.output, description->text)) {
      ++unwritten_;
      return fail("description cannot be written", *failure);
    }
    ++imported_;
    features_ += description->features;
    options_ += description->options;
  }

  void fail(const std::string& cause, const std::string& text) {
    ++causes_[cause];
    progress_.clear();
    complain(text);
  }

  void reportLosses(const std::string& file, const Losses& losses) {
    auto counts = countsOf(losses);
    for (const auto& [kind, number] : counts) losses_[kind] += number;
    if (detail_ == LogDetail::kErrors) return;
    progress_.clear();
    if (detail_ == LogDetail::kAll) return complainOfLosses(file, losses.lines());
    complainOfLosses(file, losses.lines(LossKind::kOption));
    counts.erase(LossKind::kOption);  // Which have been named.
    const std::string text = countsOf(counts);
    if (!text.empty()) complainOfLosses(file, {text});
  }

  void sumUp() const {
    long failed = 0;
    std::vector<std::string> causes;
    for (const auto& [cause, number] : causes_) {
      failed += number;
      causes.push_back(cause + " (" + std::to_string(number) + ")");
    }
    complain(counted(imported_, "PPD file", "PPD files") + " imported, with " +
             counted(features_, "feature", "features") + " and " +
             counted(options_, "option", "options"));
    const std::string lost = countsOf(losses_);
    if (!lost.empty()) complain("not carried over in all: " + lost + "; --verbose names each");
    if (failed > 0) complain(counted(failed, "failure", "failures") + ": " + join(causes, ", "));
  }

  const ImportPlan& plan_;
  LogDetail detail_;
  Progress progress_;
  std::map<std::string, long> causes_;  // Of failures.
  std::map<LossKind, long> losses_;
  long unwritten_ = 0;
  long imported_ = 0;
  long features_ = 0;
  long options_ = 0;
};

}  // namespace

int importOne(const ImportJob& job, LogDetail detail) {
  std::error_code ignored;  // The two are then not the same file.
  if (job.output != "-" && std::filesystem::equivalent(job.file, job.output, ignored)) {
    complain(job.output + ": is the PPD file itself; give the description another name");
    return kUnusable;
  }
  PpdProblem problem;
  const auto description = importPpd(job.file, problem);
  if (!description) {
    complain(problem.text);
    return kUnusable;
  }
  if (detail != LogDetail::kErrors) complainOfLosses(job.file, description->losses.lines());
  const WriteProblem failure = writeToFile(job.output, description->text);
  if (!failure) return kSuccess;
  complain(*failure);
  return kFailure;
}

int importAll(const ImportPlan& plan, LogDetail detail) {
  return Run(plan, detail).all();
}

}  // namespace driver_feature
