// For tests: servers in threads of their own, and one that gives back what it is sent.
#ifndef HOST_SERVER_SERVER_FIXTURE_H_
#define HOST_SERVER_SERVER_FIXTURE_H_

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "host/server/server.h"
#include "support/loopback_client.h"

namespace driver_feature::host {

// Responds with the body it got; "early" ends a request, "later" is answered by
// another one.
class EchoTaker final : public BodyTaker {
 public:
  explicit EchoTaker(RequestNumber* waiting) : waiting_(waiting) {}
  std::optional<Response> take(std::string_view bytes) override {
    body_ += bytes;
    if (body_.starts_with("early")) return plainResponse(HTTP_STATUS_REQUEST_TOO_LARGE);
    return std::nullopt;
  }
  std::optional<Response> finish(RequestNumber request) override {
    if (body_ == "later") {
      *waiting_ = request;
      return std::nullopt;
    }
    return Response{HTTP_STATUS_OK, "text/x", body_};
  }

 private:
  RequestNumber* waiting_;
  std::string body_;
};

// A server in a thread of its own, which ends with the test.
class ServingTest : public ::testing::Test {
 protected:
  // Begins to listen, at a port that is free.
  void serve(std::unique_ptr<Server> server) {
    server_ = std::move(server);
    ASSERT_TRUE(server_->listen("127.0.0.1:0"));
    const std::string place = server_->places().front();
    port_ = std::stoi(place.substr(place.rfind(':') + 1));
    thread_.emplace(loop_);
  }

  void TearDown() override {
    thread_.reset();
    server_.reset();
  }

  EventLoop loop_;
  std::unique_ptr<Server> server_;
  std::optional<test::LoopThread> thread_;
  int port_ = 0;
};

class ServerTest : public ServingTest {
 protected:
  void start(Limits limits = {}) {
    serve(std::make_unique<Server>(
        loop_, limits,
        [this](const Request& request) -> std::variant<Response, std::unique_ptr<BodyTaker>> {
          if (request.method == Method::kPost) return std::make_unique<EchoTaker>(&waiting_);
          if (request.path == "/reply")
            server_->reply(waiting_, {HTTP_STATUS_OK, "text/x", "late"});
          if (request.path == "/long")
            return Response{HTTP_STATUS_OK, "text/x", std::string(3000000, 'x')};
          return Response{HTTP_STATUS_OK, "text/x", "page " + request.path};
        }));
  }

  RequestNumber waiting_ = 0;
};

using Client = test::LoopbackClient;

// The status line without HTTP/1.1 and the body.
inline std::string brief(const std::string& response) {
  const std::size_t line = response.find("\r\n");
  const std::size_t head = response.find("\r\n\r\n");
  if (head == std::string::npos) return response;
  return response.substr(9, line - 9) + ": " + response.substr(head + 4);
}

inline const std::string kHost = "Host: localhost\r\n";
inline const std::string kPost = "POST /x HTTP/1.1\r\n" + kHost;

}  // namespace driver_feature::host

#endif  // HOST_SERVER_SERVER_FIXTURE_H_
