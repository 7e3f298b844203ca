// What becomes of clients when a page ends.

#include <gtest/gtest.h>

#include "host/page_server/page_fixture.h"

namespace driver_feature::page_server {
namespace {

TEST_F(PageTest, LastWords_AreGoodbye) {
  start();
  auto listener = std::make_unique<Listener>(port_, head("GET /events"));
  thread_.reset();
  page_.reset();
  EXPECT_EQ(listener->next("bye"), nlohmann::json::object());
}

TEST_F(PageTest, ListenersBeyondTheLimit_AreRefused) {
  start();
  std::vector<std::unique_ptr<Listener>> listeners;
  while (listeners.size() < 40) {
    listeners.push_back(std::make_unique<Listener>(port_, head("GET /events")));
  }
  EXPECT_EQ(get("events").substr(0, 3), "503");
}

TEST_F(PageTest, BodyThatIsWholeAfterThePagesEnd_IsRefused) {
  start();
  const std::string body = R"({"do":"state"})";
  const std::string fields =
      ownOrigin() +
      "\r\nContent-Type: application/json\r\nContent-Length: " + std::to_string(body.size());
  test::LoopbackClient client(port_);
  client.send(head("POST /do", fields) + body.substr(0, 5));
  get("state");  // The page has taken what came before.
  thread_.reset();
  page_.reset();
  thread_ = std::make_unique<test::LoopThread>(loop_);
  client.send(body.substr(5));
  client.finishSending();
  EXPECT_EQ(brief(client.receiveUpTo("(never)")).substr(0, 3), "503");
}

}  // namespace
}  // namespace driver_feature::page_server
