#include "programs/printer/page.h"

#include <array>
#include <cctype>

#include "host/page_server/admission.h"

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

// The name by which the client called the server is the client's.
std::string escaped(const std::string& text) {
  std::string safe;
  for (const char c : text) {
    const bool isPlain = std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '.' || c == ':' ||
                         c == '-' || c == '[' || c == ']';
    safe += isPlain ? c : '?';
  }
  return safe;
}

std::string listOf(Service& service, const std::string& host) {
  std::string text =
      "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
      "<meta name=\"viewport\" content=\"width=device-width\">\n"
      "<meta name=\"color-scheme\" content=\"light dark\">\n"
      "<title>driver-feature-printer</title>\n</head>\n<body>\n"
      "<h1>driver-feature-printer</h1>\n<pre>\n";
  for (const auto& [name, printer] : service.printers()) {
    text.append("ipp://").append(escaped(host)).append("/ipp/print/").append(name).append("  ");
    text += !printer->isReady() ? "starting" : printer->current != 0 ? "printing" : "ready";
    text += ", " + std::to_string(service.jobs().waiting(name)) + " waiting  ";
    text.append("<a href=\"/page/").append(name).append("/\">settings of ");
    text.append(name).append("</a>\n");
  }
  return text + "</pre>\n</body>\n</html>\n";
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
  host::Response response{HTTP_STATUS_OK, "text/html; charset=utf-8",
                          listOf(service, request.host)};
  response.fields = page_server::safeFields();
  return response;
}

}  // namespace driver_feature::printer
