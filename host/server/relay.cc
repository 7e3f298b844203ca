#include "host/server/relay.h"

#include <fcntl.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <utility>

namespace driver_feature::host {

namespace {

constexpr std::size_t kRoom = 65536;   // For bytes that cannot be handed on yet.
constexpr char kHandshakeRecord = 22;  // The first byte of TLS; no method of HTTP begins so.

bool mayComeLater(int error) {
  return error == EAGAIN || error == EWOULDBLOCK || error == EINTR;
}

Failure noConnection() {
  return fail(Problem::Kind::kNotLoaded,
              std::string("a client cannot be taken: ") + std::strerror(errno));
}

}  // namespace

Result<Relay> Relay::accept(int listener) {
  http_t* http = ::httpAcceptConnection(listener, 0);
  if (http == nullptr) return noConnection();
  const int inside = ::httpGetFd(http);
  const int network = ::fcntl(inside, F_DUPFD_CLOEXEC, 3);
  std::array<int, 2> ends{-1, -1};
  if (network == -1 || ::fcntl(network, F_SETFL, O_NONBLOCK) == -1 ||
      ::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, ends.data()) == -1) {
    Failure failure = noConnection();
    if (network != -1) ::close(network);
    ::httpClose(http);
    return failure;
  }
  // libcups' descriptor becomes one end of the pair.
  ::dup3(ends[1], inside, O_CLOEXEC);
  ::close(ends[1]);
  return Relay(http, network, ends[0]);
}

Relay::Relay(Relay&& other) noexcept
    : http_(std::exchange(other.http_, nullptr)),
      network_(std::exchange(other.network_, -1)),
      inner_(std::exchange(other.inner_, -1)),
      tls_(std::move(other.tls_)),
      incoming_(std::move(other.incoming_)),
      outgoing_(std::move(other.outgoing_)) {}

Relay::~Relay() {
  if (http_ == nullptr) return;
  ::httpClose(http_);
  ::close(inner_);
  ::close(network_);
}

bool Relay::hasHandshake() const {
  char first = 0;
  return !tls_ && incoming_.empty() && ::recv(network_, &first, 1, MSG_PEEK) == 1 &&
         first == kHandshakeRecord;
}

bool Relay::encrypt(const std::shared_ptr<const TlsCredentials>& credentials) {
  if (!incoming_.empty() || hasUnsent()) return false;
  auto started = TlsSession::start(credentials, network_);
  if (!started) return false;
  tls_ = std::move(*started);
  return true;
}

bool Relay::receive() {
  if (incoming_.size() >= kRoom) return true;
  std::array<char, kRoom> buffer;
  const ssize_t count = tls_ ? tls_->receive(buffer.data(), buffer.size())
                             : ::recv(network_, buffer.data(), buffer.size() - incoming_.size(), 0);
  if (count < 0) return mayComeLater(errno);
  incoming_.append(buffer.data(), static_cast<std::size_t>(count));
  return count > 0;
}

bool Relay::handOn(std::size_t count) {
  const ssize_t sent = ::send(inner_, incoming_.data(), count, MSG_NOSIGNAL);
  if (sent != static_cast<ssize_t>(count)) return false;
  incoming_.erase(0, count);
  return true;
}

bool Relay::hasMore() const {
  int waiting = 0;
  return ::httpGetReady(http_) > 0 ||
         (::ioctl(::httpGetFd(http_), FIONREAD, &waiting) == 0 && waiting > 0);
}

void Relay::collect() {
  std::array<char, kRoom> buffer;
  for (;;) {
    const ssize_t count = ::recv(inner_, buffer.data(), buffer.size(), 0);
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return;
    outgoing_.append(buffer.data(), static_cast<std::size_t>(count));
  }
}

bool Relay::send() {
  while (!outgoing_.empty()) {
    const ssize_t sent = tls_ ? tls_->send(outgoing_.data(), outgoing_.size())
                              : ::send(network_, outgoing_.data(), outgoing_.size(), MSG_NOSIGNAL);
    if (sent < 0) return mayComeLater(errno);
    outgoing_.erase(0, static_cast<std::size_t>(sent));
  }
  return true;
}

void Relay::endSending() {
  if (tls_) tls_->sayEnd();
  ::shutdown(network_, SHUT_WR);
}

}  // namespace driver_feature::host
