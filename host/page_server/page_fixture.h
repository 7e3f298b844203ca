// A page with a process that plays the part of the description.
#ifndef HOST_PAGE_SERVER_PAGE_FIXTURE_H_
#define HOST_PAGE_SERVER_PAGE_FIXTURE_H_

#include <gtest/gtest.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <string>
#include <thread>

#include <nlohmann/json.hpp>

#include "host/base/descriptor.h"
#include "host/base/frames.h"
#include "host/base/input_file.h"
#include "host/page_server/page.h"
#include "support/loopback_client.h"

namespace driver_feature::page_server {

// Loads a file of words: "fatal" ends it, "refused" is not loaded, "silent" crashes
// with its first state, "fragile" when values are restored, "brief" replies with only what has
// changed of its output. Two features: Duplex, which crashes
// when it becomes "Crash", hangs with "Hang", and is not there if the file says "simplex"; and Pin,
// a secret.
class PlayedProcess {
 public:
  PlayedProcess(int socket, const page::PageRequest& request)
      : socket_(socket),
        words_(host::readFile(request.description).value_or("")),
        serial_(request.serial) {}

  int run() {
    if (has("fatal")) return 1;
    if (has("refused")) {
      return host::writeAll(socket_, host::frame(R"({"loaded":false,"text":"It is refused."})"));
    }
    host::writeAll(socket_, host::frame(R"({"loaded":true})"));
    std::string arrived;
    char buffer[4096];
    for (;;) {
      bool isMalformed = false;
      if (const auto text = host::takeFrame(arrived, isMalformed)) {
        host::writeAll(socket_, host::frame(reply(nlohmann::json::parse(*text)).dump()));
        continue;
      }
      const ssize_t count = ::read(socket_, buffer, sizeof buffer);
      if (count <= 0) return 0;
      arrived.append(buffer, static_cast<std::size_t>(count));
    }
  }

 private:
  bool has(const std::string& word) const { return words_.find(word) != std::string::npos; }

  nlohmann::json reply(const nlohmann::json& request) {
    const std::string what = request["do"];
    if (what == "model") return {{"loaded", true}, {"language", request.value("language", "")}};
    if (what == "settings") return {{"text", "Duplex=" + duplex_ + "\n"}};
    if (what == "state" && has("silent")) ::raise(SIGKILL);
    if (what == "restore" && has("fragile")) ::raise(SIGKILL);
    if (what == "set" || what == "restore") {
      const std::size_t gone = duplex_.size();
      for (const auto& setting : request["settings"]) set(setting[0], setting[1]);
      ++serial_;
      // The printer's sign before takes two units, and four bytes.
      if (has("brief")) return briefReply({{"at", 3}, {"gone", gone}, {"text", duplex_}});
    }
    nlohmann::json changed = nlohmann::json::array();
    if (duplex_ != "Off") changed.push_back("Duplex");
    if (!pin_.empty()) changed.push_back("Pin");
    return {{"ok", true},
            {"serial", serial_},
            {"values", {{"Duplex", duplex_}, {"Pin", ""}}},
            {"masked", {"Pin"}},
            {"changed", changed},
            {"outputs", {{"ps", {{"text", sign() + duplex_ + " " + pin_ + "\n" + words_}}}}}};
  }

  std::string sign() const { return has("brief") ? "%\xF0\x9F\x96\xA8" : "%"; }

  nlohmann::json briefReply(const nlohmann::json& change) const {
    return {{"ok", true},
            {"whole", false},
            {"serial", serial_},
            {"values", {{"Duplex", duplex_}}},
            {"changed", {"Duplex"}},
            {"outputs", {{"ps", change}}}};
  }

  void set(const std::string& name, const std::string& value) {
    if (value == "Crash") ::raise(SIGKILL);
    while (value == "Hang") ::sleep(1);
    if (name == "Pin") pin_ = value;
    if (name == "Duplex" && !has("simplex")) duplex_ = value;
  }

  int socket_;
  std::string words_;
  std::string duplex_ = "Off";
  std::string pin_;
  long serial_;
};

class PageTest : public ::testing::Test {
 protected:
  void SetUp() override {
    std::string name = (std::filesystem::temp_directory_path() / "pageXXXXXX").string();
    ASSERT_NE(::mkdtemp(name.data()), nullptr);
    folder_ = name;
    description_ = folder_ / "office.xml";
    write("office.xml", "");
    setting_.worker.request.description = description_.string();
    setting_.worker.run = [](int socket, const page::PageRequest& request) {
      return PlayedProcess(socket, request).run();
    };
    setting_.ghostscript = "/nothing/gs";
  }

