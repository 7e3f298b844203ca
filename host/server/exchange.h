// A request and its response.
#ifndef HOST_SERVER_EXCHANGE_H_
#define HOST_SERVER_EXCHANGE_H_

#include <cups/http.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace driver_feature::host {

enum class Method { kGet, kHead, kPost };

// The number of a request, for a response that comes later.
using RequestNumber = std::uint64_t;

struct Request {
  Method method = Method::kGet;
  std::string path;         // Not decoded; without the part after "?".
  std::string query;        // That part, without the "?"; not decoded either.
  std::string host;         // Of the field Host, with the port.
  std::string origin;       // Of the field Origin.
  std::string fetchSite;    // Of the field Sec-Fetch-Site.
  std::string contentType;  // Without parameters, in small letters.
  std::string peer;         // The client's address.
  bool isEncrypted = false;
  RequestNumber number = 0;
};

struct Field {
  std::string name, value;  // Of one line each.
};

struct Response {
  http_status_t status = HTTP_STATUS_OK;
  std::string contentType;
  std::string body;
  std::vector<Field> fields = {};  // More of them.
  // When it is set, the response to a GET stays open after the body, for
  // Server::sendMore(), and this is called once when the client has gone or has
  // been dropped.
  std::function<void()> isOver = {};
};

// Takes the body of one request, piece by piece. Destroyed when the request has
// its response, and when the client has gone before.
class BodyTaker {
 public:
  virtual ~BodyTaker() = default;

  // The next piece. A response ends the request early.
  virtual std::optional<Response> take(std::string_view bytes) = 0;

  // The body is whole. Without a response, Server::reply() sends one later.
  virtual std::optional<Response> finish(RequestNumber request) = 0;
};

// Handles a request whose head has arrived: the response, or the taker of its
// body. A body without a taker is dropped.
using Handler = std::function<std::variant<Response, std::unique_ptr<BodyTaker>>(const Request&)>;

// A response that says what the status means, as plain text.
Response plainResponse(http_status_t status);

}  // namespace driver_feature::host

#endif  // HOST_SERVER_EXCHANGE_H_
