// A client of a server in this process, byte by byte.
#ifndef TESTS_SUPPORT_LOOPBACK_CLIENT_H_
#define TESTS_SUPPORT_LOOPBACK_CLIENT_H_

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <functional>
#include <string>
#include <thread>
#include <utility>

#include "host/server/event_loop.h"

namespace driver_feature::test {

class LoopbackClient {
 public:
  explicit LoopbackClient(int port) : socket_(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<std::uint16_t>(port));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    EXPECT_EQ(::connect(socket_, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
  }
  ~LoopbackClient() { ::close(socket_); }
  LoopbackClient(const LoopbackClient&) = delete;
  LoopbackClient& operator=(const LoopbackClient&) = delete;

  void send(const std::string& text) { ::send(socket_, text.data(), text.size(), MSG_NOSIGNAL); }

  // Nothing more is sent, so that the server closes the connection after its
  // response.
  void finishSending() { ::shutdown(socket_, SHUT_WR); }

  // What comes until `end` has come, or the connection is over, or some seconds.
  std::string receiveUpTo(const std::string& end) {
    while (received_.find(end) == std::string::npos) {
      if (const std::string why = receiveMore(); !why.empty()) {
        return std::exchange(received_, "") + why;
      }
    }
    const std::size_t size = received_.find(end) + end.size();
    const std::string text = received_.substr(0, size);
    received_.erase(0, size);
    return text;
  }

  // What comes until the connection is over, or some seconds.
  std::string receiveAll() {
    std::string why;
    while (why.empty()) why = receiveMore();
    return std::exchange(received_, "") + why;
  }

 private:
  // Adds to what has been received. Says why there is nothing more, or nothing.
  std::string receiveMore() {
    pollfd polled{socket_, POLLIN, 0};
    char buffer[65536];
    if (::poll(&polled, 1, 5000) <= 0) return "(time is over)";
    const ssize_t count = ::recv(socket_, buffer, sizeof buffer, 0);
    if (count <= 0) return "(end)";
    received_.append(buffer, static_cast<std::size_t>(count));
    return {};
  }

  int socket_;
  std::string received_;
};

// Runs a loop in a thread of its own until it is destroyed.
class LoopThread {
 public:
  explicit LoopThread(host::EventLoop& loop)
      : loop_(loop), thread_([this] {
          watchEnd();
          loop_.run();
        }) {}
  ~LoopThread() {
    isEnding_ = true;
    thread_.join();
  }
  LoopThread(const LoopThread&) = delete;
  LoopThread& operator=(const LoopThread&) = delete;

 private:
  void watchEnd() {
    if (isEnding_) return loop_.stop();
    loop_.after(std::chrono::milliseconds(5), [this] { watchEnd(); });
  }

  host::EventLoop& loop_;
  std::atomic<bool> isEnding_ = false;
  std::thread thread_;
};

}  // namespace driver_feature::test

#endif  // TESTS_SUPPORT_LOOPBACK_CLIENT_H_
