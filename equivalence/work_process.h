// Work in a child process that may crash, hang or end itself.
#ifndef EQUIVALENCE_WORK_PROCESS_H_
#define EQUIVALENCE_WORK_PROCESS_H_

#include <chrono>
#include <functional>
#include <memory>
#include <string>

#include "host/base/child_process.h"

namespace driver_feature::equivalence {

// How the work has ended.
struct WorkResult {
  std::string output;  // What it returned; empty when it did not get that far.
  std::string phase;   // The last one that it entered.
  std::string
      failure;  // "crash (signal 11)", "end (status 1)", "time limit"; empty when all is well.
  std::string printed;  // The beginning of what it wrote to the standard streams.
};

class WorkProcess {
 public:
  using Clock = std::chrono::steady_clock;
  using Enter = std::function<void(const std::string& phase)>;
  using Work = std::function<std::string(const Enter& enter)>;

  // Runs `work` in a copy of this process, with the standard streams going
  // into a file of its own. It must return within the limit. Throws
  // std::runtime_error when no child process can be made.
  static std::unique_ptr<WorkProcess> start(const Work& work, std::chrono::seconds limit);

  // A child that still runs is killed, with its own children.
  ~WorkProcess();
  WorkProcess(const WorkProcess&) = delete;
  WorkProcess& operator=(const WorkProcess&) = delete;

  // To wait for: readable when take() has something to do.
  int descriptor() const { return child_.pipe(); }
  Clock::time_point deadline() const { return deadline_; }

  // Takes what the child has written. False when it has closed its end, which
  // it does when it ends.
  bool take();

  // Ends a child that is past its deadline; true when it was.
  bool endWhenLate();

  // Waits for the child's end. Called once, after take() has returned false or
  // endWhenLate() true.
  WorkResult finish();

 private:
  WorkProcess(host::ChildProcess child, int printed, std::chrono::seconds limit);

  host::ChildProcess child_;
  int printed_;
  Clock::time_point deadline_;
  bool late_ = false;
  std::string received_;
};

}  // namespace driver_feature::equivalence

#endif  // EQUIVALENCE_WORK_PROCESS_H_
