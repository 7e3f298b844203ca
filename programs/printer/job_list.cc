#include "programs/printer/job_list.h"

#include <algorithm>
#include <utility>

namespace driver_feature::printer {

host::Problems JobList::load(std::int64_t now) {
  host::Problems problems;
  for (Job& job : spool_->load(problems)) {
    const int number = job.number;
    Job& kept = jobs_.emplace(number, std::move(job)).first->second;
    if (kept.state == IPP_JSTATE_PROCESSING || kept.state == IPP_JSTATE_STOPPED) {
      kept.state = IPP_JSTATE_PENDING;
      kept.reason = "none";
      kept.begun = 0;
      kept.sheets = 0;
    }
    // Its client's connection is gone, and the client may be, too.
    if (kept.isIncoming && kept.state == IPP_JSTATE_HELD && kept.created + 300 < now) {
      if (auto ended = end(kept, IPP_JSTATE_ABORTED, "aborted-by-system",
                           "The document has not been sent.", now);
          !ended) {
        problems.push_back(ended.error());
      }
    }
  }
  forgetOldest(0);
  return problems;
}

Job* JobList::find(int number) {
  const auto found = jobs_.find(number);
  return found == jobs_.end() ? nullptr : &found->second;
}

Job* JobList::next(const std::string& printer) {
  for (auto& [number, job] : jobs_) {
    if (job.printer == printer && job.state == IPP_JSTATE_PENDING && !job.isIncoming) return &job;
  }
  return nullptr;
}

std::size_t JobList::waiting(const std::string& printer) const {
  return static_cast<std::size_t>(
      std::count_if(jobs_.begin(), jobs_.end(), [&printer](const auto& entry) {
        return entry.second.printer == printer && !entry.second.isOver();
      }));
}

bool JobList::isFull() const {
  return static_cast<std::size_t>(std::count_if(jobs_.begin(), jobs_.end(), [](const auto& entry) {
           return !entry.second.isOver();
         })) >= limits_.waiting;
}

host::Result<Job*> JobList::add(Job job, std::string_view attributes, IncomingDocument* document) {
  if (auto added = spool_->add(job, attributes, document); !added) return failureOf(added);
  const int number = job.number;
  return &jobs_.emplace(number, std::move(job)).first->second;
}

host::Result<> JobList::keep(Job& job) {
  return spool_->update(job);
}

host::Result<> JobList::end(Job& job, ipp_jstate_t state, const std::string& reason,
                            const std::string& message, std::int64_t now) {
  job.state = state;
  job.reason = reason;
  job.message = message;
  job.isIncoming = false;
  job.ended = now;
  // They may hold a PIN.
  job.options.clear();
  host::Result<> kept = spool_->update(job);
  forgetOldest(job.number);
  return kept;
}

// But not the job `except`, which somebody works on. The newest folder stays in any
// case, so that no number is given a second time.
void JobList::forgetOldest(int except) {
  auto over = static_cast<std::size_t>(std::count_if(
      jobs_.begin(), jobs_.end(), [](const auto& entry) { return entry.second.isOver(); }));
  for (auto job = jobs_.begin(); job != jobs_.end() && over > limits_.kept;) {
    if (!job->second.isOver() || job->first == except) {
      ++job;
      continue;
    }
    spool_->remove(job->first);
    job = jobs_.erase(job);
    --over;
  }
}

}  // namespace driver_feature::printer
