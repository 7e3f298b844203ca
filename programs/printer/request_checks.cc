// What every request must have.

#include <cups/http.h>

#include <algorithm>
#include <array>
#include <string>

#include "host/base/text.h"
#include "programs/printer/ipp_message.h"
#include "programs/printer/operations.h"

namespace driver_feature::printer {

namespace {

constexpr std::string_view kPrinterPath = "/ipp/print/";

// The name of the attribute at a place, when it is in the group for operations and
// has the type; null else.
bool isOperationAttribute(ipp_attribute_t* attribute, const char* name, ipp_tag_t type) {
  return attribute != nullptr && ::ippGetGroupTag(attribute) == IPP_TAG_OPERATION &&
         ::ippGetName(attribute) != nullptr && std::string(::ippGetName(attribute)) == name &&
         ::ippGetValueTag(attribute) == type && ::ippGetCount(attribute) == 1;
}

// The groups come in the order of their tags: operation, job or printer.
bool hasOrderedGroups(ipp_t* request) {
  ipp_tag_t last = IPP_TAG_ZERO;
  for (ipp_attribute_t* one = ::ippFirstAttribute(request); one != nullptr;
       one = ::ippNextAttribute(request)) {
    const ipp_tag_t group = ::ippGetGroupTag(one);
    if (group == IPP_TAG_ZERO) continue;
    if (group < last) return false;
    last = group;
  }
  return true;
}

std::string resourceOf(const std::string& uri) {
  std::array<char, 32> scheme{};
  std::array<char, 256> user{};
  std::array<char, 256> host{};
  std::array<char, 1024> path{};
  int port = 0;
  const http_uri_status_t status =
      ::httpSeparateURI(HTTP_URI_CODING_ALL, uri.c_str(), scheme.data(), scheme.size(), user.data(),
                        user.size(), host.data(), host.size(), &port, path.data(), path.size());
  return status < HTTP_URI_STATUS_OK ? "" : path.data();
}

bool checkBeginning(IppExchange& exchange) {
  ipp_t* request = exchange.request.get();
  int minor = 0;
  const int major = ::ippGetVersion(request, &minor);
  if (major < 1 || major > 2) {
    ::ippSetVersion(exchange.response.get(), 2, 0);
    return !exchange.respond(IPP_STATUS_ERROR_VERSION_NOT_SUPPORTED,
                             "Versions 1.0 to 2.x are supported.");
  }
  if (::ippGetRequestId(request) <= 0) {
    return !exchange.respond(IPP_STATUS_ERROR_BAD_REQUEST,
                             "The request-id is not a positive number.");
  }
  if (!hasOrderedGroups(request)) {
    return !exchange.respond(IPP_STATUS_ERROR_BAD_REQUEST,
                             "The groups of attributes are out of order.");
  }
  ipp_attribute_t* charset = ::ippFirstAttribute(request);
  if (!isOperationAttribute(charset, "attributes-charset", IPP_TAG_CHARSET)) {
    return !exchange.respond(IPP_STATUS_ERROR_BAD_REQUEST,
                             "The first attribute is not attributes-charset.");
  }
  const std::string name = host::toLower(std::string(::ippGetString(charset, 0, nullptr)));
  ipp_attribute_t* language = ::ippNextAttribute(request);
  if (!isOperationAttribute(language, "attributes-natural-language", IPP_TAG_LANGUAGE)) {
    return !exchange.respond(IPP_STATUS_ERROR_BAD_REQUEST,
                             "The second attribute is not attributes-natural-language.");
  }
  if (name != "utf-8" && name != "us-ascii") {
    return !exchange.respond(IPP_STATUS_ERROR_CHARSET, "Only the charset utf-8 is supported.");
  }
  return true;
}

bool refuseTarget(IppExchange& exchange) {
  if (exchange.printer != nullptr && !exchange.printer->isReady()) {
    return !exchange.respond(IPP_STATUS_ERROR_SERVICE_UNAVAILABLE, "The printer is starting.");
  }
  return !exchange.respond(IPP_STATUS_ERROR_NOT_FOUND, "There is no such printer here.");
}

// Sets the printer that a path such as /ipp/print/office/PRESET names.
bool findPrinter(Service& service, IppExchange& exchange, const std::string& path) {
  if (!path.starts_with(kPrinterPath)) return false;
  const std::string rest = path.substr(kPrinterPath.size());
  const std::size_t slash = rest.find('/');
  exchange.printer = service.find(rest.substr(0, slash));
  if (slash != std::string::npos) exchange.preset = rest.substr(slash + 1);
  if (exchange.printer == nullptr || !exchange.printer->isReady()) return false;
  const auto& presets = exchange.printer->translation->capabilities().presets;
  return exchange.preset.empty() ||
         std::any_of(presets.begin(), presets.end(), [&exchange](const ipp::PresetCapability& one) {
           return one.name == exchange.preset;
         });
}

bool findJob(Service& service, IppExchange& exchange, int number) {
  exchange.job = service.jobs().find(number);
  if (exchange.job == nullptr || exchange.job->printer != exchange.printer->name) {
    exchange.job = nullptr;
    return !exchange.respond(IPP_STATUS_ERROR_NOT_FOUND,
                             "There is no job " + std::to_string(number) + ".");
  }
  return true;
}

// "job-uri", or "printer-uri" with "job-id".
bool findTarget(Service& service, IppExchange& exchange, bool isOfJob) {
  ipp_t* request = exchange.request.get();
  ipp_attribute_t* jobUri = isOfJob ? ::ippFindAttribute(request, "job-uri", IPP_TAG_URI) : nullptr;
  if (jobUri != nullptr) {
    const std::string target = resourceOf(::ippGetString(jobUri, 0, nullptr));
    const int number = service.jobOfPath(target);
    Job* job = service.jobs().find(number);
    exchange.printer = job == nullptr ? nullptr : service.find(job->printer);
    if (exchange.printer == nullptr || !exchange.printer->isReady()) {
      return !exchange.respond(IPP_STATUS_ERROR_NOT_FOUND, "There is no such job here.");
    }
    return findJob(service, exchange, number);
  }
  ipp_attribute_t* uri = ::ippFindAttribute(request, "printer-uri", IPP_TAG_URI);
  if (uri == nullptr) {
    return !exchange.respond(IPP_STATUS_ERROR_BAD_REQUEST, "The request has no printer-uri.");
  }
  const std::string target = resourceOf(::ippGetString(uri, 0, nullptr));
  if (!findPrinter(service, exchange, target)) return refuseTarget(exchange);
  if (!isOfJob) return true;
  ipp_attribute_t* number = ::ippFindAttribute(request, "job-id", IPP_TAG_INTEGER);
  if (number == nullptr) {
    return !exchange.respond(IPP_STATUS_ERROR_BAD_REQUEST, "The request names no job.");
  }
  return findJob(service, exchange, ::ippGetInteger(number, 0));
}

}  // namespace

bool checkRequest(Service& service, IppExchange& exchange) {
  exchange.response = IppPointer(::ippNewResponse(exchange.request.get()), &::ippDelete);
  if (!checkBeginning(exchange)) return false;
  const Operation* operation =
      findOperation(static_cast<int>(::ippGetOperation(exchange.request.get())));
  if (operation == nullptr) {
    return !exchange.respond(IPP_STATUS_ERROR_OPERATION_NOT_SUPPORTED,
                             "This operation is not supported.");
  }
  if (!findTarget(service, exchange, operation->isOfJob)) return false;
  exchange.user = textOf(exchange.request.get(), "requesting-user-name", IPP_TAG_NAME);
  if (exchange.user.empty()) exchange.user = "anonymous";
  return true;
}

}  // namespace driver_feature::printer
