// Takers of requests whose response comes later.
#ifndef HOST_PAGE_SERVER_TAKERS_H_
#define HOST_PAGE_SERVER_TAKERS_H_

#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "host/server/exchange.h"

namespace driver_feature::page_server {

// Gathers a body of limited size, and hands it on with the number of the request. A
// page may end while a body still comes: who takes it must be alive then.
class WholeBody final : public host::BodyTaker {
 public:
  using Then = std::function<void(host::RequestNumber request, const std::string& body)>;

  WholeBody(std::size_t most, std::weak_ptr<const void> taker, Then then)
      : most_(most), taker_(std::move(taker)), then_(std::move(then)) {}

  std::optional<host::Response> take(std::string_view bytes) override {
    if (bytes.size() > most_ - body_.size()) {
      return host::plainResponse(HTTP_STATUS_REQUEST_TOO_LARGE);
    }
    body_ += bytes;
    return std::nullopt;
  }
  std::optional<host::Response> finish(host::RequestNumber request) override {
    if (taker_.expired()) return host::plainResponse(HTTP_STATUS_SERVICE_UNAVAILABLE);
    then_(request, body_);
    return std::nullopt;
  }

 private:
  std::size_t most_;
  std::weak_ptr<const void> taker_;
  Then then_;
  std::string body_;
};

}  // namespace driver_feature::page_server

#endif  // HOST_PAGE_SERVER_TAKERS_H_
