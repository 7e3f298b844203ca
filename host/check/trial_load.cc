#include "host/check/trial_load.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <system_error>

#include "Log.h"

#include "host/host_routines.h"
#include "host/process_copy.h"

namespace driver_feature {

namespace {

// The child has a status of its own for success, so that a routine that ends
// the process with 0 is not taken for one.
constexpr int kLoadedStatus = 113;

// Every line is sent as its level, its length and its bytes.
void send(int pipe, const void* bytes, std::size_t size) {
  const char* next = static_cast<const char*>(bytes);
  while (size > 0) {
    const ssize_t count = write(pipe, next, size);
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return;
    next += count;
    size -= static_cast<std::size_t>(count);
  }
}

void sendLine(int level, const char* /*category*/, const char* text, std::size_t length,
              void* context) {
  const int pipe = *static_cast<int*>(context);
  send(pipe, &level, sizeof level);
  send(pipe, &length, sizeof length);
  send(pipe, text, length);
}

[[noreturn]] void load(const Plugin& plugin, void* description, int pipe) {
  const int nothing = open("/dev/null", O_WRONLY | O_CLOEXEC);
  if (nothing >= 0) {
    dup2(nothing, STDOUT_FILENO);
    dup2(nothing, STDERR_FILENO);
  }
  static int target = -1;  // Alive until the library has ended the process.
  target = pipe;
  SetLogHandler(&sendLine, &target);
  plugin.setUpdateCallback(&DriverFeatureHostUpdate);
  const bool built = plugin.handOver(description) == 1;
  if (built) plugin.completeCreation();
  _exit(built ? kLoadedStatus : 1);
}

std::string receiveAll(int pipe) {
  std::string bytes;
  std::array<char, 4096> buffer{};
  for (;;) {
    const ssize_t count = read(pipe, buffer.data(), buffer.size());
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return bytes;
    bytes.append(buffer.data(), static_cast<std::size_t>(count));
  }
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

std::string describeEnd(int status) {
  if (WIFEXITED(status)) return "exit status " + std::to_string(WEXITSTATUS(status));
  return "signal " + std::to_string(WTERMSIG(status));
}

[[noreturn]] void fail(const char* what) {
  throw std::system_error(errno, std::generic_category(), what);
}

}  // namespace

LoadReport loadInChild(const Plugin& plugin, void* description) {
  std::array<int, 2> ends{};
  if (pipe2(ends.data(), O_CLOEXEC) != 0) fail("the library cannot be tried: pipe");
  // What is still in a buffer must not be written twice.
  std::fflush(nullptr);
  const pid_t self = getpid();
  const pid_t child = fork();
  if (child < 0) fail("the library cannot be tried: fork");
  if (child == 0) {
    endWithParent(self);
    close(ends[0]);
    load(plugin, description, ends[1]);
  }
  close(ends[1]);
  LoadReport report;
  report.lines = splitLines(receiveAll(ends[0]));
  close(ends[0]);
  int status = 0;
  while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
  }
  report.loaded = WIFEXITED(status) && WEXITSTATUS(status) == kLoadedStatus;
  report.end = report.loaded ? "loaded" : describeEnd(status);
  return report;
}

}  // namespace driver_feature
