#include "equivalence/runner.h"

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <utility>

#include "equivalence/work_process.h"

namespace driver_feature::equivalence {

namespace {

using Json = nlohmann::json;
using Clock = WorkProcess::Clock;

constexpr int kWakeMilliseconds = 500;  // A time limit may be noticed this late.

struct Running {
  std::size_t task = 0;
  std::string description;
  Clock::time_point start;
  std::unique_ptr<WorkProcess> process;
};

// Spreads `wanted` over the tasks.
bool isSample(std::size_t task, std::size_t tasks, std::size_t wanted) {
  wanted = std::min(wanted, tasks);
  return (task + 1) * wanted / tasks != task * wanted / tasks;
}

Running begin(std::size_t index, const std::vector<Task>& tasks, const RunRequest& request) {
  ExaminationRequest examination = request.examination;
  const std::string number = std::to_string(index);
  examination.file = tasks[index].file;
  examination.importTo = request.descriptionFolder + "/" + number + ".xml";
  if (!request.jobFolder.empty() && isSample(index, tasks.size(), request.jobs)) {
    examination.jobFile = request.jobFolder + "/" + number + ".ps";
  }
  const auto work = [examination](const WorkProcess::Enter& enter) {
    return examine(examination, enter).dump(-1, ' ', false, Json::error_handler_t::replace);
  };
  return {index, examination.importTo, Clock::now(), WorkProcess::start(work, request.limit)};
}

Json recordOf(const Running& running, const std::string& name) {
  const WorkResult result = running.process->finish();
  Json record = Json::object();
  if (result.failure.empty()) {
    record = Json::parse(result.output);
    if (!record["causes"].empty() && record["detail"].get_ref<const std::string&>().empty()) {
      record["detail"] = result.printed;
    }
  } else {
    record["causes"] = {result.failure + (result.phase.empty() ? "" : " in " + result.phase)};
    record["detail"] = result.printed;
  }
  record["ppd"] = name;
  record["seconds"] = std::chrono::duration<double>(Clock::now() - running.start).count();
  if (record["causes"].empty()) {
    std::remove(running.description.c_str());
  } else if (::access(running.description.c_str(), F_OK) == 0) {
    record["description"] = running.description;
  }
  return record;
}

// Waits until at least one process has written something or its time may be up.
void waitForAny(const std::vector<Running>& running, std::vector<pollfd>& events) {
  events.clear();
  for (const Running& entry : running) {
    events.push_back({entry.process->descriptor(), POLLIN, 0});
  }
  ::poll(events.data(), static_cast<nfds_t>(events.size()), kWakeMilliseconds);
}

}  // namespace

void examineAll(const std::vector<Task>& tasks, const RunRequest& request,
                const std::function<void(const Json& record)>& sink) {
  std::vector<Running> running;
  std::vector<pollfd> events;
  std::size_t next = 0;
  while (next < tasks.size() || !running.empty()) {
    while (next < tasks.size() && running.size() < request.processes) {
      running.push_back(begin(next++, tasks, request));
    }
    waitForAny(running, events);
    // From the last one, so that the places of the earlier ones do not change.
    for (std::size_t i = running.size(); i-- > 0;) {
      WorkProcess& process = *running[i].process;
      const bool hasEnded = events[i].revents != 0 && !process.take();
      if (!hasEnded && !process.endWhenLate()) continue;
      sink(recordOf(running[i], tasks[running[i].task].name));
      running.erase(running.begin() + static_cast<std::ptrdiff_t>(i));
    }
  }
}

}  // namespace driver_feature::equivalence
