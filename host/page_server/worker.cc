#include "host/page_server/worker.h"

#include <utility>

#include <nlohmann/json.hpp>

#include "host/page_server/json_text.h"

namespace driver_feature::page_server {

namespace {

using Json = nlohmann::json;
using Milliseconds = host::EventLoop::Milliseconds;

constexpr Milliseconds kLoadTime{60000};
constexpr std::size_t kMostQuestions = 200;

}  // namespace

Worker::Worker(host::EventLoop& loop, Setting setting, Listener listener)
    : loop_(loop),
      request_(std::move(setting.request)),
      run_(std::move(setting.run)),
      replyTime_(setting.replyTime),
      listener_(std::move(listener)),
      process_(loop, {[this](const std::string& text) { take(text); },
                      [this](const std::string& how) { noteEnd(how); }}) {
  for (const auto& [name, value] : setting.beginning) kept_.begin(name, value);
  start();
}

Worker::~Worker() {
  if (failure_) loop_.cancel(*failure_);
}

void Worker::start() {
  if (failure_) loop_.cancel(*failure_);
  failure_.reset();
  ++request_.serial;  // What a page knows of the process before is out of date.
  phase_ = Phase::kLoading;
  isToLoadAnew_ = false;
  const auto started = process_.start([this](int socket) { return run_(socket, request_); });
  if (!started) return failLater(describe(started.error()) + ".");
  process_.limitTime(kLoadTime);
}

void Worker::ask(std::string request, Reply reply) {
  if (phase_ == Phase::kFailed) return reply("");
  if (questions_.size() >= kMostQuestions) {
    return reply(jsonText(
        {{"ok", false}, {"serial", request_.serial}, {"problem", "too much is asked at once"}}));
  }
  questions_.push_back({std::move(request), std::move(reply)});
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
  process_.limitTime(replyTime_);
  process_.send(questions_.front().request);
}

void Worker::take(const std::string& text) {
  if (phase_ == Phase::kLoading) return takeLoad(text);
  if (phase_ == Phase::kRestoring) return look();
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
  process_.limitTime(replyTime_);
  process_.send(*restoring);
}

// The first state shows that the description's routines can write its outputs.
void Worker::look() {
  phase_ = Phase::kLooking;
  process_.limitTime(replyTime_);
  process_.send(R"({"do":"state"})");
}

void Worker::takeReply(const std::string& text) {
  process_.liftLimit();
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
  process_.stop();
  phase_ = Phase::kFailed;
  isAsking_ = false;
  listener_.failed(why);
  dropQuestions();
}

void Worker::failLater(const std::string& why) {
  failure_ = loop_.after(Milliseconds(0), [this, why] {
    failure_.reset();
    fail(why);
  });
}

void Worker::dropQuestions() {
  for (const Question& question : std::exchange(questions_, {})) question.reply("");
}

}  // namespace driver_feature::page_server
