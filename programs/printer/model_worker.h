// A description loaded in a process of its own: the server never loads the
// feature library or the routines of a description, which may crash, hang or end
// their process.
#ifndef PROGRAMS_PRINTER_MODEL_WORKER_H_
#define PROGRAMS_PRINTER_MODEL_WORKER_H_

#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/base/child_process.h"
#include "host/ipp/capabilities.h"
#include "host/ppd/queue/queue_lines.h"
#include "host/server/event_loop.h"
#include "programs/printer/hardware.h"
#include "programs/printer/settings_verdict.h"

namespace driver_feature::printer {

// What a worker finds out when it has loaded its description.
struct LoadedModel {
  ipp::Capabilities capabilities;
  std::string queue;  // The text of its PPD.
};

class ModelWorker final {
 public:
  // Called once when the description is loaded or could not be, and again after
  // each new start; with the lines for the log.
  using Loaded = std::function<void(host::Result<LoadedModel>)>;

  // Starts the process. The loop must outlive the worker.
  ModelWorker(host::EventLoop& loop, std::string name, ppd::QueueRequest request, Hardware hardware,
              Loaded loaded);
  ~ModelWorker();
  ModelWorker(const ModelWorker&) = delete;
  ModelWorker& operator=(const ModelWorker&) = delete;

  using Reply = std::function<void(const SettingsVerdict&)>;

  // Asks whether the settings can be made, one after the other. The verdict has
  // nothing against them when the worker cannot say: jobs are not refused for that.
  void check(const std::vector<host::Setting>& settings, Reply reply);

  bool isRunning() const { return child_.has_value(); }

 private:
  void start();
  void read();
  void take(const std::string& text);
  void end(const std::string& reason);
  void watchTime();

  host::EventLoop& loop_;
  std::string name_;
  ppd::QueueRequest request_;
  Hardware hardware_;
  Loaded loaded_;
  std::optional<host::ChildProcess> child_;
  int socket_ = -1;
  bool isLoaded_ = false;
  std::string arrived_;
  std::optional<std::string> capabilities_;
  std::deque<Reply> waiting_;
  host::EventLoop::Milliseconds pause_{1000};  // Before the next start.
  std::optional<host::EventLoop::Timer> timer_;
};

}  // namespace driver_feature::printer

#endif  // PROGRAMS_PRINTER_MODEL_WORKER_H_