  void start() {
    server_ = std::make_unique<host::Server>(loop_, host::Limits{}, [this](const auto& request) {
      return page_->handle(request, request.path.substr(1));
    });
    ASSERT_TRUE(server_->listen("127.0.0.1:0"));
    const std::string place = server_->places().front();
    port_ = std::stoi(place.substr(place.rfind(':') + 1));
    page_ = std::make_unique<Page>(loop_, *server_, setting_);
    thread_ = std::make_unique<test::LoopThread>(loop_);
    get("state");  // Comes when the description is loaded.
  }

  void TearDown() override {
    thread_.reset();
    page_.reset();
    server_.reset();
    std::filesystem::remove_all(folder_);
  }

  void write(const std::string& name, const std::string& text) const {
    std::ofstream(folder_ / name) << text;
  }

  std::string ownOrigin() const { return "Origin: http://127.0.0.1:" + std::to_string(port_); }

  std::string head(const std::string& line, const std::string& fields = "") const {
    return line + " HTTP/1.1\r\nHost: 127.0.0.1:" + std::to_string(port_) + "\r\n" + fields +
           (fields.empty() ? "\r\n" : "\r\n\r\n");
  }

  // The whole response.
  std::string exchange(const std::string& line, const std::string& fields = "",
                       const std::string& body = "") const {
    test::LoopbackClient client(port_);
    client.send(head(line, fields) + body);
    client.finishSending();
    return client.receiveUpTo("(never)");
  }

  // The status and the body.
  static std::string brief(const std::string& response) {
    const std::size_t end = response.find("\r\n\r\n");
    if (end == std::string::npos || response.size() < 12) return response;
    std::string body = response.substr(end + 4);
    if (body.ends_with("(end)")) body.erase(body.size() - 5);
    return response.substr(9, 3) + " " + body;
  }

  std::string get(const std::string& path, const std::string& fields = "") const {
    return brief(exchange("GET /" + path, fields));
  }

  std::string post(const std::string& path, const std::string& body,
                   const std::string& fields = "") const {
    return brief(exchange(
        "POST /" + path,
        (fields.empty() ? ownOrigin() : fields) +
            "\r\nContent-Type: application/json\r\nContent-Length: " + std::to_string(body.size()),
        body));
  }

  nlohmann::json set(const std::string& name, const std::string& value) const {
    const auto setting = nlohmann::json::array({name, value});
    const nlohmann::json request = {{"do", "set"}, {"settings", nlohmann::json::array({setting})}};
    const std::string reply = post("do", request.dump());
    EXPECT_EQ(reply.substr(0, 4), "200 ");
    return nlohmann::json::parse(reply.substr(4), nullptr, false);
  }

  nlohmann::json state() const {
    return nlohmann::json::parse(get("state").substr(4), nullptr, false);
  }
  std::string postScript() const { return state()["outputs"]["ps"]["text"]; }

  std::filesystem::path folder_, description_;
  PageSetting setting_;
  host::EventLoop loop_;
  std::unique_ptr<host::Server> server_;
  std::unique_ptr<Page> page_;
  std::unique_ptr<test::LoopThread> thread_;
  int port_ = 0;
};

// A check that finds something when the named pipe is written to.
inline PageSetting::Check checkThatWaitsFor(const std::string& gate) {
  return [gate](host::EventLoop& loop, const page::PageRequest&, const auto& done) {
    const auto findWhenOpen = [gate](int out) {
      host::readFile(gate);
      return host::writeAll(out, R"([{"line":3}])") ? 0 : 1;
    };
    return ChildText::start(loop, std::chrono::milliseconds(10000), findWhenOpen,
                            [done](const std::string& text, std::optional<int>) { done(text); });
  };
}

// A client of the page's events.
class Listener {
 public:
  Listener(int port, const std::string& head) : client_(port) {
    client_.send(head);
    client_.receiveUpTo("event: hello");
  }

  // The data of the next event of that kind.
  nlohmann::json next(const std::string& event) {
    client_.receiveUpTo("event: " + event + "\ndata: ");
    const std::string line = client_.receiveUpTo("\n");
    return nlohmann::json::parse(line, nullptr, false);
  }

 private:
  test::LoopbackClient client_;
};

}  // namespace driver_feature::page_server

#endif  // HOST_PAGE_SERVER_PAGE_FIXTURE_H_
