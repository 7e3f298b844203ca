// The process that has loaded a page's description, as the server sees it. It is
// restarted, with its values, when it ends or has to load the description again.
#ifndef HOST_PAGE_SERVER_WORKER_H_
#define HOST_PAGE_SERVER_WORKER_H_

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <nlohmann/json_fwd.hpp>

#include "host/page/page_process.h"
#include "host/page_server/kept_values.h"
#include "host/page_server/socket_process.h"
#include "host/server/event_loop.h"

namespace driver_feature::page_server {

class Worker final {
 public:
  using Reply = std::function<void(const std::string& json)>;

  // What runs in the process: page::runPageProcess().
  using Run = std::function<int(int socket, const page::PageRequest& request)>;

  struct Setting {
    page::PageRequest request;
    Run run;
    std::vector<std::pair<std::string, std::string>> beginning = {};  // Names and values.
    host::EventLoop::Milliseconds replyTime{10000};                   // For one request.
  };

  // What happens to it. Called from the loop, and not by the operations below.
  struct Listener {
    // With the first state after each start.
    std::function<void(const nlohmann::json& state)> loaded;
    std::function<void(const std::string& why)> failed;  // It is not started again by itself.
    // A request has ended the process, which is started again.
    std::function<void(const std::string& what)> crashed;
    // With a new state, whole or what has changed; as JSON and as the text of it.
    std::function<void(const nlohmann::json& state, const std::string& text)> changed;
  };

  // Starts the process. The loop must outlive the worker.
  Worker(host::EventLoop& loop, Setting setting, Listener listener);
  ~Worker();
  Worker(const Worker&) = delete;
  Worker& operator=(const Worker&) = delete;

  // The reply to a request, now or when the process is ready. It is empty when
  // nothing is loaded. One that ends the process, or takes too long, has a reply
  // with "ok":false.
  void ask(std::string request, Reply reply);

  // Starts a new process as soon as the last request has its reply.
  void loadAnew();

  bool isLoaded() const { return phase_ == Phase::kReady; }
  bool hasFailed() const { return phase_ == Phase::kFailed; }
  long serial() const { return request_.serial; }
  long revision() const { return request_.revision; }

 private:
  enum class Phase { kLoading, kRestoring, kLooking, kReady, kFailed };
  struct Question {
    std::string request;
    Reply reply;
  };

  void start();
  void take(const std::string& text);
  void takeLoad(const std::string& text);
  void takeReply(const std::string& text);
  void finishStart(const std::string& text);
  void noteState(const nlohmann::json& reply, const std::string& request);
  void look();
  void next();
  void noteEnd(const std::string& how);
  void fail(const std::string& why);
  void failLater(const std::string& why);
  void dropQuestions();

  host::EventLoop& loop_;
  page::PageRequest request_;
  Run run_;
  host::EventLoop::Milliseconds replyTime_;
  Listener listener_;
  KeptValues kept_;
  bool restores_ = true;  // Whether to restore the kept values in the next process.
  bool isToLoadAnew_ = false;
  Phase phase_ = Phase::kLoading;
  std::deque<Question> questions_;
  bool isAsking_ = false;  // The first question has been sent.
  std::optional<host::EventLoop::Timer> failure_;
  SocketProcess process_;
};

}  // namespace driver_feature::page_server

#endif  // HOST_PAGE_SERVER_WORKER_H_
