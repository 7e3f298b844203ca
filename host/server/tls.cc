#include "host/server/tls.h"

#include <gnutls/gnutls.h>

#include <algorithm>
#include <cerrno>
#include <utility>

namespace driver_feature::host {

namespace {

// What is older than TLS 1.2 is broken.
constexpr const char* kPriorities = "NORMAL:-VERS-ALL:+VERS-TLS1.3:+VERS-TLS1.2";
constexpr std::size_t kLongestRecord = 16384;

// As a system call returns it.
ssize_t outcome(ssize_t result) {
  if (result >= 0) return result;
  const bool isLater = result == GNUTLS_E_AGAIN || result == GNUTLS_E_INTERRUPTED;
  errno = isLater ? EAGAIN : ECONNRESET;
  return -1;
}

std::string reasonOf(int result) {
  std::string reason = ::gnutls_strerror(result);
  if (reason.ends_with('.')) reason.pop_back();
  return reason;
}

}  // namespace

struct TlsCredentials::Parts {
  gnutls_certificate_credentials_t credentials = nullptr;
  gnutls_priority_t priorities = nullptr;

  Parts() = default;
  Parts(const Parts&) = delete;
  Parts& operator=(const Parts&) = delete;
  ~Parts() {
    if (credentials != nullptr) ::gnutls_certificate_free_credentials(credentials);
    if (priorities != nullptr) ::gnutls_priority_deinit(priorities);
  }
};

TlsCredentials::TlsCredentials(std::unique_ptr<Parts> parts) : parts_(std::move(parts)) {}
TlsCredentials::~TlsCredentials() = default;

Result<std::shared_ptr<const TlsCredentials>> TlsCredentials::load(const std::string& certificate,
                                                                   const std::string& key) {
  auto parts = std::make_unique<Parts>();
  int result = ::gnutls_certificate_allocate_credentials(&parts->credentials);
  if (result >= 0) result = ::gnutls_priority_init(&parts->priorities, kPriorities, nullptr);
  if (result >= 0) {
    result = ::gnutls_certificate_set_x509_key_file(parts->credentials, certificate.c_str(),
                                                    key.c_str(), GNUTLS_X509_FMT_PEM);
  }
  if (result < 0) {
    return refused("the certificate " + certificate + " cannot be used with the key " + key + ": " +
                   reasonOf(result) + "; give two PEM files that fit");
  }
  return std::shared_ptr<const TlsCredentials>(new TlsCredentials(std::move(parts)));
}

struct TlsSession::Parts {
  std::shared_ptr<const TlsCredentials> credentials;
  gnutls_session_t session = nullptr;

  Parts() = default;
  Parts(const Parts&) = delete;
  Parts& operator=(const Parts&) = delete;
  ~Parts() {
    if (session != nullptr) ::gnutls_deinit(session);
  }
};

TlsSession::TlsSession(std::unique_ptr<Parts> parts) : parts_(std::move(parts)) {}
TlsSession::~TlsSession() = default;

Result<std::unique_ptr<TlsSession>> TlsSession::start(
    std::shared_ptr<const TlsCredentials> credentials, int socket) {
  auto parts = std::make_unique<Parts>();
  const TlsCredentials::Parts& server = *credentials->parts_;
  int result = ::gnutls_init(&parts->session, GNUTLS_SERVER | GNUTLS_NONBLOCK | GNUTLS_NO_SIGNAL);
  if (result >= 0) result = ::gnutls_priority_set(parts->session, server.priorities);
  if (result >= 0) {
    result = ::gnutls_credentials_set(parts->session, GNUTLS_CRD_CERTIFICATE, server.credentials);
  }
  if (result < 0) return fail(Problem::Kind::kNotLoaded, reasonOf(result));
  // The caller limits the time.
  ::gnutls_handshake_set_timeout(parts->session, GNUTLS_INDEFINITE_TIMEOUT);
  ::gnutls_transport_set_int(parts->session, socket);
  parts->credentials = std::move(credentials);
  return std::unique_ptr<TlsSession>(new TlsSession(std::move(parts)));
}

TlsSession::Step TlsSession::shakeHands() {
  const int result = ::gnutls_handshake(parts_->session);
  if (result == GNUTLS_E_SUCCESS) return Step::kDone;
  if (::gnutls_error_is_fatal(result) != 0) {
    // Clients know from the alert what was wrong.
    ::gnutls_alert_send_appropriate(parts_->session, result);
    return Step::kFailed;
  }
  // Also after a warning of the client: one that sends nothing else must not keep the
  // others waiting.
  return ::gnutls_record_get_direction(parts_->session) != 0 ? Step::kNeedsRoom : Step::kNeedsInput;
}

ssize_t TlsSession::receive(char* buffer, std::size_t size) {
  return outcome(::gnutls_record_recv(parts_->session, buffer, size));
}

ssize_t TlsSession::send(const char* bytes, std::size_t size) {
  return outcome(::gnutls_record_send(parts_->session, bytes, std::min(size, kLongestRecord)));
}

void TlsSession::sayEnd() {
  ::gnutls_bye(parts_->session, GNUTLS_SHUT_WR);
}

}  // namespace driver_feature::host
