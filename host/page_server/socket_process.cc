#include "host/page_server/socket_process.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <utility>

#include "host/base/child_setting.h"
#include "host/base/frames.h"
#include "host/base/text.h"

namespace driver_feature::page_server {

namespace {

using Milliseconds = host::EventLoop::Milliseconds;

// How often, and after which time each, a process that has closed its socket is
// looked at before it is killed.
constexpr int kMostLooks = 25;
constexpr Milliseconds kBetweenLooks{4};

}  // namespace

SocketProcess::SocketProcess(host::EventLoop& loop, Listener listener)
    : loop_(loop), listener_(std::move(listener)) {}

SocketProcess::~SocketProcess() {
  stop();
}

host::Result<> SocketProcess::start(const std::function<int(int socket)>& work) {
  stop();
  std::array<int, 2> ends{-1, -1};
  if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0) {
    return host::fail(host::Problem::Kind::kNotLoaded, "There is no socket for its process");
  }
  auto child = host::ChildProcess::start(host::ChildStreams::kShared,
                                         [&](int) { return work(host::leaveServer(ends[1])); });
  ::close(ends[1]);
  if (!child) {
    ::close(ends[0]);
    return failureOf(child);
  }
  child_.emplace(std::move(*child));
  socket_ = ends[0];
  ::fcntl(socket_, F_SETFL, O_NONBLOCK);
  loop_.watch(socket_, POLLIN, [this](short events) { handle(events); });
  return {};
}

void SocketProcess::stop() {
  liftLimit();
  if (socket_ != -1) {
    loop_.forget(socket_);
    ::close(socket_);
    socket_ = -1;
  }
  child_.reset();
  arrived_.clear();
  leaving_.clear();
}

void SocketProcess::limitTime(Milliseconds time) {
  liftLimit();
  timer_ = loop_.after(time, [this, time] {
    timer_.reset();
    end("did not reply within " + host::counted(static_cast<long>(time.count() / 1000), "second"));
  });
}

void SocketProcess::liftLimit() {
  if (timer_) loop_.cancel(*timer_);
  timer_.reset();
}

void SocketProcess::send(const std::string& text) {
  leaving_ += host::frame(text);
  write();
}

void SocketProcess::handle(short events) {
  if ((events & POLLOUT) != 0) write();
  if ((events & ~POLLOUT) != 0) read();
}

void SocketProcess::write() {
  while (!leaving_.empty()) {
    const ssize_t sent = ::send(socket_, leaving_.data(), leaving_.size(), MSG_NOSIGNAL);
    if (sent < 0 && errno == EINTR) continue;
    if (sent < 0) break;
    leaving_.erase(0, static_cast<std::size_t>(sent));
  }
  loop_.change(socket_, static_cast<short>(leaving_.empty() ? POLLIN : POLLIN | POLLOUT));
}

void SocketProcess::read() {
  std::array<char, 65536> buffer;
  const ssize_t count = ::recv(socket_, buffer.data(), buffer.size(), 0);
  if (count < 0 && (errno == EAGAIN || errno == EINTR)) return;
  if (count <= 0) {
    loop_.forget(socket_);
    return awaitEnd(0);
  }
  arrived_.append(buffer.data(), static_cast<std::size_t>(count));
  bool isMalformed = false;
  while (child_) {
    const auto text = host::takeFrame(arrived_, isMalformed);
    if (!text) break;
    listener_.arrived(*text);
  }
  if (isMalformed) end("sent an invalid reply");
}

// A process that has closed its socket mostly ends at once; one that does not is
// not waited for.
void SocketProcess::awaitEnd(int looks) {
  liftLimit();
  if (!child_->hasEnded() && looks < kMostLooks) {
    timer_ = loop_.after(kBetweenLooks, [this, looks] {
      timer_.reset();
      awaitEnd(looks + 1);
    });
    return;
  }
  child_->kill();
  const int status = child_->wait();
  child_.reset();
  end(WIFEXITED(status)
          ? "ended its process with status " + std::to_string(WEXITSTATUS(status))
          : "crashed: its process was ended by signal " + std::to_string(WTERMSIG(status)));
}

void SocketProcess::end(const std::string& how) {
  stop();
  listener_.ended(how);
}

}  // namespace driver_feature::page_server
