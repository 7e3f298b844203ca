#include "equivalence/work_process.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <exception>
#include <iostream>
#include <system_error>

#include "host/process_copy.h"
#include "host/temporary_file.h"

namespace driver_feature {

namespace {

// What a child writes: phases and the answer, each between a letter and a NUL.
constexpr char kPhase = 'P';
constexpr char kAnswer = 'A';

constexpr std::size_t kPrintedLimit = 2000;

[[noreturn]] void workInChild(const WorkProcess::Work& work, pid_t parent, int pipe, int printed) {
  endWithParent(parent);
  ::setpgid(0, 0);
  ::dup2(printed, STDOUT_FILENO);
  ::dup2(printed, STDERR_FILENO);
  const auto send = [pipe](char letter, const std::string& text) {
    if (!writeAll(pipe, letter + text + '\0')) ::_exit(1);
  };
  try {
    send(kAnswer, work([&send](const std::string& phase) { send(kPhase, phase); }));
  } catch (const std::exception& error) {
    std::cerr << error.what() << std::endl;
    ::_exit(1);
  }
  ::_exit(0);
}

int waitFor(pid_t child) {
  int status = 0;
  while (::waitpid(child, &status, 0) < 0 && errno == EINTR) continue;
  return status;
}

std::string failureOf(int status) {
  if (WIFSIGNALED(status)) return "crash (signal " + std::to_string(WTERMSIG(status)) + ")";
  if (WEXITSTATUS(status) != 0) return "end (status " + std::to_string(WEXITSTATUS(status)) + ")";
  return "";
}

std::string beginningOf(int file) {
  std::array<char, kPrintedLimit> buffer;
  const ssize_t count = ::pread(file, buffer.data(), buffer.size(), 0);
  return {buffer.data(), count > 0 ? static_cast<std::size_t>(count) : 0};
}

}  // namespace

WorkProcess::WorkProcess(pid_t child, int pipe, int printed, std::chrono::seconds limit)
    : child_(child), pipe_(pipe), printed_(printed), deadline_(Clock::now() + limit) {}

std::unique_ptr<WorkProcess> WorkProcess::start(const Work& work, std::chrono::seconds limit) {
  std::array<int, 2> ends{};
  if (::pipe2(ends.data(), O_CLOEXEC) != 0) {
    throw std::system_error(errno, std::generic_category(), "pipe");
  }
  const int printed = ::memfd_create("printed", MFD_CLOEXEC);
  // What waits in a buffer must not come out twice.
  std::cout.flush();
  std::fflush(nullptr);
  const pid_t self = ::getpid();
  const pid_t child = printed < 0 ? -1 : ::fork();
  if (child == 0) workInChild(work, self, ends[1], printed);
  const int error = errno;
  ::close(ends[1]);
  if (child < 0) {
    ::close(ends[0]);
    if (printed >= 0) ::close(printed);
    throw std::system_error(error, std::generic_category(), "a child process");
  }
  // Done on both sides, so that it is done before either side relies on it.
  ::setpgid(child, child);
  return std::unique_ptr<WorkProcess>(new WorkProcess(child, ends[0], printed, limit));
}

WorkProcess::~WorkProcess() {
  if (!finished_) {
    endChildren();
    waitFor(child_);
  }
  ::close(pipe_);
  ::close(printed_);
}

// The check of a description loads it in a child of the child.
void WorkProcess::endChildren() const {
  ::kill(-child_, SIGKILL);
}

bool WorkProcess::take() {
  std::array<char, 65536> buffer;
  const ssize_t count = ::read(pipe_, buffer.data(), buffer.size());
  if (count < 0) return errno == EINTR || errno == EAGAIN;
  received_.append(buffer.data(), static_cast<std::size_t>(count));
  return count > 0;
}

bool WorkProcess::endWhenLate() {
  if (Clock::now() < deadline_) return false;
  late_ = true;
  endChildren();
  return true;
}

WorkResult WorkProcess::finish() {
  // A crash may have left children of the child behind. Their group has the
  // child's number, which nobody else can get before the child is waited for.
  siginfo_t information{};
  while (::waitid(P_PID, static_cast<id_t>(child_), &information, WEXITED | WNOWAIT) < 0 &&
         errno == EINTR)
    continue;
  endChildren();
  const int status = waitFor(child_);
  finished_ = true;
  WorkResult result;
  std::size_t begin = 0;
  for (std::size_t end; (end = received_.find('\0', begin)) != std::string::npos; begin = end + 1) {
    std::string& text = received_[begin] == kAnswer ? result.answer : result.phase;
    text = received_.substr(begin + 1, end - begin - 1);
  }
  result.failure = late_ ? "time limit" : failureOf(status);
  if (result.failure.empty() && result.answer.empty()) result.failure = "end (status 0)";
  result.printed = beginningOf(printed_);
  return result;
}

}  // namespace driver_feature
