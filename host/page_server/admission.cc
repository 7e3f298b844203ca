#include "host/page_server/admission.h"

namespace driver_feature::page_server {

namespace {

// The server takes requests by its own names only, so that the field Host can be
// trusted.
bool isOwnOrigin(const host::Request& request) {
  return request.origin == (request.isEncrypted ? "https://" : "http://") + request.host;
}

}  // namespace

bool mayOpen(const host::Request& request) {
  return request.origin.empty() || isOwnOrigin(request);
}

bool isFromOwnPage(const host::Request& request) {
  if (!mayOpen(request)) return false;
  if (request.fetchSite == "same-origin") return true;
  if (request.method == host::Method::kPost) {
    return request.fetchSite.empty() && isOwnOrigin(request);
  }
  return request.fetchSite.empty() || request.fetchSite == "none";
}

std::vector<host::Field> safeFields() {
  return {{"Content-Security-Policy",
           "default-src 'none'; script-src 'self'; style-src 'self'; img-src 'self'; "
           "connect-src 'self'; base-uri 'none'; form-action 'none'; frame-ancestors 'none'"},
          {"X-Content-Type-Options", "nosniff"},
          {"Referrer-Policy", "no-referrer"},
          {"Cross-Origin-Opener-Policy", "same-origin"},
          {"Cross-Origin-Resource-Policy", "same-origin"},
          {"Cache-Control", "no-store"}};
}

}  // namespace driver_feature::page_server
