// The jobs of all printers, and how they change.
#ifndef PROGRAMS_PRINTER_JOB_LIST_H_
#define PROGRAMS_PRINTER_JOB_LIST_H_

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "programs/printer/job.h"
#include "programs/printer/spool.h"

namespace driver_feature::printer {

struct JobLimits {
  std::size_t waiting = 1000;             // Jobs that are not finished.
  std::size_t kept = 100;                 // Finished jobs, so that clients can ask about them.
  std::uint64_t spoolBytes = 8ULL << 30;  // Of all documents.
};

class JobList final {
 public:
  JobList(std::unique_ptr<Spool> spool, JobLimits limits)
      : spool_(std::move(spool)), limits_(limits) {}

  // The jobs that the spool has kept. Those that were being printed when the
  // server ended are printed again, from their beginning.
  host::Problems load(std::int64_t now);

  Job* find(int number);
  const std::map<int, Job>& all() const { return jobs_; }

  // The first job of a printer that can be printed now; null without one.
  Job* next(const std::string& printer);
  std::size_t waiting(const std::string& printer) const;

  bool isFull() const;
  bool isSpoolFull(std::uint64_t more) const { return spool_->used() + more > limits_.spoolBytes; }

  Spool& spool() { return *spool_; }

  // Takes a new job, which can be printed and is kept from commit() on. Problem:
  // kNotWritten, and there is no job.
  host::Result<Job*> add(Job job, std::string_view attributes, IncomingDocument* document);

  // Keeps what has been changed of a job. A state that cannot be kept is reported
  // and stays in memory.
  host::Result<> keep(Job& job);

  // The job is over.
  host::Result<> end(Job& job, ipp_jstate_t state, const std::string& reason,
                     const std::string& message, std::int64_t now);

 private:
  void forgetOldest(int except);

  std::unique_ptr<Spool> spool_;
  JobLimits limits_;
  std::map<int, Job> jobs_;
};

}  // namespace driver_feature::printer

#endif  // PROGRAMS_PRINTER_JOB_LIST_H_
