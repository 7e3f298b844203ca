#include "host/server/connection.h"

#include <poll.h>

#include <array>
#include <utility>

#include "host/base/text.h"
#include "host/server/head_field.h"

namespace driver_feature::host {

namespace {

constexpr std::size_t kPiece = 16384;  // Fits into a socket at once.

std::string fieldOf(http_t* http, http_field_t field) {
  const char* value = ::httpGetField(http, field);
  return value == nullptr ? "" : value;
}

// "localhost:8631" without the port, "[::1]:8631" without port and brackets.
std::string nameIn(std::string host) {
  if (host.starts_with('[')) {
    const std::size_t end = host.find(']');
    return end == std::string::npos ? "" : host.substr(1, end - 1);
  }
  host.erase(std::min(host.find(':'), host.size()));
  if (host.ends_with('.')) host.pop_back();
  return toLower(std::move(host));
}

}  // namespace

Response plainResponse(http_status_t status) {
  return {status, "text/plain; charset=utf-8",
          std::to_string(static_cast<int>(status)) + " " + ::httpStatus(status) + "\n"};
}

Connection::Connection(Relay relay, RequestNumber number, ConnectionSetting setting)
    : relay_(std::move(relay)),
      number_(number),
      setting_(std::move(setting)),
      framing_(setting_.limits.headBytes) {
  setting_.loop.watch(relay_.network(), POLLIN, [this](short events) { handle(events); });
  enter(Phase::kIdle);
}

Connection::~Connection() {
  if (timer_) setting_.loop.cancel(*timer_);
  setting_.loop.forget(relay_.network());
}

void Connection::handle(short events) {
  if ((events & POLLNVAL) != 0) return end();
  if ((events & (POLLERR | POLLHUP)) != 0 && (events & POLLIN) == 0) return end();
  const bool mayBegin = phase_ == Phase::kIdle && setting_.encryption.credentials;
  if (mayBegin && relay_.hasHandshake()) return beginEncryption();
  if (phase_ == Phase::kHandshake) return shakeHands();
  if ((events & POLLOUT) != 0 && !relay_.send()) return end();
  if ((events & POLLIN) != 0) isAtEnd_ = !relay_.receive() || isAtEnd_;
  proceed();
}

void Connection::proceed() {
  while (phase_ != Phase::kOver && step()) {
  }
  if (phase_ == Phase::kOver) return;
  // A client that has closed its side gets its response, but nothing is waited for.
  const bool isWaiting = phase_ != Phase::kThinking && phase_ != Phase::kSending;
  if (isAtEnd_ && isWaiting) return end();
  const bool mayRead = !isAtEnd_ && isWaiting;
  const int events = (mayRead ? POLLIN : 0) | (relay_.hasUnsent() ? POLLOUT : 0);
  setting_.loop.change(relay_.network(), static_cast<short>(events));
}

// One step of the phase. False when it must wait.
bool Connection::step() {
  switch (phase_) {
    case Phase::kIdle:
      // Line ends between requests are allowed.
      while (relay_.incoming().starts_with('\r') || relay_.incoming().starts_with('\n')) {
        relay_.drop(1);
      }
      if (relay_.incoming().empty()) return false;
      framing_.expectHead();
      enter(Phase::kHead);
      return true;
    case Phase::kHead:
      return readHead();
    case Phase::kBody:
      return readBody();
    case Phase::kSending:
      if (!relay_.send()) {
        end();
        return false;
      }
      if (relay_.hasUnsent()) return false;
      afterSending();
      return true;
    case Phase::kOpen:
      // Nothing is expected of the client but that it reads.
      relay_.drop(relay_.incoming().size());
      if (!relay_.send()) end();
      isBehind_ = isBehind_ && relay_.hasUnsent();
      return false;
    case Phase::kLingering:
      relay_.drop(relay_.incoming().size());
      return false;
    default:
      return false;
  }
}

bool Connection::readHead() {
  const std::size_t count = framing_.take(relay_.incoming());
  if (framing_.isMalformed()) {
    end();
    return false;
  }
  if (count == 0) return false;
  const std::string_view head = relay_.incoming().substr(0, count);
  const bool isCoded = hasCodedBody(head);
  request_ = {};
  request_.number = number_;
  request_.origin = headField(head, "origin");
  request_.fetchSite = headField(head, "sec-fetch-site");
  if (head.find('\0') != std::string_view::npos || !relay_.handOn(count)) {
    end();
    return false;
  }
  std::array<char, 1024> resource{};
  const http_state_t state = ::httpReadRequest(relay_.http(), resource.data(), resource.size());
  if (state == HTTP_STATE_ERROR || state == HTTP_STATE_WAITING) {
    end();
    return false;
  }
  if (state != HTTP_STATE_POST && state != HTTP_STATE_GET && state != HTTP_STATE_HEAD &&
      state != HTTP_STATE_OPTIONS) {
    respond(plainResponse(HTTP_STATUS_NOT_IMPLEMENTED), true);
    return true;
  }
  // Refused before libcups reads the field: what it decodes with, it does not free.
  if (isCoded) {
    respond(plainResponse(HTTP_STATUS_BAD_REQUEST), true);
    return true;
  }
  // Reads the fields. It does nothing, and says that there is more, where libcups
  // has found a fault.
  const http_status_t status = ::httpUpdate(relay_.http());
  request_.path = resource.data();
  const std::size_t mark = std::min(request_.path.find('?'), request_.path.size());
  if (mark < request_.path.size()) request_.query = request_.path.substr(mark + 1);
  request_.path.erase(mark);
  request_.host = fieldOf(relay_.http(), HTTP_FIELD_HOST);
  std::string type = fieldOf(relay_.http(), HTTP_FIELD_CONTENT_TYPE);
  type.erase(std::min(type.find(';'), type.size()));
  request_.contentType = toLower(std::string(trimmed(type, " \t")));
  request_.isEncrypted = relay_.isEncrypted();
  isLast_ = ::httpGetKeepAlive(relay_.http()) == HTTP_KEEPALIVE_OFF;
  if (status != HTTP_STATUS_OK) {
    respond(plainResponse(HTTP_STATUS_BAD_REQUEST), true);
    return true;
  }
  return route(state);
}

bool Connection::route(http_state_t state) {
  http_t* http = relay_.http();
  const auto refuse = [this](http_status_t status) {
    respond(plainResponse(status), true);
    return true;
  };
  // A page of another place must not reach this server by a name of its own.
  if (!setting_.isOwnName(nameIn(request_.host))) return refuse(setting_.identity.foreignName);
  if (state == HTTP_STATE_OPTIONS) return respondToOptions();
  if (setting_.encryption.isRequired && !relay_.isEncrypted()) {
    return refuse(HTTP_STATUS_UPGRADE_REQUIRED);
  }
  const std::string length = fieldOf(http, HTTP_FIELD_CONTENT_LENGTH);
  const bool isChunked = ::httpIsChunked(http) != 0;
  request_.method = state == HTTP_STATE_POST   ? Method::kPost
                    : state == HTTP_STATE_HEAD ? Method::kHead
                                               : Method::kGet;
  if (request_.method != Method::kPost) {
    if (isChunked || (!length.empty() && length != "0")) return refuse(HTTP_STATUS_BAD_REQUEST);
  } else if (isChunked == !length.empty()) {
    return refuse(HTTP_STATUS_BAD_REQUEST);
  }
  const std::uint64_t bodyBytes =
      request_.method == Method::kPost ? static_cast<std::uint64_t>(::httpGetLength2(http)) : 0;
  if (!isChunked && bodyBytes > setting_.limits.bodyBytes) {
    return refuse(HTTP_STATUS_REQUEST_TOO_LARGE);
  }
  auto made = setting_.handler(request_);
  if (Response* response = std::get_if<Response>(&made)) {
    respond(*response, request_.method == Method::kPost);
    return true;
  }
  taker_ = std::move(std::get<std::unique_ptr<BodyTaker>>(made));
  if (::httpGetExpect(http) == HTTP_STATUS_CONTINUE) {
    ::httpWriteResponse(http, HTTP_STATUS_CONTINUE);
    ::httpFlushWrite(http);
    relay_.collect();
    if (!relay_.send()) {
      end();
      return false;
    }
  }
  bodyBytes_ = 0;
  isChunked ? framing_.expectChunks() : framing_.expectBytes(bodyBytes);
  enter(Phase::kBody);
  return true;
}

// Clients ask for encryption of a connection that has begun without it by this
// request, whose response is encrypted, then.
bool Connection::respondToOptions() {
  http_t* http = relay_.http();
  const std::string length = fieldOf(http, HTTP_FIELD_CONTENT_LENGTH);
  if (::httpIsChunked(http) != 0 || (!length.empty() && length != "0")) {
    respond(plainResponse(HTTP_STATUS_BAD_REQUEST), true);
    return true;
  }
  const bool isUpgrade = setting_.encryption.credentials && !relay_.isEncrypted() &&
                         fieldOf(http, HTTP_FIELD_UPGRADE).find("TLS/") != std::string::npos;
  ::httpClearFields(http);
  ::httpSetField(http, HTTP_FIELD_ALLOW, "GET, HEAD, OPTIONS, POST");
  ::httpSetField(http, HTTP_FIELD_CONTENT_LENGTH, "0");
  ::httpWriteResponse(http, HTTP_STATUS_OK);
  if (!isUpgrade) {
    relay_.collect();
    enter(Phase::kSending);
    return true;
  }
  relay_.add(
      "HTTP/1.1 101 Switching Protocols\r\nConnection: Upgrade\r\nUpgrade: TLS/1.2, HTTP/1.1\r\n"
      "\r\n");
  // It is short: where it finds no room the client does not read.
  if (!relay_.send() || relay_.hasUnsent()) {
    end();
    return false;
  }
  isUpgrading_ = true;
  beginEncryption();
  return false;
}

void Connection::beginEncryption() {
  if (!relay_.encrypt(setting_.encryption.credentials)) return end();
  enter(Phase::kHandshake);
  shakeHands();
}

void Connection::shakeHands() {
  const TlsSession::Step step = relay_.shakeHands();
  if (step == TlsSession::Step::kFailed) return end();
  if (step != TlsSession::Step::kDone) {
    const bool needsRoom = step == TlsSession::Step::kNeedsRoom;
    return setting_.loop.change(relay_.network(), needsRoom ? POLLOUT : POLLIN);
  }
  if (std::exchange(isUpgrading_, false)) {
    relay_.collect();
    enter(Phase::kSending);
  } else {
    enter(Phase::kIdle);
  }
  isAtEnd_ = !relay_.receive() || isAtEnd_;
  proceed();
}

bool Connection::readBody() {
  if (relay_.hasUnsent() && !relay_.send()) {
    end();
    return false;
  }
  const std::size_t count = framing_.take(relay_.incoming().substr(0, kPiece));
  if (framing_.isMalformed()) {
    respond(plainResponse(HTTP_STATUS_BAD_REQUEST), true);
    return true;
  }
  if (count == 0 && !framing_.isDone()) return false;
  if (count > 0 && !relay_.handOn(count)) {
    end();
    return false;
  }
  if (!pump()) return true;
  return !framing_.isDone() || finishBody();
}

// Gives the taker what has been handed on. False when it has responded.
bool Connection::pump() {
  std::array<char, kPiece> buffer;
  while (::httpGetState(relay_.http()) == HTTP_STATE_POST_RECV && relay_.hasMore()) {
    const ssize_t count = ::httpRead2(relay_.http(), buffer.data(), buffer.size());
    if (count <= 0) break;
    bodyBytes_ += static_cast<std::uint64_t>(count);
    if (bodyBytes_ > setting_.limits.bodyBytes) {
      respond(plainResponse(HTTP_STATUS_REQUEST_TOO_LARGE), true);
      return false;
    }
    if (auto response = taker_->take({buffer.data(), static_cast<std::size_t>(count)})) {
      respond(*response, true);
      return false;
    }
  }
  return true;
}

bool Connection::finishBody() {
  if (::httpGetState(relay_.http()) == HTTP_STATE_POST_RECV) {
    // An empty body: libcups goes on to the response when it is asked for more.
    char none = 0;
    ::httpRead2(relay_.http(), &none, 1);
  }
  enter(Phase::kThinking);
  if (auto response = taker_->finish(number_)) respond(*response, false);
  return true;
}

void Connection::reply(const Response& response) {
  if (phase_ != Phase::kThinking) return;
  respond(response, false);
  proceed();
}

void Connection::respond(const Response& response, bool isLast) {
  taker_.reset();
  const bool isOpen = response.isOver && request_.method != Method::kHead;
  if (isOpen) isOver_ = response.isOver;
  // libcups does not go on after a response without a body.
  isLast_ = isLast_ || isLast || isOpen || response.body.empty();
  writeOut(response);
  enter(isOpen ? Phase::kOpen : Phase::kSending);
}

void Connection::sendMore(std::string_view bytes) {
  if (phase_ != Phase::kOpen) return;
  writeBody(bytes);
  if (!relay_.send() || relay_.unsent() > setting_.limits.unsentBytes) return end();
  proceed();
}

void Connection::finish() {
  if (phase_ != Phase::kOpen) return;
  ::httpWrite2(relay_.http(), "", 0);
  relay_.collect();
  enter(Phase::kSending);
  proceed();
}

void Connection::writeOut(const Response& response) {
  http_t* http = relay_.http();
  ::httpClearFields(http);
  // libcups writes the fields that it knows, and writes them as they are given: the
  // others follow the value of one that it knows.
  std::string server = setting_.identity.program;
  for (const Field& field : response.fields) server += "\r\n" + field.name + ": " + field.value;
  ::httpSetField(http, HTTP_FIELD_SERVER, server.c_str());
  ::httpSetField(http, HTTP_FIELD_CONTENT_TYPE, response.contentType.c_str());
  const bool isOpen = response.isOver && request_.method != Method::kHead;
  // 0 stands for chunks.
  ::httpSetLength(http, isOpen ? 0 : response.body.size());
  ::httpSetKeepAlive(http, isLast_ ? HTTP_KEEPALIVE_OFF : HTTP_KEEPALIVE_ON);
  if (isLast_) ::httpSetField(http, HTTP_FIELD_CONNECTION, "close");
  ::httpWriteResponse(http, response.status);
  writeBody(request_.method == Method::kHead ? std::string_view() : response.body);
  // Otherwise libcups would not read the next request.
  if (::httpGetState(http) != HTTP_STATE_WAITING) isLast_ = true;
}

void Connection::writeBody(std::string_view body) {
  http_t* http = relay_.http();
  for (std::size_t done = 0; done < body.size(); done += kPiece) {
    const std::string_view piece = body.substr(done, kPiece);
    ::httpWrite2(http, piece.data(), piece.size());
    relay_.collect();
  }
  ::httpFlushWrite(http);
  relay_.collect();
}

void Connection::afterSending() {
  if (!isLast_) return enter(Phase::kIdle);
  // Bytes that come after the end of a connection would make the client lose
  // the response.
  relay_.endSending();
  enter(Phase::kLingering);
}

void Connection::enter(Phase phase) {
  phase_ = phase;
  if (timer_) setting_.loop.cancel(*timer_);
  timer_.reset();
  counted_ = phase == Phase::kBody ? bodyBytes_ : relay_.unsent();
  const Limits& limits = setting_.limits;
  if (phase == Phase::kIdle) timer_ = setting_.loop.after(limits.idle, [this] { end(); });
  const bool isHead = phase == Phase::kHead || phase == Phase::kHandshake;
  if (isHead) timer_ = setting_.loop.after(limits.head, [this] { end(); });
  if (phase == Phase::kLingering) timer_ = setting_.loop.after(limits.linger, [this] { end(); });
  if (phase == Phase::kBody || phase == Phase::kSending) watchRate();
  if (phase == Phase::kOpen) watchOpen();
}

// Ends the connection when too little has moved since the last look.
void Connection::watchRate() {
  timer_ = setting_.loop.after(setting_.limits.quiet, [this] {
    timer_.reset();
    const std::uint64_t now = phase_ == Phase::kBody ? bodyBytes_ : relay_.unsent();
    const std::uint64_t moved = phase_ == Phase::kBody ? now - counted_ : counted_ - now;
    if (moved < setting_.limits.bodyRate) return end();
    counted_ = now;
    watchRate();
  });
}

// Ends an open response when the client has been behind since the last look.
void Connection::watchOpen() {
  timer_ = setting_.loop.after(setting_.limits.quiet, [this] {
    timer_.reset();
    if (isBehind_) return end();
    isBehind_ = relay_.hasUnsent();
    watchOpen();
  });
}

void Connection::end() {
  if (phase_ == Phase::kOver) return;
  phase_ = Phase::kOver;
  taker_.reset();
  setting_.loop.change(relay_.network(), 0);
  if (timer_) setting_.loop.cancel(*timer_);
  // The connection is not destroyed while it runs.
  timer_ = setting_.loop.after(EventLoop::Milliseconds(0), [this] {
    timer_.reset();
    if (const auto isOver = std::exchange(isOver_, {})) isOver();
    const auto isOver = setting_.isOver;
    isOver(number_);
  });
}

}  // namespace driver_feature::host
