#include "host/page_server/worker.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <utility>

#include <nlohmann/json.hpp>

#include "host/base/child_setting.h"
#include "host/base/frames.h"
#include "host/base/text.h"
#include "host/page_server/json_text.h"

namespace driver_feature::page_server {

namespace {

using Json = nlohmann::json;
using Milliseconds = host::EventLoop::Milliseconds;

constexpr Milliseconds kLoadTime{60000};
constexpr std::size_t kMostQuestions = 200;
// How often, and after which time each, a process that has closed its socket is
// looked at before it is killed.
constexpr int kMostLooks = 25;
constexpr Milliseconds kBetweenLooks{4};

}  // namespace

Worker::Worker(host::EventLoop& loop, Setting setting, Listener listener)
    : loop_(loop),
      request_(std::move(setting.request)),
      run_(std::move(setting.run)),
      replyTime_(setting.replyTime),
      listener_(std::move(listener)) {
  for (const auto& [name, value] : setting.beginning) kept_.begin(name, value);
  start();
}

Worker::~Worker() {
  stop();
}

void Worker::start() {
  stop();
  ++request_.serial;  // What a page knows of the process before is out of date.
  phase_ = Phase::kLoading;
  isToLoadAnew_ = false;
  std::array<int, 2> ends{-1, -1};
  if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0) {
    return failLater("There is no socket for its process.");
  }
  auto child = host::ChildProcess::start(
      host::ChildStreams::kShared, [&](int) { return run_(host::leaveServer(ends[1]), request_); });
  ::close(ends[1]);
  socket_ = ends[0];
  if (!child) return failLater(describe(child.error()) + ".");
  child_.emplace(std::move(*child));
  ::fcntl(socket_, F_SETFL, O_NONBLOCK);
  loop_.watch(socket_, POLLIN, [this](short events) { handle(events); });
  limitTime(kLoadTime);
}

void Worker::stop() {
  if (timer_) loop_.cancel(*timer_);
  timer_.reset();
  if (socket_ != -1) {
    loop_.forget(socket_);
    ::close(socket_);
    socket_ = -1;
  }
  child_.reset();
  arrived_.clear();
  leaving_.clear();
}

void Worker::limitTime(Milliseconds time) {
  if (timer_) loop_.cancel(*timer_);
  timer_ = loop_.after(time, [this, time] {
    timer_.reset();
    noteEnd("did not reply within " +
            host::counted(static_cast<long>(time.count() / 1000), "second"));
  });
}

void Worker::ask(std::string request, Reply reply) {
  if (questions_.size() >= kMostQuestions) {
    loop_.after(Milliseconds(0), [reply = std::move(reply), serial = request_.serial] {
      reply(
          jsonText({{"ok", false}, {"serial", serial}, {"problem", "too much is asked at once"}}));
    });
    return;
  }
  questions_.push_back({std::move(request), std::move(reply)});
  if (phase_ == Phase::kFailed) {
    loop_.after(Milliseconds(0), [this] {
      if (phase_ == Phase::kFailed) dropQuestions();
    });
  }
  if (phase_ == Phase::kReady) next();
}

void Worker::loadAnew() {
  ++request_.revision;
  restores_ = true;
  isToLoadAnew_ = true;
  if (phase_ != Phase::kReady || !isAsking_) start();
}

void Worker::next() {
  if (isAsking_) return;
  if (isToLoadAnew_) return start();
  if (questions_.empty()) return;
  isAsking_ = true;
  limitTime(replyTime_);
  send(questions_.front().request);
}

void Worker::send(const std::string& request) {
  leaving_ += host::frame(request);
  write();
}

// What the process does not take now goes when it does.
bool Worker::write() {
  while (!leaving_.empty()) {
    const ssize_t sent = ::send(socket_, leaving_.data(), leaving_.size(), MSG_NOSIGNAL);
    if (sent < 0 && errno == EINTR) continue;
    if (sent < 0) break;
    leaving_.erase(0, static_cast<std::size_t>(sent));
  }
  loop_.change(socket_, static_cast<short>(leaving_.empty() ? POLLIN : POLLIN | POLLOUT));
  return leaving_.empty();
}

