#include "programs/printer/job_run.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <utility>

#include "host/base/child_setting.h"

namespace driver_feature::printer {

namespace {

constexpr std::size_t kLongestLine = 4096;
constexpr host::EventLoop::Milliseconds kCancelTime{5000};

JobEnd endOf(int status) {
  if (status == 0) return JobEnd::kPrinted;
  const bool isKilled = WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
  const bool isAgain = WIFEXITED(status) && WEXITSTATUS(status) == kTryAgain;
  return isKilled || isAgain ? JobEnd::kKilled : JobEnd::kFailed;
}

}  // namespace

host::Result<std::unique_ptr<JobRun>> JobRun::start(host::EventLoop& loop, const PrintOrder& order,
                                                    Notices notices) {
  std::array<int, 2> ends{-1, -1};
  if (::pipe2(ends.data(), O_CLOEXEC) != 0) {
    return host::fail(host::Problem::Kind::kNotLoaded, "no pipe for the job's process");
  }
  auto child = host::ChildProcess::startGroup(ends[1], [&order](int pipe) {
    // Open until the process ends, so that the server sees the end.
    host::leaveServer(pipe);
    return runJobProcess(order);
  });
  ::close(ends[1]);
  if (!child) {
    ::close(ends[0]);
    return failureOf(child);
  }
  return std::unique_ptr<JobRun>(new JobRun(loop, std::move(*child), ends[0], std::move(notices)));
}

JobRun::JobRun(host::EventLoop& loop, host::ChildProcess child, int lines, Notices notices)
    : loop_(loop), child_(std::move(child)), lines_(lines), notices_(std::move(notices)) {
  ::fcntl(lines_, F_SETFL, O_NONBLOCK);
  loop_.watch(lines_, POLLIN, [this](short) { readLines(); });
  loop_.watch(child_.pipe(), POLLIN, [this](short) { end(); });
}

JobRun::~JobRun() {
  if (timer_) loop_.cancel(*timer_);
  loop_.forget(lines_);
  loop_.forget(child_.pipe());
  ::close(lines_);
}

void JobRun::readLines() {
  std::array<char, 16384> buffer;
  const ssize_t count = ::read(lines_, buffer.data(), buffer.size());
  if (count > 0) return takeLines({buffer.data(), static_cast<std::size_t>(count)});
  if (count == 0) loop_.forget(lines_);
}

void JobRun::takeLines(std::string_view bytes) {
  rest_ += bytes;
  std::size_t begin = 0;
  for (std::size_t end = rest_.find('\n'); end != std::string::npos;
       end = rest_.find('\n', begin)) {
    notices_.line(rest_.substr(begin, std::min(end - begin, kLongestLine)));
    begin = end + 1;
  }
  rest_.erase(0, begin);
  if (rest_.size() > kLongestLine) rest_.resize(kLongestLine);
}

void JobRun::cancel() {
  child_.terminate();
  if (!timer_) timer_ = loop_.after(kCancelTime, [this] { child_.kill(); });
}

void JobRun::end() {
  std::array<char, 16384> buffer;
  for (ssize_t count = 0; (count = ::read(lines_, buffer.data(), buffer.size())) > 0;) {
    takeLines({buffer.data(), static_cast<std::size_t>(count)});
  }
  const int status = child_.wait();
  loop_.forget(child_.pipe());
  const auto isOver = std::move(notices_.isOver);
  isOver(endOf(status), host::describeEnd(status));
}

}  // namespace driver_feature::printer
