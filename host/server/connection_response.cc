// How a connection writes its responses.
#include "host/server/connection.h"

namespace driver_feature::host {

Response plainResponse(http_status_t status) {
  return {status, "text/plain; charset=utf-8",
          std::to_string(static_cast<int>(status)) + " " + ::httpStatus(status) + "\n"};
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
  // 0 means chunks.
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

}  // namespace driver_feature::host
