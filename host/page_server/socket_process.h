// A process that takes and gives frames through a socket, seen from the server.
#ifndef HOST_PAGE_SERVER_SOCKET_PROCESS_H_
#define HOST_PAGE_SERVER_SOCKET_PROCESS_H_

#include <functional>
#include <optional>
#include <string>

#include "host/base/child_process.h"
#include "host/server/event_loop.h"

namespace driver_feature::page_server {

class SocketProcess final {
 public:
  // Called from the loop. Both may stop the process and start another one.
  struct Listener {
    std::function<void(const std::string& text)> arrived;  // With each frame.
    // It has ended by itself, or has been ended because it took too long or wrote no
    // frame: "crashed: its process was ended by signal 11".
    std::function<void(const std::string& how)> ended;
  };

  // The loop must outlive it.
  SocketProcess(host::EventLoop& loop, Listener listener);
  ~SocketProcess();
  SocketProcess(const SocketProcess&) = delete;
  SocketProcess& operator=(const SocketProcess&) = delete;

  // Runs `work` in a process that leaves the server, after ending the one before.
  // Problem: kNotLoaded when no socket or no process can be made.
  host::Result<> start(const std::function<int(int socket)>& work);

  // Ends it; the listener is not called.
  void stop();

  // Sends a frame. What the process does not take now goes when it does.
  void send(const std::string& text);

  // Ends it when liftLimit() has not been called within this time.
  void limitTime(host::EventLoop::Milliseconds time);
  void liftLimit();

 private:
  void handle(short events);
  void write();
  void read();
  void awaitEnd(int looks);
  void end(const std::string& how);

  host::EventLoop& loop_;
  Listener listener_;
  std::optional<host::ChildProcess> child_;
  int socket_ = -1;
  std::string arrived_, leaving_;
  std::optional<host::EventLoop::Timer> timer_;  // The limit, or the next look at its end.
};

}  // namespace driver_feature::page_server

#endif  // HOST_PAGE_SERVER_SOCKET_PROCESS_H_
