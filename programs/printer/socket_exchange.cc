#include "programs/printer/socket_exchange.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <string>
#include <string_view>

#include "host/base/descriptor.h"
#include "programs/printer/pjl_status.h"

namespace driver_feature::printer {

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::size_t kPiece = 65536;
constexpr std::size_t kKnownBeginning = 14;  // By which a job in PJL is known.
constexpr int kLastWords = 5000;             // Milliseconds for what a printer says after a job,
constexpr std::chrono::seconds kLimit{60};   // and for all of it together.

bool mayComeLater() {
  return errno == EAGAIN || errno == EINTR;
}

class Exchange {
 public:
  Exchange(int input, int connection, bool asksForStatus)
      : input_(input), connection_(connection), asks_(asksForStatus) {
    ::fcntl(connection_, F_SETFL, O_NONBLOCK);
  }

  bool run() {
    while (!isAtEnd_ || !waiting_.empty()) {
      pollfd polled[] = {{connection_, events(), 0}, {input_, POLLIN, 0}};
      // Both are never waited for: what was read is sent before more is read.
      const nfds_t count = isAtEnd_ || !waiting_.empty() ? 1 : 2;
      if (::poll(polled, count, -1) == -1 && errno != EINTR) return false;
      if ((polled[0].revents & POLLIN) != 0) listen();
      if (count == 2 && polled[1].revents != 0 && !read()) return false;
      if (!write()) return false;
    }
    return true;
  }

  // Printers close the connection when they have taken everything; some do not.
  void waitForEnd() {
    ::shutdown(connection_, SHUT_WR);
    const auto end = Clock::now() + kLimit;
    while (!isClosed_ && Clock::now() < end) {
      pollfd polled{connection_, POLLIN, 0};
      if (::poll(&polled, 1, kLastWords) <= 0) return;
      listen();
    }
  }

 private:
  short events() const {
    return static_cast<short>((isClosed_ ? 0 : POLLIN) | (waiting_.empty() ? 0 : POLLOUT));
  }

  bool read() {
    std::array<char, kPiece> buffer;
    const ssize_t count = ::read(input_, buffer.data(), buffer.size());
    if (count < 0) return mayComeLater();
    if (hasBegun_) {
      waiting_.assign(buffer.data(), static_cast<std::size_t>(count));
    } else {
      beginning_.append(buffer.data(), static_cast<std::size_t>(count));
    }
    isAtEnd_ = count == 0;
    if (!hasBegun_ && (isAtEnd_ || beginning_.size() >= kKnownBeginning)) begin();
    if (isAtEnd_ && asks_) waiting_ += kAskNoMore;
    return true;
  }

  void begin() {
    hasBegun_ = true;
    asks_ = asks_ && beginsWithPjl(beginning_);
    waiting_ = asks_ ? std::string(kAskForStatus) + beginning_ : beginning_;
  }

  bool write() {
    if (waiting_.empty()) return true;
    const ssize_t count = ::send(connection_, waiting_.data(), waiting_.size(), MSG_NOSIGNAL);
    if (count < 0) return mayComeLater();
    waiting_.erase(0, static_cast<std::size_t>(count));
    return true;
  }

  void listen() {
    std::array<char, 4096> buffer;
    const ssize_t count = ::recv(connection_, buffer.data(), buffer.size(), 0);
    isClosed_ = count == 0 || (count < 0 && !mayComeLater());
    if (count <= 0 || !asks_) return;
    const std::string lines = status_.take({buffer.data(), static_cast<std::size_t>(count)});
    if (!lines.empty()) host::writeAll(STDERR_FILENO, lines);
  }

  int input_;
  int connection_;
  bool asks_;
  bool hasBegun_ = false;
  bool isAtEnd_ = false;   // Of the job.
  bool isClosed_ = false;  // The printer sends no more.
  std::string beginning_;
  std::string waiting_;
  PjlStatus status_;
};

}  // namespace

bool sendJob(int input, int connection, bool asksForStatus) {
  Exchange exchange(input, connection, asksForStatus);
  if (!exchange.run()) return false;
  exchange.waitForEnd();
  return true;
}

}  // namespace driver_feature::printer
