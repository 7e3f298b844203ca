#include "programs/printer/job_operations.h"

#include <algorithm>

#include "programs/printer/ipp_message.h"
#include "programs/printer/job_attributes.h"
#include "programs/printer/requested.h"

namespace driver_feature::printer {

namespace {

// Fails for a job of somebody else, and for one that is over.
bool mayChange(IppExchange& exchange) {
  const Job& job = *exchange.job;
  if (job.user != exchange.user) {
    return !exchange.respond(IPP_STATUS_ERROR_NOT_AUTHORIZED, "The job belongs to somebody else.");
  }
  if (job.isOver() || job.isCancelled) {
    return !exchange.respond(IPP_STATUS_ERROR_NOT_POSSIBLE, "The job is over.");
  }
  return true;
}

std::vector<int> numbersOf(ipp_t* request) {
  std::vector<int> numbers;
  ipp_attribute_t* attribute = ::ippFindAttribute(request, "job-ids", IPP_TAG_INTEGER);
  for (int i = 0; attribute != nullptr && i < ::ippGetCount(attribute); ++i) {
    numbers.push_back(::ippGetInteger(attribute, i));
  }
  return numbers;
}

// The jobs that a Get-Jobs asks for, in the order in which they are returned: those
// that are over from the last one to end, the others as they will be printed.
std::vector<const Job*> wantedJobs(Service& service, const IppExchange& exchange,
                                   const std::string& which, bool isOnlyMine) {
  std::vector<const Job*> jobs;
  for (const auto& [number, job] : service.jobs().all()) {
    if (job.printer != exchange.printer->name) continue;
    if (isOnlyMine && job.user != exchange.user) continue;
    if (which != "all" && job.isOver() != (which == "completed")) continue;
    jobs.push_back(&job);
  }
  if (which == "completed") {
    std::stable_sort(jobs.begin(), jobs.end(), [](const Job* a, const Job* b) {
      return a->ended != b->ended ? a->ended > b->ended : a->number > b->number;
    });
  }
  return jobs;
}

}  // namespace

bool cancelJob(Service& service, const std::shared_ptr<IppExchange>& exchange) {
  if (mayChange(*exchange)) service.cancel(*exchange->job, "");
  return true;
}

bool cancelMyJobs(Service& service, const std::shared_ptr<IppExchange>& shared) {
  IppExchange& exchange = *shared;
  const std::vector<int> numbers = numbersOf(exchange.request.get());
  std::vector<int> cancelled;
  for (const int number : numbers) {
    exchange.job = service.jobs().find(number);
    if (exchange.job == nullptr || exchange.job->printer != exchange.printer->name) {
      return exchange.respond(IPP_STATUS_ERROR_NOT_FOUND,
                              "There is no job " + std::to_string(number) + ".");
    }
    if (!mayChange(exchange)) return true;
    cancelled.push_back(number);
  }
  for (const auto& [number, job] : service.jobs().all()) {
    const bool isMine = job.user == exchange.user && job.printer == exchange.printer->name;
    if (numbers.empty() && isMine && !job.isOver()) cancelled.push_back(number);
  }
  for (const int number : cancelled) {
    if (Job* job = service.jobs().find(number)) service.cancel(*job, "");
  }
  return true;
}

bool closeJob(Service& service, const std::shared_ptr<IppExchange>& shared) {
  IppExchange& exchange = *shared;
  if (exchange.job->user != exchange.user) {
    return exchange.respond(IPP_STATUS_ERROR_NOT_AUTHORIZED, "The job belongs to somebody else.");
  }
  // One that has its document is closed already.
  if (exchange.job->isIncoming) service.cancel(*exchange.job, "The job has no document.");
  return true;
}

bool holdJob(Service& service, const std::shared_ptr<IppExchange>& shared) {
  IppExchange& exchange = *shared;
  if (!mayChange(exchange)) return true;
  Job& job = *exchange.job;
  if (job.state != IPP_JSTATE_PENDING && job.state != IPP_JSTATE_HELD) {
    return exchange.respond(IPP_STATUS_ERROR_NOT_POSSIBLE, "The job is being printed.");
  }
  const std::string until = textOf(exchange.request.get(), "job-hold-until", IPP_TAG_KEYWORD);
  if (until == "no-hold") return releaseJob(service, shared);
  job.state = IPP_JSTATE_HELD;
  job.reason = "job-hold-until-specified";
  service.keep(job);
  return true;
}

bool releaseJob(Service& service, const std::shared_ptr<IppExchange>& shared) {
  IppExchange& exchange = *shared;
  if (!mayChange(exchange)) return true;
  Job& job = *exchange.job;
  if (job.state != IPP_JSTATE_HELD) {
    return exchange.respond(IPP_STATUS_ERROR_NOT_POSSIBLE, "The job is not held.");
  }
  job.state = job.isIncoming ? IPP_JSTATE_HELD : IPP_JSTATE_PENDING;
  job.reason = job.isIncoming ? "job-incoming" : "none";
  service.keep(job);
  service.startNext(*exchange.printer);
  return true;
}

bool getJobAttributes(Service& service, const std::shared_ptr<IppExchange>& exchange) {
  const Requested requested(exchange->request.get(), {"all"});
  addJobAttributes(service, *exchange, *exchange->job, requested);
  return true;
}

bool getJobs(Service& service, const std::shared_ptr<IppExchange>& shared) {
  IppExchange& exchange = *shared;
  ipp_t* request = exchange.request.get();
  std::string which = textOf(request, "which-jobs", IPP_TAG_KEYWORD);
  if (which.empty()) which = "not-completed";
  if (which != "completed" && which != "not-completed" && which != "all") {
    exchange.respond(IPP_STATUS_ERROR_ATTRIBUTES_OR_VALUES,
                     "The value of which-jobs is not supported.");
    ::ippAddString(exchange.response.get(), IPP_TAG_UNSUPPORTED_GROUP, IPP_TAG_KEYWORD,
                   "which-jobs", nullptr, which.c_str());
    return true;
  }
  const bool isOnlyMine = booleanOf(request, "my-jobs", false);
  const int most = integerOf(request, "limit", 0);
  const Requested requested(request, {"job-id", "job-uri"});
  int count = 0;
  for (const Job* job : wantedJobs(service, exchange, which, isOnlyMine)) {
    if (most > 0 && count >= most) break;
    if (count++ > 0) ::ippAddSeparator(exchange.response.get());
    addJobAttributes(service, exchange, *job, requested);
  }
  return true;
}

}  // namespace driver_feature::printer
