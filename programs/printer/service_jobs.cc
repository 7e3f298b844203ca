// How jobs are printed, one after the other on each printer.

#include <algorithm>
#include <utility>

#include "host/base/text.h"
#include "programs/common/console.h"
#include "programs/printer/service.h"

namespace driver_feature::printer {

namespace {

constexpr int kMostTries = 3;
constexpr host::EventLoop::Milliseconds kDocumentWait{300000};

std::string titleOf(const Job& job) {
  return job.printer + ": job " + std::to_string(job.number) + ": ";
}

}  // namespace

void Service::keep(Job& job) {
  if (const auto kept = jobs_->keep(job); !kept) cli::printProblem(kept.error());
}

bool Service::accept(Printer& printer, Job& job) {
  startNext(printer);
  const auto kept = jobs_->spool().commit(job);
  if (kept) return true;
  cli::printProblem(kept.error());
  cancel(job, "The job cannot be kept.");
  return false;
}

void Service::startNext(Printer& printer) {
  if (printer.current != 0 || !printer.isReady()) return;
  Job* job = jobs_->next(printer.name);
  if (job == nullptr) return;
  job->state = IPP_JSTATE_PROCESSING;
  job->reason = "job-interpreting";
  job->begun = now();
  // Not kept: a job that was being printed is one that waits, for a new server.
  ++job->tries;
  PrintOrder order{*job, jobs_->spool().document(job->number).string(), printer.queueFile,
                   arguments_.device, arguments_.filter};
  printer.current = job->number;
  printer.stateChanged = now();
  auto run = JobRun::start(
      loop_, order,
      {[this, &printer](const std::string& line) { takeLine(printer, line); },
       [this, &printer](JobEnd end, const std::string& status) { endJob(printer, end, status); }});
  if (run) {
    printer.run = std::move(*run);
    cli::printError(titleOf(*job) + "begins");
    return;
  }
  // It stays the first one to be printed.
  cli::printProblem(run.error());
  printer.current = 0;
  job->state = IPP_JSTATE_PENDING;
  job->reason = "none";
  loop_.after(host::EventLoop::Milliseconds(1000), [this, &printer] { startNext(printer); });
}

void Service::takeLine(Printer& printer, const std::string& line) {
  Job* job = jobs_->find(printer.current);
  if (job == nullptr) return;
  const std::size_t colon = line.find(": ");
  const std::string kind = line.substr(0, colon);
  const std::string text = colon == std::string::npos ? "" : line.substr(colon + 2);
  if (kind == "PAGE") {
    ++job->sheets;
  } else if (kind == "STATE" && text.starts_with("+job-")) {
    job->reason = text.substr(1);
  } else if (kind == "STATE") {
    takeState(printer.reasons, text);
    printer.stateChanged = now();
    if (text.find("connecting") == std::string::npos)
      cli::printError(printer.name + ": " + host::printable(text));
  } else if (kind == "INFO") {
    printer.message = host::printable(text);
  } else if (kind == "ATTR") {
    takeSupplies(printer.supplies, text);
  } else if (kind == "ERROR" || kind == "WARNING") {
    job->message = host::printable(text);
    cli::printError(titleOf(*job) + job->message);
  }
}

void Service::endJob(Printer& printer, JobEnd end, const std::string& status) {
  const std::unique_ptr<JobRun> run = std::move(printer.run);
  Job* job = jobs_->find(std::exchange(printer.current, 0));
  // Warnings stay until the device says otherwise.
  std::erase_if(printer.reasons,
                [](const std::string& reason) { return !reason.ends_with("-warning"); });
  printer.message.clear();
  printer.stateChanged = now();
  if (job != nullptr) settle(*job, end, status);
  startNext(printer);
}

void Service::settle(Job& job, JobEnd end, const std::string& status) {
  host::Result<> kept;
  if (job.isCancelled) {
    kept = jobs_->end(job, IPP_JSTATE_CANCELED, "job-canceled-by-user", job.message, now());
  } else if (end == JobEnd::kPrinted) {
    kept = jobs_->end(job, IPP_JSTATE_COMPLETED, "job-completed-successfully", "", now());
  } else if (end == JobEnd::kKilled && job.tries < kMostTries) {
    job.state = IPP_JSTATE_PENDING;
    job.reason = "none";
    job.sheets = 0;
    kept = jobs_->keep(job);
  } else {
    if (job.message.empty()) job.message = "The job's process ends with " + status + ".";
    kept = jobs_->end(job, IPP_JSTATE_ABORTED, "aborted-by-system", job.message, now());
  }
  if (!kept) cli::printProblem(kept.error());
  cli::printError(titleOf(job) + (job.state == IPP_JSTATE_COMPLETED  ? "printed"
                                  : job.state == IPP_JSTATE_CANCELED ? "cancelled"
                                  : job.state == IPP_JSTATE_PENDING
                                      ? "was interrupted, and is printed again"
                                      : "failed"));
}

void Service::cancel(Job& job, const std::string& message) {
  if (job.isOver() || job.isCancelled) return;
  if (!message.empty()) job.message = message;
  Printer* printer = find(job.printer);
  if (printer != nullptr && printer->current == job.number && printer->run) {
    job.isCancelled = true;
    printer->run->cancel();
    return;
  }
  const auto kept =
      jobs_->end(job, IPP_JSTATE_CANCELED, "job-canceled-by-user", job.message, now());
  if (!kept) cli::printProblem(kept.error());
  cli::printError(titleOf(job) + "cancelled");
}

void Service::limitWait(int number) {
  loop_.after(kDocumentWait, [this, number] {
    Job* job = jobs_->find(number);
    if (job == nullptr || !job->isIncoming || job->isOver()) return;
    const auto kept = jobs_->end(*job, IPP_JSTATE_ABORTED, "aborted-by-system",
                                 "The document has not been sent.", now());
    if (!kept) cli::printProblem(kept.error());
    cli::printError(titleOf(*job) + "failed: the document has not been sent");
  });
}

}  // namespace driver_feature::printer