void Worker::handle(short events) {
  if ((events & POLLOUT) != 0) write();
  if ((events & ~POLLOUT) != 0) read();
}

void Worker::read() {
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
    take(*text);
  }
  if (isMalformed) noteEnd("sent an invalid reply");
}

// A process that has closed its socket mostly ends at once; one that does not is
// not waited for.
void Worker::awaitEnd(int looks) {
  if (timer_) loop_.cancel(*timer_);
  timer_.reset();
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
  noteEnd(WIFEXITED(status)
              ? "ended its process with status " + std::to_string(WEXITSTATUS(status))
              : "crashed: its process was ended by signal " + std::to_string(WTERMSIG(status)));
}

void Worker::take(const std::string& text) {
  if (phase_ == Phase::kLoading) return takeLoad(text);
  if (phase_ == Phase::kRestoring) {
    return look();
  }
  takeReply(text);
}

void Worker::takeLoad(const std::string& text) {
  const Json load = Json::parse(text, nullptr, false);
  if (!load.is_object() || !load.value("loaded", false)) {
    return fail(load.is_object() ? load.value("text", "") : "");
  }
  const auto restoring = restores_ ? kept_.restoring() : std::nullopt;
  if (!restoring) return look();
  phase_ = Phase::kRestoring;
  limitTime(replyTime_);
  send(*restoring);
}

// The first state shows that the description's routines can write its outputs.
void Worker::look() {
  phase_ = Phase::kLooking;
  limitTime(replyTime_);
  send(R"({"do":"state"})");
}

void Worker::takeReply(const std::string& text) {
  if (timer_) loop_.cancel(*timer_);
  timer_.reset();
  if (phase_ == Phase::kLooking) return finishStart(text);
  if (!isAsking_) return noteEnd("sent an invalid reply");
  const Question question = std::move(questions_.front());
  questions_.pop_front();
  isAsking_ = false;
  const Json reply = Json::parse(text, nullptr, false);
  const long before = request_.serial;
  noteState(reply, question.request);
  question.reply(text);
  if (request_.serial != before) listener_.changed(reply, text);
  next();
}

void Worker::finishStart(const std::string& text) {
  const Json state = Json::parse(text, nullptr, false);
  if (!state.is_object()) return fail("Its process sent an invalid reply.");
  noteState(state, "");
  phase_ = Phase::kReady;
  restores_ = true;
  listener_.loaded(state);
  next();
}

// Takes over the state that a reply may be.
void Worker::noteState(const Json& reply, const std::string& request) {
  if (!reply.is_object() || !reply.contains("values") || !reply.value("ok", true)) return;
  kept_.take(reply, request);
  request_.serial = reply.value("serial", request_.serial);
}

// The process has ended, or is to end, because of what it was doing.
void Worker::noteEnd(const std::string& how) {
  const Phase phase = phase_;
  const bool wasAsking = std::exchange(isAsking_, false);
  stop();
  if (phase == Phase::kRestoring || (phase == Phase::kLooking && restores_ && kept_.restoring())) {
    // It may be for a value: once more without them.
    restores_ = false;
    return start();
  }
  if (phase != Phase::kReady) return fail("The description " + how + ".");
  const std::string what = "The description " + how + ".";
  start();
  if (wasAsking) {
    const Question question = std::move(questions_.front());
    questions_.pop_front();
    question.reply(jsonText(
        {{"ok", false}, {"serial", request_.serial}, {"problem", what + " Nothing has changed."}}));
  }
  listener_.crashed(what);
}

void Worker::fail(const std::string& why) {
  stop();
  phase_ = Phase::kFailed;
  isAsking_ = false;
  listener_.failed(why);
  dropQuestions();
}

void Worker::failLater(const std::string& why) {
  timer_ = loop_.after(Milliseconds(0), [this, why] {
    timer_.reset();
    fail(why);
  });
}

void Worker::dropQuestions() {
  for (const Question& question : std::exchange(questions_, {})) question.reply("");
}

}  // namespace driver_feature::page_server
