#include "programs/printer/page.h"

#include <array>

namespace driver_feature::printer {

namespace {

constexpr std::string_view kStrings = "/strings/";

// A grey dot: clients want a picture.
constexpr std::array<unsigned char, 67> kIcon = {
    0x89, 0x50, 0x4e, 0x47, 0x0d, 0x0a, 0x1a, 0x0a, 0x00, 0x00, 0x00, 0x0d, 0x49, 0x48,
    0x44, 0x52, 0x00, 0x00, 0x00, 0x01, 0x00, 0x00, 0x00, 0x01, 0x08, 0x00, 0x00, 0x00,
    0x00, 0x3a, 0x7e, 0x9b, 0x55, 0x00, 0x00, 0x00, 0x0a, 0x49, 0x44, 0x41, 0x54, 0x78,
    0x9c, 0x63, 0x68, 0x00, 0x00, 0x00, 0x82, 0x00, 0x81, 0x77, 0xcd, 0x72, 0xb6, 0x00,
    0x00, 0x00, 0x00, 0x49, 0x45, 0x4e, 0x44, 0xae, 0x42, 0x60, 0x82};

host::Response stringsFor(Service& service, const std::string& rest) {
  const std::size_t slash = rest.find('/');
  Printer* printer = service.find(rest.substr(0, slash));
  if (slash == std::string::npos || printer == nullptr || !printer->isReady()) {
    return host::plainResponse(HTTP_STATUS_NOT_FOUND);
  }
  return {HTTP_STATUS_OK, "text/strings; charset=utf-8",
          printer->translation->strings(rest.substr(slash + 1))};
}

std::string listOf(Service& service, const std::string& host) {
  std::string text = "driver-feature-printer\n\n";
  for (const auto& [name, printer] : service.printers()) {
    text.append("ipp://").append(host).append("/ipp/print/").append(name).append("  ");
    text += !printer->isReady() ? "starting" : printer->current != 0 ? "printing" : "ready";
    text += ", " + std::to_string(service.jobs().waiting(name)) + " waiting\n";
  }
  return text;
}

}  // namespace

host::Response pageFor(Service& service, const host::Request& request) {
  if (request.path == "/icon.png") {
    return {HTTP_STATUS_OK, "image/png",
            std::string(reinterpret_cast<const char*>(kIcon.data()), kIcon.size())};
  }
  if (request.path.starts_with(kStrings)) {
    return stringsFor(service, request.path.substr(kStrings.size()));
  }
  const bool isPrinter = request.path.size() > 1 && service.find(request.path.substr(1)) != nullptr;
  if (request.path != "/" && !isPrinter) return host::plainResponse(HTTP_STATUS_NOT_FOUND);
  return {HTTP_STATUS_OK, "text/plain; charset=utf-8", listOf(service, request.host)};
}

}  // namespace driver_feature::printer
