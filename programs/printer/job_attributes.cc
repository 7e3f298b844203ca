#include "programs/printer/job_attributes.h"

#include <algorithm>

#include "programs/printer/attribute_list.h"
#include "programs/printer/ipp_message.h"

namespace driver_feature::printer {

namespace {

constexpr const char* kDescription = "job-description";
constexpr const char* kStatus = "job-status";

// Adds attributes of one job, those that are asked for.
class JobWriter final {
 public:
  JobWriter(ipp_t* response, const Requested& requested)
      : response_(response), requested_(requested) {}

  bool wants(const char* name) const {
    return requested_.has(name, kDescription) || requested_.has(name, kStatus);
  }
  void add(const char* name, ipp_tag_t type, const std::string& value) {
    if (!wants(name)) return;
    ::ippAddString(response_, IPP_TAG_JOB, type, name, nullptr, value.c_str());
  }
  void add(const char* name, ipp_tag_t type, std::int64_t value) {
    if (!wants(name)) return;
    ::ippAddInteger(response_, IPP_TAG_JOB, type, name,
                    static_cast<int>(std::clamp<std::int64_t>(value, 0, 0x7fffffff)));
  }
  void addNoValue(const char* name) {
    if (wants(name)) ::ippAddOutOfBand(response_, IPP_TAG_JOB, IPP_TAG_NOVALUE, name);
  }
  // The same moment as a date and as seconds since the server has started.
  void addTime(const char* date, const char* seconds, std::int64_t time, std::int64_t started) {
    if (time == 0) {
      addNoValue(date);
      return addNoValue(seconds);
    }
    if (wants(date)) ::ippAddDate(response_, IPP_TAG_JOB, date, dateOf(time));
    // A job of an earlier server was made before its first second.
    add(seconds, IPP_TAG_INTEGER, std::max<std::int64_t>(time - started + 1, 1));
  }

 private:
  ipp_t* response_;
  const Requested& requested_;
};

std::string stateMessage(const Job& job) {
  if (!job.message.empty()) return job.message;
  switch (job.state) {
    case IPP_JSTATE_PENDING:
      return "The job waits to be printed.";
    case IPP_JSTATE_HELD:
      return job.isIncoming ? "The job waits for its document." : "The job is held.";
    case IPP_JSTATE_PROCESSING:
      return "The job is being printed.";
    case IPP_JSTATE_CANCELED:
      return "The job was cancelled.";
    case IPP_JSTATE_COMPLETED:
      return "The job is printed.";
    default:
      return "The job failed.";
  }
}

std::string uriOf(const IppExchange& exchange, int number) {
  return exchange.addressHere() + "job/" + std::to_string(number);
}

void copyKept(Service& service, const Job& job, ipp_t* response, const Requested& requested) {
  const IppPointer kept = readIpp(service.jobs().spool().attributes(job.number));
  if (!kept) return;
  for (ipp_attribute_t* one = ::ippFirstAttribute(kept.get()); one != nullptr;
       one = ::ippNextAttribute(kept.get())) {
    const char* name = ::ippGetName(one);
    if (name == nullptr || ::ippGetGroupTag(one) != IPP_TAG_JOB) continue;
    if (requested.has(name, "job-template")) ::ippCopyAttribute(response, one, 0);
  }
}

}  // namespace

std::string attributesToKeep(const IppExchange& exchange) {
  const IppPointer kept(::ippNew(), &::ippDelete);
  for (ipp_attribute_t* one = ::ippFirstAttribute(exchange.request.get()); one != nullptr;
       one = ::ippNextAttribute(exchange.request.get())) {
    const char* name = ::ippGetName(one);
    // A password is for the printer alone.
    if (name == nullptr || ::ippGetGroupTag(one) != IPP_TAG_JOB) continue;
    if (std::string(name).find("password") != std::string::npos) continue;
    ::ippCopyAttribute(kept.get(), one, 0);
  }
  return ippBytes(kept.get());
}

void addJobAttributes(Service& service, const IppExchange& exchange, const Job& job,
                      const Requested& requested) {
  ipp_t* response = exchange.response.get();
  const std::int64_t started = Service::now() - service.upTime();
  JobWriter writer(response, requested);
  writer.add("job-id", IPP_TAG_INTEGER, job.number);
  writer.add("job-uri", IPP_TAG_URI, uriOf(exchange, job.number));
  writer.add("job-printer-uri", IPP_TAG_URI, exchange.addressHere() + "print/" + job.printer);
  writer.add("job-uuid", IPP_TAG_URI,
             service.uuidOf(job.printer + "/" + std::to_string(job.number)));
  writer.add("job-name", IPP_TAG_NAME, job.name);
  writer.add("job-originating-user-name", IPP_TAG_NAME, job.user);
  const bool isStopped = job.state == IPP_JSTATE_PROCESSING && exchange.printer->isStopped();
  writer.add("job-state", IPP_TAG_ENUM, isStopped ? IPP_JSTATE_STOPPED : job.state);
  writer.add("job-state-reasons", IPP_TAG_KEYWORD,
             job.isCancelled && !job.isOver() ? "processing-to-stop-point"
             : isStopped                      ? "printer-stopped"
                                              : job.reason);
  writer.add("job-state-message", IPP_TAG_TEXT, stateMessage(job));
  writer.add("job-k-octets", IPP_TAG_INTEGER, static_cast<std::int64_t>((job.bytes + 1023) / 1024));
  // Nobody counts the pages of a document before it is printed.
  writer.addNoValue("job-impressions");
  writer.add("job-impressions-completed", IPP_TAG_INTEGER, job.sheets);
  writer.add("job-printer-up-time", IPP_TAG_INTEGER, service.upTime() + 1);
  writer.add("number-of-documents", IPP_TAG_INTEGER, job.isIncoming ? 0 : 1);
  if (!job.format.empty()) writer.add("document-format", IPP_TAG_MIMETYPE, job.format);
  writer.addTime("date-time-at-creation", "time-at-creation", job.created, started);
  writer.addTime("date-time-at-processing", "time-at-processing", job.begun, started);
  writer.addTime("date-time-at-completed", "time-at-completed", job.ended, started);
  copyKept(service, job, response, requested);
}

void addJobResponse(Service& /*service*/, const IppExchange& exchange, const Job& job) {
  ipp_t* response = exchange.response.get();
  ::ippAddInteger(response, IPP_TAG_JOB, IPP_TAG_INTEGER, "job-id", job.number);
  ::ippAddString(response, IPP_TAG_JOB, IPP_TAG_URI, "job-uri", nullptr,
                 uriOf(exchange, job.number).c_str());
  ::ippAddInteger(response, IPP_TAG_JOB, IPP_TAG_ENUM, "job-state", job.state);
  ::ippAddString(response, IPP_TAG_JOB, IPP_TAG_KEYWORD, "job-state-reasons", nullptr,
                 job.reason.c_str());
  ::ippAddString(response, IPP_TAG_JOB, IPP_TAG_TEXT, "job-state-message", nullptr,
                 stateMessage(job).c_str());
}

}  // namespace driver_feature::printer
