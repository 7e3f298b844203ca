#include "host/check/trial_load.h"

#include <sys/wait.h>
#include <unistd.h>

#include <string_view>

#include "Log.h"

#include "host/base/child_process.h"
#include "host/base/descriptor.h"
#include "host/session/host_routines.h"
#include "host/session/routine_calls.h"

namespace driver_feature::check {

namespace {

// The child has its own status for success, so that a routine that ends the
// process with 0 is not mistaken for it.
constexpr int kLoadedStatus = 113;

// Every line is sent as its level, its length and its bytes.
template <class Number>
void sendNumber(int pipe, Number number) {
  host::writeAll(pipe, {reinterpret_cast<const char*>(&number), sizeof number});
}

void sendLine(int level, const char* /*category*/, const char* text, std::size_t length,
              void* context) {
  const int pipe = *static_cast<int*>(context);
  sendNumber(pipe, level);
  sendNumber(pipe, length);
  host::writeAll(pipe, {text, length});
}

int load(const host::Plugin& plugin, void* description, int pipe) {
  static int target = -1;  // Lives until the library has ended the process.
  target = pipe;
  SetLogHandler(&sendLine, &target);
  plugin.setUpdateCallback(&DriverFeatureHostUpdate);
  host::noteRoutineCalls(description, "");
  const bool built = plugin.handOver(description) == 1;
  if (built) plugin.completeCreation();
  // No function that the library has registered with atexit() runs.
  _exit(built ? kLoadedStatus : 1);
}

template <class Number>
bool takeNumber(std::string_view& bytes, Number& number) {
  if (bytes.size() < sizeof number) return false;
  bytes.copy(reinterpret_cast<char*>(&number), sizeof number);
  bytes.remove_prefix(sizeof number);
  return true;
}

std::vector<LoadLine> splitLines(std::string_view bytes) {
  std::vector<LoadLine> lines;
  LoadLine line;
  std::size_t length = 0;
  while (takeNumber(bytes, line.level) && takeNumber(bytes, length) && length <= bytes.size()) {
    line.text = bytes.substr(0, length);
    bytes.remove_prefix(length);
    lines.push_back(line);
  }
  return lines;
}

}  // namespace

host::Result<LoadReport> loadInChild(const host::Plugin& plugin, void* description) {
  const host::SharedRoutineRecord record;
  host::Result<host::ChildProcess> child = host::ChildProcess::start(
      host::ChildStreams::kDropped, [&](int pipe) { return load(plugin, description, pipe); });
  if (!child) return failureOf(child);
  LoadReport report;
  report.lines = splitLines(host::readAll(child->pipe()));
  const int status = child->wait();
  report.loaded = WIFEXITED(status) && WEXITSTATUS(status) == kLoadedStatus;
  report.end = report.loaded ? "loaded" : host::describeEnd(status);
  if (report.loaded) return report;
  report.routine = describeThrow(*record);
  if (report.routine.empty()) report.routine = describeRoutineEnd(*record, status);
  return report;
}

}  // namespace driver_feature::check
