// The built filter, running while a test does something with it.
#ifndef TESTS_PRINTING_RUNNING_FILTER_H_
#define TESTS_PRINTING_RUNNING_FILTER_H_

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <filesystem>
#include <functional>
#include <string>

// A filter that runs while the test does something with it.
class RunningFilter {
 public:
  RunningFilter(const std::filesystem::path& folder, const std::function<void()>& enter,
                const std::string& options = "") {
    if (::pipe(input_.data()) != 0 || ::pipe(output_.data()) != 0) return;
    process_ = ::fork();
    if (process_ == 0) {
      if (::chdir(folder.c_str()) != 0) ::_exit(126);
      enter();
      ::dup2(input_[0], STDIN_FILENO);
      ::dup2(output_[1], STDOUT_FILENO);
      ::dup2(::open("/dev/null", O_WRONLY), STDERR_FILENO);
      for (const int end : {input_[0], input_[1], output_[0], output_[1]}) ::close(end);
      ::execl(DRIVER_FEATURE_FILTER, DRIVER_FEATURE_FILTER, "7", "jane", "t", "1", options.c_str(),
              nullptr);
      ::_exit(127);
    }
    ::close(input_[0]);
    ::close(output_[1]);
  }
  ~RunningFilter() {
    if (process_ > 0) ::kill(process_, SIGKILL);
    finish();
  }
  RunningFilter(const RunningFilter&) = delete;
  RunningFilter& operator=(const RunningFilter&) = delete;

  void send(const std::string& bytes) const {
    ASSERT_EQ(::write(input_[1], bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
  }

  // Reads up to so many bytes, or the end.
  std::string read(std::size_t count) const {
    std::string bytes(count, '\0');
    std::size_t size = 0;
    while (size < count) {
      const ssize_t got = ::read(output_[0], bytes.data() + size, count - size);
      if (got <= 0) break;
      size += static_cast<std::size_t>(got);
    }
    bytes.resize(size);
    return bytes;
  }

  // The job ends.
  void endInput() {
    ::close(input_[1]);
    input_[1] = -1;
  }

  void cancel() const { ::kill(process_, SIGTERM); }

  // Waits for the end. Returns the status, 1000 and more for a signal.
  int finish() {
    if (process_ <= 0) return -1;
    int status = 0;
    ::waitpid(process_, &status, 0);
    process_ = -1;
    if (input_[1] != -1) ::close(input_[1]);
    ::close(output_[0]);
    return WIFSIGNALED(status) ? 1000 + WTERMSIG(status) : WEXITSTATUS(status);
  }

 private:
  std::array<int, 2> input_{};
  std::array<int, 2> output_{};
  pid_t process_ = -1;
};

#endif  // TESTS_PRINTING_RUNNING_FILTER_H_
