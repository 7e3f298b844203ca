// The output of another process, read while a loop runs.
#ifndef HOST_PAGE_SERVER_CHILD_TEXT_H_
#define HOST_PAGE_SERVER_CHILD_TEXT_H_

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "host/base/child_process.h"
#include "host/server/event_loop.h"

namespace driver_feature::page_server {

class ChildText final {
 public:
  // Called once, from the loop: with what came and the status as waitpid() gives
  // it. No status: the process took too long or wrote too much, and was killed.
  using Done = std::function<void(const std::string& text, std::optional<int> status)>;

  // Runs `work` in a child, which leaves the server and has no standard streams;
  // what it writes to the descriptor that it is given is the text. Destroying the
  // object ends the process and all that it has started. Problem: as
  // ChildProcess::start().
  static host::Result<std::unique_ptr<ChildText>> start(host::EventLoop& loop,
                                                        host::EventLoop::Milliseconds longest,
                                                        const host::ChildProcess::Work& work,
                                                        Done done);
  ~ChildText();
  ChildText(const ChildText&) = delete;
  ChildText& operator=(const ChildText&) = delete;

 private:
  ChildText(host::EventLoop& loop, host::ChildProcess child, Done done);
  void read();
  void awaitEnd(int looks);
  void finish(std::optional<int> status);

  host::EventLoop& loop_;
  host::ChildProcess child_;
  Done done_;
  std::string text_;
  std::optional<host::EventLoop::Timer> limit_, look_;
};

}  // namespace driver_feature::page_server

#endif  // HOST_PAGE_SERVER_CHILD_TEXT_H_
