// Responses that stay open, and fields of requests and responses.
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <memory>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "host/server/head_field.h"
#include "host/server/server.h"
#include "host/server/server_fixture.h"
#include "support/loopback_client.h"

namespace driver_feature::host {
namespace {

using test::LoopbackClient;

constexpr int kMostWaits = 1000;
const std::string kOwnHost = "Host: localhost\r\n";

// "/open" stays open, "/more" sends a piece to those that are, "/end" ends them.
class OpenResponseTest : public ServingTest {
 protected:
  void start(const Limits& limits = {}, const Identity& identity = {}) {
    auto server = std::make_unique<Server>(
        loop_, limits, [this](const Request& request) { return handle(request); });
    server->introduceAs(identity);
    serve(std::move(server));
  }

  std::variant<Response, std::unique_ptr<BodyTaker>> handle(const Request& request) {
    if (request.path == "/open") {
      open_.push_back(request.number);
      return Response{HTTP_STATUS_OK, "text/x", "first\n", {}, [this] { ++gone_; }};
    }
    if (request.path == "/more") {
      for (const RequestNumber number : open_) server_->sendMore(number, piece_);
    }
    if (request.path == "/end") {
      for (const RequestNumber number : open_) server_->finish(number);
    }
    return Response{
        HTTP_STATUS_OK,
        "text/x",
        request.path + " ? " + request.query + " | " + request.origin + " | " + request.fetchSite,
        {{"X-First", "1"}, {"X-Second", "two"}}};
  }

  static std::string get(const std::string& path) {
    return "GET " + path + " HTTP/1.1\r\n" + kOwnHost + "\r\n";
  }

  // What one request on a connection of its own returns.
  std::string once(const std::string& path) {
    LoopbackClient client(port_);
    client.send(get(path));
    return client.receiveUpTo(" |  | ");
  }

  bool isGone(int count) {
    for (int i = 0; i < kMostWaits && gone_ < count; ++i) {
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return gone_ == count;
  }

  std::vector<RequestNumber> open_;
  std::string piece_ = "more\n";
  std::atomic<int> gone_ = 0;
};

TEST_F(OpenResponseTest, Pieces_ArriveAsTheyAreSent_UntilTheEnd) {
  start();
  LoopbackClient client(port_);
  client.send(get("/open"));
  const std::string head = client.receiveUpTo("\r\n\r\n");
  EXPECT_NE(head.find("Transfer-Encoding: chunked\r\n"), std::string::npos) << head;
  EXPECT_EQ(client.receiveUpTo("first\n\r\n"), "6\r\nfirst\n\r\n");
  once("/more");
  EXPECT_EQ(client.receiveUpTo("more\n\r\n"), "5\r\nmore\n\r\n");
  EXPECT_EQ(gone_, 0);
  once("/end");
  EXPECT_EQ(client.receiveUpTo("never"), "0\r\n\r\n(end)");
}

TEST_F(OpenResponseTest, ClientGoes_IsNoticedOnce) {
  start();
  {
    LoopbackClient client(port_);
    client.send(get("/open"));
    client.receiveUpTo("first");
  }
  EXPECT_TRUE(isGone(1));
  EXPECT_NE(once("/more").find("200 OK"), std::string::npos);
  EXPECT_TRUE(isGone(1));
}

TEST_F(OpenResponseTest, ClientDoesNotRead_IsDroppedBeforeMuchIsKept) {
  Limits limits;
  limits.unsentBytes = 1000000;
  piece_ = std::string(500000, 'x');
  start(limits);
  LoopbackClient client(port_);
  client.send(get("/open"));
  client.receiveUpTo("first");
  for (int i = 0; i < 60 && gone_ == 0; ++i) once("/more");
  EXPECT_TRUE(isGone(1));
}

TEST_F(OpenResponseTest, ClientIsBehindForTooLong_IsDropped) {
  Limits limits;
  limits.quiet = std::chrono::milliseconds(40);
  piece_ = std::string(8000000, 'x');
  start(limits);
  LoopbackClient client(port_);
  client.send(get("/open"));
  client.receiveUpTo("first");
  once("/more");
  EXPECT_TRUE(isGone(1));
}

TEST_F(OpenResponseTest, SilentButReadingClient_StaysWithinAnyTime) {
  Limits limits;
  limits.quiet = limits.idle = std::chrono::milliseconds(20);
  start(limits);
  LoopbackClient client(port_);
  client.send(get("/open"));
  client.receiveUpTo("first\n\r\n");
  std::this_thread::sleep_for(std::chrono::milliseconds(100));
  once("/more");
  EXPECT_EQ(client.receiveUpTo("more\n\r\n"), "5\r\nmore\n\r\n");
}

TEST_F(OpenResponseTest, HeadOfAnOpenResponse_Ends) {
  start();
  LoopbackClient client(port_);
  client.send("HEAD /open HTTP/1.1\r\n" + kOwnHost + "\r\n" + get("/a"));
  client.receiveUpTo("\r\n\r\n");
  EXPECT_NE(client.receiveUpTo(" |  | ").find("\r\n\r\n/a ? "), std::string::npos);
}

TEST_F(OpenResponseTest, Requests_HaveTheirFieldsAndQuery_ResponsesTheirs) {
  start();
  LoopbackClient client(port_);
  client.send("GET /a?b=c?d HTTP/1.1\r\n" + kOwnHost +
              "origin:  http://x:1\r\nSEC-fetch-SITE: same-origin\t\r\n\r\n");
  const std::string head = client.receiveUpTo("\r\n\r\n");
  EXPECT_NE(head.find("\r\nServer: driver-feature-printer\r\nX-First: 1\r\nX-Second: two\r\n"),
            std::string::npos)
      << head;
  EXPECT_EQ(client.receiveUpTo("origin"), "/a ? b=c?d | http://x:1 | same-origin");
}

TEST_F(OpenResponseTest, ForeignHost_HasTheStatusThatIsWanted) {
  start({}, {"driver-feature-preview", HTTP_STATUS_FORBIDDEN});
  LoopbackClient client(port_);
  client.send("GET / HTTP/1.1\r\nHost: example.com\r\n\r\n");
  const std::string head = client.receiveUpTo("\r\n\r\n");
  EXPECT_EQ(head.substr(0, 24), "HTTP/1.1 403 Forbidden\r\n");
  EXPECT_NE(head.find("\r\nServer: driver-feature-preview\r\n"), std::string::npos) << head;
}

TEST(HeadField, Values_AreThoseOfTheWholeName) {
  const std::string head =
      "GET / HTTP/1.1\r\nX-Origin: a\r\nOrigin : b\r\nOrigin:c:d \r\norigin: e\n\r\n";
  EXPECT_EQ(headField(head, "origin"), "c:d, e");
  EXPECT_EQ(headField(head, "host"), "");
}

}  // namespace
}  // namespace driver_feature::host
