// How a connection reads its requests.
#include "host/server/connection.h"

#include <array>
#include <utility>

#include "host/base/text.h"
#include "host/server/head_field.h"

namespace driver_feature::host {

namespace {

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
  return readFields(resource.data(), state);
}

bool Connection::readFields(std::string resource, http_state_t state) {
  // Reads the fields. It does nothing, and says that there is more, where libcups
  // has found a fault.
  const http_status_t status = ::httpUpdate(relay_.http());
  request_.path = std::move(resource);
  const std::size_t mark = std::min(request_.path.find('?'), request_.path.size());
  if (mark < request_.path.size()) request_.query = request_.path.substr(mark + 1);
  request_.path.erase(mark);
  request_.host = fieldOf(relay_.http(), HTTP_FIELD_HOST);
  std::string type = fieldOf(relay_.http(), HTTP_FIELD_CONTENT_TYPE);
  type.erase(std::min(type.find(';'), type.size()));
  request_.contentType = toLower(std::string(trimmed(type, " \t")));
  request_.isEncrypted = relay_.isEncrypted();
  // libcups knows from the version of HTTP only.
  const std::string connection = toLower(fieldOf(relay_.http(), HTTP_FIELD_CONNECTION));
  isLast_ = ::httpGetKeepAlive(relay_.http()) == HTTP_KEEPALIVE_OFF ||
            connection.find("close") != std::string::npos;
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

}  // namespace driver_feature::host
