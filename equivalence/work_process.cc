#include "equivalence/work_process.h"

#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <exception>
#include <iostream>
#include <stdexcept>
#include <system_error>
#include <utility>

#include "host/base/descriptor.h"

namespace driver_feature::equivalence {

namespace {

// What a child writes: phases and the output, each between a letter and a NUL.
constexpr char kPhase = 'P';
constexpr char kOutput = 'A';

constexpr std::size_t kPrintedLimit = 2000;

int workInChild(const WorkProcess::Work& work, int pipe) {
  const auto send = [pipe](char letter, const std::string& text) {
    if (!host::writeAll(pipe, letter + text + '\0')) ::_exit(1);
  };
  try {
    send(kOutput, work([&send](const std::string& phase) { send(kPhase, phase); }));
  } catch (const std::exception& error) {
    std::cerr << error.what() << std::endl;
    return 1;
  }
  return 0;
}

std::string failureText(int status) {
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

WorkProcess::WorkProcess(host::ChildProcess child, int printed, std::chrono::seconds limit)
    : child_(std::move(child)), printed_(printed), deadline_(Clock::now() + limit) {}

std::unique_ptr<WorkProcess> WorkProcess::start(const Work& work, std::chrono::seconds limit) {
  const int printed = ::memfd_create("printed", MFD_CLOEXEC);
  if (printed < 0) throw std::system_error(errno, std::generic_category(), "a file in memory");
  // The check of a description loads it in a child of the child.
  host::Result<host::ChildProcess> child = host::ChildProcess::startGroup(
      printed, [&work](int pipe) { return workInChild(work, pipe); });
  if (!child) {
    ::close(printed);
    throw std::runtime_error(child.error().text);
  }
  return std::unique_ptr<WorkProcess>(new WorkProcess(std::move(*child), printed, limit));
}

WorkProcess::~WorkProcess() {
  ::close(printed_);
}

bool WorkProcess::take() {
  std::array<char, 65536> buffer;
  const ssize_t count = ::read(child_.pipe(), buffer.data(), buffer.size());
  if (count < 0) return errno == EINTR || errno == EAGAIN;
  received_.append(buffer.data(), static_cast<std::size_t>(count));
  return count > 0;
}

bool WorkProcess::endWhenLate() {
  if (Clock::now() < deadline_) return false;
  late_ = true;
  child_.kill();
  return true;
}

WorkResult WorkProcess::finish() {
  const int status = child_.wait();
  WorkResult result;
  std::size_t begin = 0;
  for (std::size_t end; (end = received_.find('\0', begin)) != std::string::npos; begin = end + 1) {
    std::string& text = received_[begin] == kOutput ? result.output : result.phase;
    text = received_.substr(begin + 1, end - begin - 1);
  }
  result.failure = late_ ? "time limit" : failureText(status);
  if (result.failure.empty() && result.output.empty()) result.failure = "end (status 0)";
  result.printed = beginningOf(printed_);
  return result;
}

}  // namespace driver_feature::equivalence
