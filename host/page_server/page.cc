#include "host/page_server/page.h"

#include <poll.h>

#include <algorithm>
#include <utility>

#include <nlohmann/json.hpp>

#include "host/base/utf16.h"
#include "host/description/beside_files.h"
#include "host/page_server/json_text.h"

namespace driver_feature::page_server {

namespace {

using Json = nlohmann::json;
using Milliseconds = host::EventLoop::Milliseconds;

// An editor may save in several steps, which belong together.
constexpr Milliseconds kQuiet{40};

// The text of an output as a state has it: whole, or what has changed.
std::string textAfter(const Json& output, const std::string& before) {
  std::string text = output.value("text", "");
  if (!output.contains("at")) return text;
  const std::size_t begin = host::bytesBeforeUnits(before, output.value("at", std::size_t{0}));
  const std::string_view rest = std::string_view(before).substr(begin);
  const std::size_t count = host::bytesBeforeUnits(rest, output.value("gone", std::size_t{0}));
  return before.substr(0, begin) + text + std::string(rest.substr(count));
}

}  // namespace

Page::Page(host::EventLoop& loop, host::Server& server, PageSetting setting)
    : loop_(loop),
      server_(server),
      setting_(std::move(setting)),
      life_(std::make_shared<const bool>(true)),
      clients_(loop, server),
      picture_(loop, setting_.ghostscript,
               [this](const Picture::Result& result) { notePicture(result); }) {
  if (setting_.isForAuthor) {
    auto watched = watch_.addFile(setting_.worker.request.description);
    if (watched) watched = host::watchBeside(setting_.worker.request.description, watch_);
    if (!watched) watchProblem_ = watched.error();
    loop_.watch(watch_.descriptor(), POLLIN, [this](short) { noteFile(); });
  }
  Worker::Listener listener;
  listener.loaded = [this](const Json& state) { noteLoaded(state); };
  listener.failed = [this](const std::string& why) { noteFailed(why); };
  listener.crashed = [this](const std::string& what) { noteCrash(what); };
  listener.changed = [this](const Json& state, const std::string& text) {
    clients_.send("state", text);
    noteState(state);
  };
  worker_ = std::make_unique<Worker>(loop_, setting_.worker, std::move(listener));
}

Page::~Page() {
  if (quiet_) loop_.cancel(*quiet_);
  if (setting_.isForAuthor) loop_.forget(watch_.descriptor());
  for (const host::RequestNumber number : expected_) {
    server_.reply(number, host::plainResponse(HTTP_STATUS_SERVICE_UNAVAILABLE));
  }
}

void Page::noteFile() {
  if (!watch_.takeChanges()) return;
  if (quiet_) loop_.cancel(*quiet_);
  quiet_ = loop_.after(kQuiet, [this] {
    quiet_.reset();
    worker_->loadAnew();
  });
}

void Page::noteLoaded(const Json& state) {
  check_.reset();
  ended_.clear();
  findings_ = "[]";
  postScriptSerial_ = 0;
  tellModel();
  noteState(state);
}

void Page::noteFailed(const std::string& why) {
  ended_ = why;
  findings_ = "[]";
  postScriptSerial_ = 0;
  for (const auto& [number, serial] : std::exchange(pictureWaits_, {})) {
    reply(number, host::plainResponse(HTTP_STATUS_NOT_FOUND));
  }
  find(check_, [this](const std::string& findings) {
    findings_ = findings;
    tellModel();
  });
  // A check may take long.
  if (check_) tellModel();
}

void Page::noteCrash(const std::string& what) {
  find(crashCheck_, [this, what](const std::string& findings) {
    clients_.send("crash", jsonText({{"text", what}, {"findings", Json::parse(findings)}}));
  });
}

// A search that has not ended is given up for the new one.
void Page::find(std::unique_ptr<ChildText>& check,
                const std::function<void(const std::string& findings)>& then) {
  check.reset();
  if (!setting_.check) return then("[]");
  auto started = setting_.check(loop_, setting_.worker.request, then);
  if (!started) return then("[]");
  check = std::move(*started);
}

void Page::tellModel() {
  clients_.send("model", presence());
}

std::string Page::presence() const {
  return jsonText({{"revision", worker_->revision()},
                   {"serial", worker_->serial()},
                   {"loaded", !worker_->hasFailed()}});
}

std::string Page::notLoaded() const {
  return jsonText({{"revision", worker_->revision()},
                   {"serial", worker_->serial()},
                   {"loaded", false},
                   {"mode", setting_.isForAuthor ? "preview" : "printer"},
                   {"ok", false},
                   {"problem", "The description is not loaded."},
                   {"file", setting_.worker.request.description.substr(
                                setting_.worker.request.description.rfind('/') + 1)},
                   // Visitors can do nothing about it.
                   {"ended", setting_.isForAuthor ? ended_ : ""},
                   {"findings", Json::parse(findings_)}});
}

// A picture is drawn again when the PostScript is another one.
void Page::noteState(const Json& state) {
  const auto output = Json::json_pointer("/outputs/ps");
  if (!state.contains(output) || !state[output].contains("text")) return;
  std::string text = textAfter(state[output], postScript_);
  if (text == postScript_ && postScriptSerial_ != 0) return;
  postScript_ = std::move(text);
  postScriptSerial_ = worker_->serial();
  wantPicture();
}

void Page::wantPicture() {
  const bool isWanted = !clients_.isEmpty() || !pictureWaits_.empty();
  if (!isWanted || postScriptSerial_ == 0 || drawnSerial_ == postScriptSerial_) return;
  drawnSerial_ = postScriptSerial_;
  picture_.want(drawnSerial_, postScript_);
}

void Page::notePicture(const Picture::Result& result) {
  pictureResult_ = result;
  clients_.send("picture", pictureText());
  const auto isDone = [&](const auto& wait) {
    return result.serial >= wait.second || result.serial == postScriptSerial_;
  };
  const auto done = std::stable_partition(pictureWaits_.begin(), pictureWaits_.end(),
                                          [&](const auto& wait) { return !isDone(wait); });
  const std::vector<std::pair<host::RequestNumber, long>> replied(done, pictureWaits_.end());
  pictureWaits_.erase(done, pictureWaits_.end());
  for (const auto& [number, serial] : replied) reply(number, pictureResponse());
}

bool Page::isPictureCurrent() const {
  return postScriptSerial_ != 0 && pictureResult_.serial == postScriptSerial_;
}

std::string Page::pictureText() const {
  return jsonText({{"serial", pictureResult_.serial},
                   {"device", Json::parse(pictureResult_.device)},
                   {"problem", pictureResult_.problem}});
}

host::Response Page::pictureResponse() const {
  if (!pictureResult_.png.empty()) return {HTTP_STATUS_OK, "image/png", pictureResult_.png};
  return {HTTP_STATUS_NOT_FOUND, "text/plain; charset=utf-8", pictureResult_.problem + "\n"};
}

}  // namespace driver_feature::page_server
