#include "host/server/server.h"

#include <sys/resource.h>
#include <unistd.h>

#include <chrono>
#include <ctime>
#include <string>
#include <thread>

#include "host/server/server_fixture.h"
#include "support/address_checks.h"

namespace driver_feature::host {
namespace {

using std::chrono::milliseconds;

void sendSlowly(Client& client, const std::string& text) {
  for (const char byte : text) {
    client.send(std::string(1, byte));
    std::this_thread::sleep_for(milliseconds(1));
  }
}

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

}  // namespace
}  // namespace driver_feature::host
