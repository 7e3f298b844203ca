#include "programs/printer/printing_operations.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "programs/common/console.h"
#include "programs/printer/conversion.h"
#include "programs/printer/ipp_message.h"
#include "programs/printer/job_attributes.h"

namespace driver_feature::printer {

namespace {

constexpr const char* kAnyFormat = "application/octet-stream";
constexpr const char* kUnsupported = "Some attributes or values are not supported.";

// Fails for a type that is not taken, before the document arrives.
bool checkFormat(IppExchange& exchange) {
  ipp_t* request = exchange.request.get();
  const std::string format = textOf(request, "document-format", IPP_TAG_MIMETYPE);
  if (!format.empty() && !isDocumentFormat(format)) {
    ipp_attribute_t* given = ::ippFindAttribute(request, "document-format", IPP_TAG_MIMETYPE);
    exchange.respond(IPP_STATUS_ERROR_DOCUMENT_FORMAT_NOT_SUPPORTED,
                     "Documents of the type " + format + " are not supported.");
    ::ippAddString(exchange.response.get(), IPP_TAG_UNSUPPORTED_GROUP, IPP_TAG_MIMETYPE,
                   "document-format", nullptr, ::ippGetString(given, 0, nullptr));
    return false;
  }
  const std::string compression = textOf(request, "compression", IPP_TAG_KEYWORD);
  const bool isKnown = compression.empty() || compression == "none" || isCompression(compression);
  if (!isKnown) {
    exchange.respond(IPP_STATUS_ERROR_COMPRESSION_NOT_SUPPORTED,
                     "Documents that are compressed in this way are not supported.");
    ::ippAddString(exchange.response.get(), IPP_TAG_UNSUPPORTED_GROUP, IPP_TAG_KEYWORD,
                   "compression", nullptr, compression.c_str());
    return false;
  }
  if (isCompression(compression)) exchange.inflation = std::make_unique<Inflation>(compression);
  return true;
}

// A document that has arrived: its type is what its first bytes say, or what the
// client says. Fails when these do not fit.
bool settleFormat(IppExchange& exchange, std::string& format) {
  const std::string found = formatOf(exchange.document->beginning());
  if (exchange.document->size() == 0) {
    return !exchange.respond(IPP_STATUS_ERROR_BAD_REQUEST, "The document is empty.");
  }
  if (format.empty() || format == kAnyFormat) format = found;
  if (found.empty() && format.empty()) {
    return !exchange.respond(IPP_STATUS_ERROR_DOCUMENT_FORMAT_NOT_SUPPORTED,
                             "The type of the document is not supported.");
  }
  if (found == format) return true;
  return !exchange.respond(IPP_STATUS_ERROR_DOCUMENT_FORMAT_ERROR,
                           "The document is not of the type " + format + ".");
}

// Names are shown to people and written into jobs.
std::string cleaned(std::string text) {
  for (char& c : text) {
    if (static_cast<unsigned char>(c) < 0x20 || c == 0x7f) c = ' ';
  }
  return text;
}

// Of hundredths of a millimetre.
int pointsOf(int length) {
  return static_cast<int>(std::lround(length * 72.0 / 2540));
}

Job jobOf(const IppExchange& exchange, const ipp::JobSettings& settings) {
  ipp_t* request = exchange.request.get();
  Job job;
  job.printer = exchange.printer->name;
  job.name = cleaned(textOf(request, "job-name", IPP_TAG_NAME));
  if (job.name.empty()) job.name = cleaned(textOf(request, "document-name", IPP_TAG_NAME));
  if (job.name.empty()) job.name = "Untitled";
  job.user = cleaned(exchange.user);
  job.format = textOf(request, "document-format", IPP_TAG_MIMETYPE);
  job.created = Service::now();
  job.copies = settings.copies;
  job.width = pointsOf(settings.sheet.width);
  job.height = pointsOf(settings.sheet.height);
  job.options = settings.settings;
  job.options.insert(job.options.end(), settings.pageOptions.begin(), settings.pageOptions.end());
  if (!settings.holdUntil.empty() && settings.holdUntil != "no-hold") {
    job.state = IPP_JSTATE_HELD;
    job.reason = "job-hold-until-specified";
  }
  return job;
}

void respondTo(IppExchange& exchange, const ipp::JobSettings& settings, ipp_status_t status,
               const std::string& message) {
  exchange.respond(status, message);
  addUnsupported(exchange.response.get(), settings);
}

// Reads what the client asks for. Fails when it wants no job without what is not
// supported.
bool takeSettings(IppExchange& exchange, ipp::JobSettings& settings) {
  settings = exchange.printer->translation->settingsOf(exchange.request.get(), exchange.preset);
  if (settings.status() < IPP_STATUS_ERROR_BAD_REQUEST) return true;
  respondTo(exchange, settings, settings.status(), kUnsupported);
  return false;
}

// The attributes of the request for features that rules forbid together, as others
// that are not supported.
void addConflicts(const IppExchange& exchange, const SettingsVerdict& verdict,
                  ipp::JobSettings& settings) {
  for (const std::string& feature : verdict.features) {
    for (const std::string& name : exchange.printer->translation->attributesOf(feature)) {
      ipp_attribute_t* asked =
          ::ippFindAttribute(exchange.request.get(), name.c_str(), IPP_TAG_ZERO);
      const bool isKnown = std::any_of(
          settings.unsupported.begin(), settings.unsupported.end(),
          [&name](const ipp::UnsupportedAttribute& other) { return other.name == name; });
      if (asked == nullptr || isKnown || name == "job-password") continue;
      settings.unsupported.push_back({name, asked, {}});
    }
  }
}

void addPreferred(IppExchange& exchange, const std::vector<host::Setting>& changes) {
  const IppPointer preferred(::ippNew(), &::ippDelete);
  exchange.printer->translation->addSettings(preferred.get(), IPP_TAG_ZERO, changes);
  if (::ippFirstAttribute(preferred.get()) == nullptr) return;
  ::ippAddCollection(exchange.response.get(), IPP_TAG_OPERATION, "preferred-attributes",
                     preferred.get());
}

// What rules forbid together is changed, unless the client wants no job then. Fails
// when there is no job.
bool takeVerdict(IppExchange& exchange, const SettingsVerdict& verdict,
                 ipp::JobSettings& settings) {
  const bool isFaithful = settings.isFaithful;
  const bool isConflict = !verdict.conflict.empty();
  if (!isConflict && verdict.problem.empty()) {
    respondTo(exchange, settings, settings.status(),
              settings.unsupported.empty() ? "" : kUnsupported);
    return true;
  }
  const bool isRefused = isFaithful || !verdict.problem.empty();
  exchange.respond(!isConflict ? IPP_STATUS_ERROR_ATTRIBUTES_OR_VALUES
                   : isRefused ? IPP_STATUS_ERROR_CONFLICTING
                               : IPP_STATUS_OK_CONFLICTING,
                   verdict.problem.empty() ? verdict.conflict : verdict.problem);
  if (::ippGetOperation(exchange.request.get()) == IPP_OP_VALIDATE_JOB) {
    addPreferred(exchange, verdict.changes);
  }
  addConflicts(exchange, verdict, settings);
  addUnsupported(exchange.response.get(), settings);
  if (isRefused) return false;
  exchange.printer->translation->change(settings, verdict.changes);
  return true;
}

// Lets the worker of the description look at the settings, and calls `then` with those
// that are to be made; otherwise the response is ready.
void checkSettings(const std::shared_ptr<IppExchange>& exchange, const ipp::JobSettings& settings,
                   std::function<void(const ipp::JobSettings&)> then) {
  exchange->printer->worker->check(settings.settings, [exchange, settings, then = std::move(then)](
                                                          const SettingsVerdict& verdict) {
    ipp::JobSettings made = settings;
    if (takeVerdict(*exchange, verdict, made)) then(made);
    exchange->done();
  });
}

void log(const Job& job, const std::string& event) {
  cli::printError(job.printer + ": job " + std::to_string(job.number) + ": " + event);
}

void addJob(Service& service, IppExchange& exchange, Job job) {
  const auto added =
      service.jobs().add(std::move(job), attributesToKeep(exchange), exchange.document.get());
  exchange.document.reset();
  if (!added) cli::printProblem(added.error());
  if (added) {
    const Job& taken = **added;
    log(taken, "accepted from " + taken.user + ", " + std::to_string(taken.bytes) + " bytes of " +
                   (taken.format.empty() ? "a document to come" : taken.format));
  }
  if (!added || !service.accept(*exchange.printer, **added)) {
    exchange.respond(IPP_STATUS_ERROR_INTERNAL, "The job cannot be kept.");
    return;
  }
  addJobResponse(service, exchange, **added);
  if ((*added)->isIncoming) service.limitWait((*added)->number);
}

}  // namespace

bool preparePrinting(Service& service, IppExchange& exchange) {
  if (!checkFormat(exchange)) return false;
  if (service.jobs().isFull()) {
    return !exchange.respond(IPP_STATUS_ERROR_BUSY, "Too many jobs are waiting.");
  }
  return true;
}

bool validateJob(Service& /*service*/, const std::shared_ptr<IppExchange>& exchange) {
  ipp::JobSettings settings;
  if (!takeSettings(*exchange, settings)) return true;
  checkSettings(exchange, settings, [](const ipp::JobSettings&) {});
  return false;
}

bool printJob(Service& service, const std::shared_ptr<IppExchange>& exchange) {
  ipp::JobSettings settings;
  if (!takeSettings(*exchange, settings)) return true;
  std::string format = textOf(exchange->request.get(), "document-format", IPP_TAG_MIMETYPE);
  if (!settleFormat(*exchange, format)) return true;
  checkSettings(exchange, settings, [&service, exchange, format](const ipp::JobSettings& made) {
    Job job = jobOf(*exchange, made);
    job.format = format;
    job.bytes = exchange->document->size();
    addJob(service, *exchange, job);
  });
  return false;
}

bool createJob(Service& service, const std::shared_ptr<IppExchange>& exchange) {
  ipp::JobSettings settings;
  if (!takeSettings(*exchange, settings)) return true;
  checkSettings(exchange, settings, [&service, exchange](const ipp::JobSettings& made) {
    Job job = jobOf(*exchange, made);
    job.isIncoming = true;
    if (job.state != IPP_JSTATE_HELD) {
      job.state = IPP_JSTATE_HELD;
      job.reason = "job-incoming";
    }
    job.format.clear();
    addJob(service, *exchange, job);
  });
  return false;
}

bool prepareDocument(Service& /*service*/, IppExchange& exchange) {
  ipp_t* request = exchange.request.get();
  if (exchange.user != exchange.job->user) {
    return !exchange.respond(IPP_STATUS_ERROR_NOT_AUTHORIZED, "The job belongs to somebody else.");
  }
  if (exchange.job->isOver()) {
    return !exchange.respond(IPP_STATUS_ERROR_NOT_POSSIBLE, "The job is over.");
  }
  if (!exchange.job->isIncoming) {
    return !exchange.respond(IPP_STATUS_ERROR_MULTIPLE_JOBS_NOT_SUPPORTED,
                             "A job has one document.");
  }
  if (::ippFindAttribute(request, "last-document", IPP_TAG_BOOLEAN) == nullptr) {
    return !exchange.respond(IPP_STATUS_ERROR_BAD_REQUEST, "The request has no last-document.");
  }
  return checkFormat(exchange);
}

bool sendDocument(Service& service, const std::shared_ptr<IppExchange>& shared) {
  IppExchange& exchange = *shared;
  const int number =
      textOf(exchange.request.get(), "job-uri", IPP_TAG_URI).empty()
          ? integerOf(exchange.request.get(), "job-id", 0)
          : Service::jobOfPath(textOf(exchange.request.get(), "job-uri", IPP_TAG_URI));
  // While the document arrived the job may have been cancelled.
  Job* job = service.jobs().find(number);
  if (job == nullptr || job->isOver() || !job->isIncoming) {
    return exchange.respond(IPP_STATUS_ERROR_NOT_POSSIBLE, "The job is over.");
  }
  Job changed = *job;
  changed.format = textOf(exchange.request.get(), "document-format", IPP_TAG_MIMETYPE);
  // A request may end a job without sending a document.
  const bool isLast = booleanOf(exchange.request.get(), "last-document", true);
  if (exchange.document->size() == 0 && isLast) {
    service.cancel(*job, "The job has no document.");
    addJobResponse(service, exchange, *job);
    return true;
  }
  if (!settleFormat(exchange, changed.format)) return true;
  changed.bytes = exchange.document->size();
  changed.isIncoming = false;
  if (changed.reason == "job-incoming") {
    changed.state = IPP_JSTATE_PENDING;
    changed.reason = "none";
  }
  const auto added = service.jobs().spool().addDocument(changed, *exchange.document);
  exchange.document.reset();
  if (!added) {
    cli::printProblem(added.error());
    return exchange.respond(IPP_STATUS_ERROR_INTERNAL, "The document cannot be kept.");
  }
  *job = std::move(changed);
  log(*job, "received " + std::to_string(job->bytes) + " bytes of " + job->format);
  if (!service.accept(*exchange.printer, *job)) {
    return exchange.respond(IPP_STATUS_ERROR_INTERNAL, "The document cannot be kept.");
  }
  addJobResponse(service, exchange, *job);
  return true;
}

}  // namespace driver_feature::printer
