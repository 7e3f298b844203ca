#include "host/base/child_process.h"

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <exception>
#include <iostream>
#include <optional>
#include <string_view>
#include <utility>

#include "host/base/descriptor.h"

namespace driver_feature::host {

namespace {

// What is still in a buffer must not be written twice.
void flushStreams() {
  std::cout.flush();
  std::fflush(nullptr);
}

void sendStreamsTo(int output) {
  if (output == -1) return;
  ::dup2(output, STDOUT_FILENO);
  ::dup2(output, STDERR_FILENO);
}

[[noreturn]] void runAndExit(int pipe, const ChildProcess::Work& work) {
  int status = 1;
  try {
    status = work(pipe);
    flushStreams();
  } catch (...) {
    status = 1;
  }
  ::_exit(status);
}

Failure noChild() {
  return fail(Problem::Kind::kNotLoaded, std::string("a child process cannot be made: ") +
                                             std::strerror(errno) +
                                             "; end other programs and try again");
}

// The texts, each after its length and a colon, and a full stop at the end:
// without it they are not whole.
std::string pack(const std::vector<std::string>& texts) {
  std::string packed;
  for (const std::string& text : texts) packed += std::to_string(text.size()) + ":" + text;
  return packed + ".";
}

std::optional<std::vector<std::string>> unpack(std::string_view packed) {
  std::vector<std::string> texts;
  while (!packed.empty() && packed != ".") {
    std::size_t size = 0;
    const auto read = std::from_chars(packed.data(), packed.data() + packed.size(), size);
    packed.remove_prefix(static_cast<std::size_t>(read.ptr - packed.data()));
    if (read.ec != std::errc() || !packed.starts_with(':') || packed.size() - 1 < size) {
      return std::nullopt;
    }
    texts.emplace_back(packed.substr(1, size));
    packed.remove_prefix(1 + size);
  }
  if (packed.empty()) return std::nullopt;
  return texts;
}

// Comes before the text of an exception, instead of the texts.
constexpr char kThrown = '!';

int writeTexts(int pipe, const std::function<std::vector<std::string>()>& work) {
  try {
    return writeAll(pipe, pack(work())) ? 0 : 1;
  } catch (const std::exception& error) {
    writeAll(pipe, kThrown + std::string(error.what()));
  }
  return 1;
}

}  // namespace

Result<ChildProcess> ChildProcess::start(ChildStreams streams, const Work& work) {
  if (streams == ChildStreams::kShared) return start(-1, false, work);
  const int nothing = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
  auto child = start(nothing, false, work);
  if (nothing != -1) ::close(nothing);
  return child;
}

Result<ChildProcess> ChildProcess::startGroup(int output, const Work& work) {
  return start(output, true, work);
}

Result<ChildProcess> ChildProcess::start(int output, bool isGroup, const Work& work) {
  std::array<int, 2> ends{};
  if (::pipe2(ends.data(), O_CLOEXEC) != 0) return noChild();
  flushStreams();
  const pid_t self = ::getpid();
  const pid_t child = ::fork();
  if (child == 0) {
    endWithParent(self);
    if (isGroup) ::setpgid(0, 0);
    ::close(ends[0]);
    sendStreamsTo(output);
    runAndExit(ends[1], work);
  }
  ::close(ends[1]);
  if (child == -1) {
    Failure failure = noChild();
    ::close(ends[0]);
    return failure;
  }
  // Done on both sides, so that it is done before either side relies on it.
  if (isGroup) ::setpgid(child, child);
  return ChildProcess(child, ends[0], isGroup);
}

ChildProcess::ChildProcess(ChildProcess&& other) noexcept
    : child_(std::exchange(other.child_, -1)),
      pipe_(std::exchange(other.pipe_, -1)),
      isGroup_(other.isGroup_) {}

ChildProcess::~ChildProcess() {
  if (child_ != -1) {
    kill();
    wait();
  }
  if (pipe_ != -1) ::close(pipe_);
}

void ChildProcess::kill() const {
  if (child_ != -1) ::kill(isGroup_ ? -child_ : child_, SIGKILL);
}

void ChildProcess::terminate() const {
  if (child_ != -1) ::kill(child_, SIGTERM);
}

bool ChildProcess::hasEnded() const {
  siginfo_t information{};
  return child_ != -1 &&
         ::waitid(P_PID, static_cast<id_t>(child_), &information, WEXITED | WNOHANG | WNOWAIT) ==
             0 &&
         information.si_pid == child_;
}

int ChildProcess::wait() {
  if (isGroup_) {
    // A crash may have left children of the child. Their group has the child's
    // number, which nobody else can get before the child is waited for.
    siginfo_t information{};
    while (::waitid(P_PID, static_cast<id_t>(child_), &information, WEXITED | WNOWAIT) < 0 &&
           errno == EINTR) {
    }
    kill();
  }
  int status = 0;
  while (::waitpid(child_, &status, 0) == -1 && errno == EINTR) {
  }
  child_ = -1;
  return status;
}

void endWithParent(pid_t parent) {
  ::prctl(PR_SET_PDEATHSIG, SIGKILL);
  // It may have ended before.
  if (::getppid() != parent) ::_exit(1);
}

std::string describeEnd(int status) {
  if (WIFEXITED(status)) return "exit status " + std::to_string(WEXITSTATUS(status));
  return "signal " + std::to_string(WTERMSIG(status));
}

Result<std::vector<std::string>> runInChild(ChildStreams streams,
                                            const std::function<std::vector<std::string>()>& work,
                                            const DescribeEnd& describe) {
  Result<ChildProcess> child =
      ChildProcess::start(streams, [&work](int pipe) { return writeTexts(pipe, work); });
  if (!child) return failureOf(child);
  const std::string output = readAll(child->pipe());
  const int status = child->wait();
  if (auto texts = unpack(output)) return std::move(*texts);
  std::string reason = describe ? describe(status) : "";
  if (!reason.empty()) return fail(Problem::Kind::kNotLoaded, std::move(reason));
  reason = "the process ends with " + describeEnd(status);
  if (output.starts_with(kThrown)) reason = output.substr(1);
  return fail(Problem::Kind::kNotLoaded, std::move(reason));
}

}  // namespace driver_feature::host
