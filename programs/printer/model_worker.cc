#include "programs/printer/model_worker.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <utility>

#include "host/base/child_setting.h"
#include "host/base/frames.h"
#include "programs/printer/model_process.h"

namespace driver_feature::printer {

namespace {

using Milliseconds = host::EventLoop::Milliseconds;

constexpr Milliseconds kLoadTime{60000};
constexpr Milliseconds kCheckTime{10000};
constexpr Milliseconds kLongestRestartPause{60000};

}  // namespace

ModelWorker::ModelWorker(host::EventLoop& loop, std::string name, ppd::QueueRequest request,
                         Hardware hardware, Loaded loaded)
    : loop_(loop),
      name_(std::move(name)),
      request_(std::move(request)),
      hardware_(std::move(hardware)),
      loaded_(std::move(loaded)) {
  start();
}

ModelWorker::~ModelWorker() {
  if (timer_) loop_.cancel(*timer_);
  if (socket_ == -1) return;
  loop_.forget(socket_);
  ::close(socket_);
}

void ModelWorker::start() {
  std::array<int, 2> ends{-1, -1};
  if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0) {
    return end("no socket for its process");
  }
  auto child = host::ChildProcess::start(host::ChildStreams::kShared, [&](int) {
    const int socket = host::leaveServer(ends[1]);
    return runModelProcess(socket, name_, request_, hardware_);
  });
  ::close(ends[1]);
  socket_ = ends[0];
  if (!child) return end(describe(child.error()));
  child_.emplace(std::move(*child));
  ::fcntl(socket_, F_SETFL, O_NONBLOCK);
  loop_.watch(socket_, POLLIN, [this](short) { read(); });
  timer_ = loop_.after(kLoadTime, [this] { end("it does not load within a minute"); });
}

void ModelWorker::read() {
  std::array<char, 65536> buffer;
  const ssize_t count = ::recv(socket_, buffer.data(), buffer.size(), 0);
  if (count < 0 && (errno == EAGAIN || errno == EINTR)) return;
  if (count <= 0) {
    const std::string status = host::describeEnd(child_->wait());
    child_.reset();
    return end("its process ends with " + status);
  }
  arrived_.append(buffer.data(), static_cast<std::size_t>(count));
  bool isMalformed = false;
  while (child_) {
    const auto text = host::takeFrame(arrived_, isMalformed);
    if (!text) break;
    take(*text);
  }
  if (isMalformed) end("its process sends an invalid reply");
}

void ModelWorker::take(const std::string& text) {
  if (isLoaded_) {
    if (waiting_.empty()) return end("its process sends an invalid reply");
    const auto reply = std::move(waiting_.front());
    waiting_.pop_front();
    watchTime();
    return reply(unpackVerdict(text));
  }
  if (!capabilities_ && text.starts_with('-')) return end(text.substr(1));
  if (text == "+" && !capabilities_) {
    capabilities_ = "";
  } else if (capabilities_ && capabilities_->empty()) {
    capabilities_ = text;
  } else if (capabilities_) {
    auto read = ipp::capabilitiesFromJson(*capabilities_);
    if (!read) return end(describe(read.error()));
    isLoaded_ = true;
    capabilities_.reset();
    pause_ = Milliseconds(1000);
    watchTime();
    loaded_(LoadedModel{std::move(*read), text});
  }
}

// While a reply is due, it must come within some time.
void ModelWorker::watchTime() {
  if (timer_) loop_.cancel(*timer_);
  timer_.reset();
  if (waiting_.empty()) return;
  timer_ = loop_.after(kCheckTime, [this] { end("its process does not reply"); });
}

void ModelWorker::check(const std::vector<host::Setting>& settings, Reply reply) {
  const std::string text = host::frame(packSettings(settings));
  // A worker that does not read is not waited for.
  const bool isSent = isLoaded_ && ::send(socket_, text.data(), text.size(), MSG_NOSIGNAL) ==
                                       static_cast<ssize_t>(text.size());
  if (!isSent) {
    // Later, as every other reply: the caller is not prepared for one at once.
    loop_.after(Milliseconds(0), [reply = std::move(reply)] { reply({}); });
    return;
  }
  waiting_.push_back(std::move(reply));
  if (waiting_.size() == 1) watchTime();
}

void ModelWorker::end(const std::string& reason) {
  if (timer_) loop_.cancel(*timer_);
  if (socket_ != -1) {
    loop_.forget(socket_);
    ::close(socket_);
    socket_ = -1;
  }
  child_.reset();
  arrived_.clear();
  capabilities_.reset();
  isLoaded_ = false;
  timer_ = loop_.after(pause_, [this] {
    timer_.reset();
    start();
  });
  pause_ = std::min(pause_ * 2, kLongestRestartPause);
  auto waiting = std::exchange(waiting_, {});
  for (const auto& reply : waiting) reply({});
  loaded_(host::fail(host::Problem::Kind::kNotLoaded, reason));
}

}  // namespace driver_feature::printer
