// A job that is being printed, as the server sees it.
#ifndef PROGRAMS_PRINTER_JOB_RUN_H_
#define PROGRAMS_PRINTER_JOB_RUN_H_

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "host/base/child_process.h"
#include "host/server/event_loop.h"
#include "programs/printer/job_process.h"

namespace driver_feature::printer {

enum class JobEnd {
  kPrinted,
  kFailed,
  kKilled,  // One of its processes was ended from elsewhere.
};

class JobRun final {
 public:
  struct Notices {
    std::function<void(const std::string& line)> line;  // "ERROR: TEXT" and the like.
    std::function<void(JobEnd end, const std::string& status)> isOver;
  };

  // Starts the job's process. The loop must outlive this object, which may be
  // destroyed in isOver(). Destroying it ends the process and all of its children.
  static host::Result<std::unique_ptr<JobRun>> start(host::EventLoop& loop, const PrintOrder& order,
                                                     Notices notices);
  ~JobRun();
  JobRun(const JobRun&) = delete;
  JobRun& operator=(const JobRun&) = delete;

  // Lets the printer get a proper end of the job if it takes it soon.
  void cancel();

 private:
  JobRun(host::EventLoop& loop, host::ChildProcess child, int lines, Notices notices);
  void readLines();
  void takeLines(std::string_view bytes);
  void end();

  host::EventLoop& loop_;
  host::ChildProcess child_;
  int lines_;
  Notices notices_;
  std::string rest_;  // The beginning of a line.
  std::optional<host::EventLoop::Timer> timer_;
};

}  // namespace driver_feature::printer

#endif  // PROGRAMS_PRINTER_JOB_RUN_H_
