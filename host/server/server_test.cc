#include "host/server/server.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <ctime>
#include <memory>
#include <optional>
#include <string>
#include <thread>

#include "support/address_checks.h"
#include "support/loopback_client.h"

namespace driver_feature::host {
namespace {

using std::chrono::milliseconds;

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

class ServerTest : public ::testing::Test {
 protected:
  void start(Limits limits = {}) {
    server_ = std::make_unique<Server>(
        loop_, limits,
        [this](const Request& request) -> std::variant<Response, std::unique_ptr<BodyTaker>> {
          if (request.method == Method::kPost) return std::make_unique<EchoTaker>(&waiting_);
          if (request.path == "/reply")
            server_->reply(waiting_, {HTTP_STATUS_OK, "text/x", "late"});
          if (request.path == "/long")
            return Response{HTTP_STATUS_OK, "text/x", std::string(3000000, 'x')};
          return Response{HTTP_STATUS_OK, "text/x", "page " + request.path};
        });
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
  RequestNumber waiting_ = 0;
  int port_ = 0;
};

using Client = test::LoopbackClient;

void sendSlowly(Client& client, const std::string& text) {
  for (const char byte : text) {
    client.send(std::string(1, byte));
    std::this_thread::sleep_for(milliseconds(1));
  }
}

// The status line without HTTP/1.1 and the body.
std::string brief(const std::string& response) {
  const std::size_t line = response.find("\r\n");
  const std::size_t head = response.find("\r\n\r\n");
  if (head == std::string::npos) return response;
  return response.substr(9, line - 9) + ": " + response.substr(head + 4);
}

const std::string kHost = "Host: localhost\r\n";
const std::string kPost = "POST /x HTTP/1.1\r\n" + kHost;

TEST_F(ServerTest, Get_TwoOnOneConnection_HaveTheirResponses) {
  start();
  Client client(port_);
  client.send("GET /a HTTP/1.1\r\n" + kHost + "\r\nGET /b?c HTTP/1.1\r\n" + kHost + "\r\n");
  EXPECT_EQ(brief(client.receiveUpTo("page /a")), "200 OK: page /a");
  EXPECT_EQ(brief(client.receiveUpTo("page /b")), "200 OK: page /b");
}

TEST_F(ServerTest, Get_ClientWantsTheEnd_ConnectionEndsAfterTheResponse) {
  start();
  Client client(port_);
  client.send("GET /a HTTP/1.1\r\n" + kHost + "Connection: Close\r\n\r\n");
  const std::string response = client.receiveUpTo("never");
  EXPECT_EQ(brief(response), "200 OK: page /a(end)");
  EXPECT_NE(response.find("\r\nConnection: close\r\n"), std::string::npos) << response;
}

TEST_F(ServerTest, Head_OfAPage_HasNoBody) {
  start();
  Client client(port_);
  client.send("HEAD /a HTTP/1.1\r\n" + kHost + "\r\nGET /b HTTP/1.1\r\n" + kHost + "\r\n");
  EXPECT_EQ(brief(client.receiveUpTo("\r\n\r\n")), "200 OK: ");
  EXPECT_EQ(brief(client.receiveUpTo("page /b")), "200 OK: page /b");
}

TEST_F(ServerTest, Get_LongPage_ArrivesWhole) {
  start();
  Client client(port_);
  client.send("GET /long HTTP/1.1\r\n" + kHost + "\r\n");
  client.receiveUpTo("\r\n\r\n");
  EXPECT_EQ(client.receiveUpTo(std::string(3000000, 'x')).size(), 3000000U);
}

TEST_F(ServerTest, Post_WithLength_BodyArrives) {
  start();
  Client client(port_);
  client.send(kPost + "Content-Length: 5\r\n\r\nhello" + kPost + "Content-Length: 2\r\n\r\nmy" +
              kPost + "Content-Length: 0\r\n\r\n");
  EXPECT_EQ(brief(client.receiveUpTo("hello")), "200 OK: hello");
  EXPECT_EQ(brief(client.receiveUpTo("my")), "200 OK: my");
  EXPECT_EQ(brief(client.receiveUpTo("never")), "200 OK: (end)");
}

TEST_F(ServerTest, Post_ChunksByteByByte_BodyArrives) {
  start();
  Client client(port_);
  sendSlowly(client,
             kPost + "Transfer-Encoding: chunked\r\n\r\n3\r\nhel\r\n2;a=b\r\nlo\r\n0\r\n\r\n");
  EXPECT_EQ(brief(client.receiveUpTo("hello")), "200 OK: hello");
  client.send("GET /b HTTP/1.1\r\n" + kHost + "\r\n");
  EXPECT_EQ(brief(client.receiveUpTo("page /b")), "200 OK: page /b");
}

TEST_F(ServerTest, Post_ExpectsContinue_GetsItBeforeTheBody) {
  start();
  Client client(port_);
  client.send(kPost + "Content-Length: 5\r\nExpect: 100-continue\r\n\r\n");
  EXPECT_EQ(client.receiveUpTo("\r\n\r\n").substr(0, 22), "HTTP/1.1 100 Continue\r");
  client.send("hello");
  EXPECT_EQ(brief(client.receiveUpTo("hello")), "200 OK: hello");
}

TEST_F(ServerTest, Post_IsRefusedInTheMiddle_GetsTheResponse) {
  start();
  Client client(port_);
  client.send(kPost + "Content-Length: 10000000\r\n\r\nearly");
  for (int i = 0; i < 20; ++i) client.send(std::string(65536, 'x'));
  EXPECT_EQ(brief(client.receiveUpTo("Large\n")),
            "413 Request Entity Too Large: 413 Request Entity Too Large\n");
  EXPECT_EQ(client.receiveUpTo("more"), "(end)");
}

TEST_F(ServerTest, Post_ResponseComesLater_IsSent) {
  start();
  Client client(port_);
  client.send(kPost + "Content-Length: 5\r\n\r\nlater");
  std::this_thread::sleep_for(milliseconds(20));
  Client other(port_);
  other.send("GET /reply HTTP/1.1\r\n" + kHost + "\r\n");
  EXPECT_EQ(brief(other.receiveUpTo("/reply")), "200 OK: page /reply");
  EXPECT_EQ(brief(client.receiveUpTo("\r\n\r\nlate")), "200 OK: late");
}

TEST_F(ServerTest, Clients_SilentInEachPart_KeepNobodyWaiting) {
  start();
  std::vector<std::unique_ptr<Client>> silent;
  for (const std::string& beginning : std::vector<std::string>{
           "", "GE", "GET / HTTP/1.1\r\nHost", kPost + "Content-Length: 9\r\n\r\nab",
           kPost + "Transfer-Encoding: chunked\r\n\r\n",
           kPost + "Transfer-Encoding: chunked\r\n\r\n5",
           kPost + "Transfer-Encoding: chunked\r\n\r\n1\r\na",
           kPost + "Transfer-Encoding: chunked\r\n\r\n0\r\n"}) {
    silent.push_back(std::make_unique<Client>(port_));
    silent.back()->send(beginning);
  }
  std::this_thread::sleep_for(milliseconds(20));
  const auto begin = std::chrono::steady_clock::now();
  Client client(port_);
  client.send("GET /a HTTP/1.1\r\n" + kHost + "\r\n");
  EXPECT_EQ(brief(client.receiveUpTo("page /a")), "200 OK: page /a");
  EXPECT_LT(std::chrono::steady_clock::now() - begin, milliseconds(1000));
}

TEST_F(ServerTest, Clients_TooSlow_AreDropped) {
  Limits limits;
  limits.idle = limits.head = limits.quiet = milliseconds(40);
  start(limits);
  Client idle(port_);
  Client head(port_);
  head.send("GET / HT");
  Client body(port_);
  body.send(kPost + "Content-Length: 9\r\n\r\nab");
  Client reader(port_);
  reader.send("GET /long HTTP/1.1\r\n" + kHost + "\r\n");
  std::this_thread::sleep_for(milliseconds(100));
  EXPECT_EQ(idle.receiveUpTo("x"), "(end)");
  EXPECT_EQ(head.receiveUpTo("x"), "(end)");
  EXPECT_EQ(body.receiveUpTo("x"), "(end)");
}

TEST_F(ServerTest, Clients_GoBeforeTheirTimeIsOver_LeaveNothing) {
  Limits limits;
  limits.idle = limits.head = limits.quiet = milliseconds(30);
  start(limits);
  for (const std::string& text :
       std::vector<std::string>{"", "GE", kPost + "Content-Length: 9\r\n\r\nab"}) {
    Client client(port_);
    client.send(text);
  }
  std::this_thread::sleep_for(milliseconds(60));
  Client client(port_);
  client.send("GET /a HTTP/1.1\r\n" + kHost + "\r\n");
  EXPECT_EQ(brief(client.receiveUpTo("page /a")), "200 OK: page /a");
}

TEST_F(ServerTest, Clients_MoreThanAllowed_WaitUntilOneHasGone) {
  Limits limits;
  limits.connections = 2;
  start(limits);
  auto first = std::make_unique<Client>(port_);
  first->send("GET");
  Client second(port_);
  second.send("GET");
  std::this_thread::sleep_for(milliseconds(20));
  Client third(port_);
  third.send("GET /a HTTP/1.1\r\n" + kHost + "\r\n");
  first.reset();
  EXPECT_EQ(brief(third.receiveUpTo("page /a")), "200 OK: page /a");
}

TEST_F(ServerTest, Clients_MoreThanAllowed_IdleOnesMakeRoom) {
  Limits limits;
  limits.connections = 2;
  start(limits);
  Client first(port_);
  first.send("GET /a HTTP/1.1\r\n" + kHost + "\r\n");
  EXPECT_EQ(brief(first.receiveUpTo("page /a")), "200 OK: page /a");
  Client second(port_);
  second.send("GET /a HTTP/1.1\r\n" + kHost + "\r\n");
  EXPECT_EQ(brief(second.receiveUpTo("page /a")), "200 OK: page /a");
  EXPECT_EQ(first.receiveUpTo("x"), "(end)");
}

TEST_F(ServerTest, Client_NoFileDescriptorIsLeft_WaitsForOneAtRest) {
#ifdef ADDRESSES_ARE_CHECKED
  GTEST_SKIP() << "the checks need file descriptors themselves";
#endif
  start();
  rlimit before{};
  ::getrlimit(RLIMIT_NOFILE, &before);
  const int next = ::dup(STDIN_FILENO);
  ::close(next);
  rlimit few = before;
  few.rlim_cur = static_cast<rlim_t>(next) + 1;  // The client's own.
  ::setrlimit(RLIMIT_NOFILE, &few);
  Client client(port_);
  client.send("GET /a HTTP/1.1\r\n" + kHost + "\r\n");
  const std::clock_t start = std::clock();
  std::this_thread::sleep_for(milliseconds(250));
  const std::clock_t worked = std::clock() - start;
  ::setrlimit(RLIMIT_NOFILE, &before);
  EXPECT_LT(worked, CLOCKS_PER_SEC / 10);
  EXPECT_EQ(brief(client.receiveUpTo("page /a")), "200 OK: page /a");
}

TEST_F(ServerTest, Requests_ThatAreNotTaken_HaveAStatus) {
  Limits limits;
  limits.bodyBytes = 100;
  start(limits);
  struct Row {
    const char* name;
    std::string request, status;
  };
  const std::vector<Row> rows = {
      {"no host", "GET / HTTP/1.1\r\n\r\n", "400 Bad Request"},
      {"other host", "GET / HTTP/1.1\r\nHost: example.com\r\n\r\n", "400 Bad Request"},
      {"other address", "GET / HTTP/1.1\r\nHost: 10.0.0.1:631\r\n\r\n", "400 Bad Request"},
      {"unknown method", "GARBAGE / HTTP/1.1\r\n" + kHost + "\r\n", "501 Not Implemented"},
      {"version", "GET / HTTP/9.9\r\n" + kHost + "\r\n", "501 Not Implemented"},
      {"method", "DELETE / HTTP/1.1\r\n" + kHost + "\r\n", "501 Not Implemented"},
      {"body of GET", "GET / HTTP/1.1\r\n" + kHost + "Content-Length: 3\r\n\r\nabc",
       "400 Bad Request"},
      {"no length", kPost + "\r\n", "400 Bad Request"},
      {"two lengths", kPost + "Content-Length: 3\r\nTransfer-Encoding: chunked\r\n\r\n",
       "400 Bad Request"},
      {"too long", kPost + "Content-Length: 101\r\n\r\n", "413 Request Entity Too Large"},
      {"too long in chunks",
       kPost + "Transfer-Encoding: chunked\r\n\r\n65\r\n" + std::string(101, 'x') + "\r\n",
       "413 Request Entity Too Large"},
      {"no chunk", kPost + "Transfer-Encoding: chunked\r\n\r\nhello\r\n", "400 Bad Request"},
      {"coded", kPost + "Content-Length: 3\r\nContent-Encoding: gzip\r\n\r\nabc",
       "400 Bad Request"},
  };
  for (const Row& row : rows) {
    Client client(port_);
    client.send(row.request);
    EXPECT_EQ(brief(client.receiveUpTo("\n(never)")), row.status + ": " + row.status + "\n(end)")
        << row.name;
  }
}

TEST_F(ServerTest, Requests_ByOwnNames_AreTaken) {
  start();
  server_->addName("Printer.example");
  for (const std::string host :
       {"localhost", "LOCALHOST:8631", "127.0.0.1:1", "[::1]:631", "printer.example."}) {
    Client client(port_);
    client.send("GET /a HTTP/1.1\r\nHost: " + host + "\r\n\r\n");
    EXPECT_EQ(brief(client.receiveUpTo("/a")), "200 OK: page /a") << host;
  }
}

// A suite of its own, and so a process: libcups keeps the language it was asked in first.
class ServerInGermanyTest : public ServerTest {
 protected:
  ServerInGermanyTest() { ::setenv("LC_ALL", "de_DE.UTF-8", 1); }
};

TEST_F(ServerInGermanyTest, Status_HasEnglishWords) {
  start();
  Client client(port_);
  client.send("GET / HTTP/1.1\r\n\r\n");
  EXPECT_EQ(brief(client.receiveUpTo("\n(never)")), "400 Bad Request: 400 Bad Request\n(end)");
}

TEST(Server, Listen_WrongPlace_IsRefused) {
  EventLoop loop;
  Server server(loop, {}, {});
  for (const std::string place :
       {"", "8631", ":8631", "localhost:", "localhost:x", "localhost:65536"}) {
    const auto listened = server.listen(place);
    ASSERT_FALSE(listened) << place;
    EXPECT_EQ(describe(listened.error()),
              "cannot listen at \"" + place +
                  "\"; give ADDRESS:PORT, such as 127.0.0.1:8631, [::1]:8631 or *:8631");
  }
}

}  // namespace
}  // namespace driver_feature::host
