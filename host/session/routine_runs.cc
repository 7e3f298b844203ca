#include "host/session/routine_runs.h"

#include <sys/wait.h>

#include <string_view>
#include <utility>

#include "host/base/child_process.h"
#include "host/base/descriptor.h"
#include "host/base/signal_relay.h"
#include "host/session/routine_calls.h"

namespace driver_feature::host {

namespace {

constexpr std::string_view kReturned = "returned";

}  // namespace

Result<int> runWithRoutines(const std::function<int()>& work) {
  const SharedRoutineRecord record;
  SignalRelay relay;
  auto child = ChildProcess::start(ChildStreams::kShared, [&](int pipe) {
    relay.leave();
    const int result = work();
    writeAll(pipe, kReturned);
    return result;
  });
  if (!child) return failureOf(child);
  relay.begin(child->id());
  const bool hasReturned = readAll(child->pipe()) == kReturned;
  const int status = child->wait();
  relay.end(status);
  if (hasReturned) return WEXITSTATUS(status);
  const std::string reason = describeRoutineEnd(*record, status);
  if (!reason.empty()) return fail(Problem::Kind::kNotLoaded, reason);
  if (WIFEXITED(status)) return WEXITSTATUS(status);
  return fail(Problem::Kind::kNotLoaded, "the process ended with " + describeEnd(status) +
                                             ", and no routine was running; one that has run may "
                                             "have damaged its memory");
}

Result<std::vector<std::string>> takeFromRoutines(
    const std::function<std::vector<std::string>()>& work) {
  auto texts = runInChild(ChildStreams::kShared, work, [](int status) {
    const std::string thrown = describeThrow(routineRecord());
    return thrown.empty() ? describeRoutineEnd(routineRecord(), status) : thrown;
  });
  const std::string thrown = texts ? describeThrow(routineRecord()) : "";
  clearRoutineRecord();
  if (!thrown.empty()) return fail(Problem::Kind::kNotLoaded, thrown);
  return texts;
}

}  // namespace driver_feature::host
