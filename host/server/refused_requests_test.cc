#include <cstdlib>
#include <string>
#include <vector>

#include "host/server/server.h"
#include "host/server/server_fixture.h"

namespace driver_feature::host {
namespace {

using RefusedRequestsTest = ServerTest;

TEST_F(RefusedRequestsTest, EachKind_HasItsStatus) {
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

TEST_F(RefusedRequestsTest, OwnNames_AreTaken) {
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
