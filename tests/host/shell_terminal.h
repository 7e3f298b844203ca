// A terminal with the shell on it: a pseudo-terminal on which keys are pressed.
#ifndef TESTS_HOST_SHELL_TERMINAL_H_
#define TESTS_HOST_SHELL_TERMINAL_H_

#include <poll.h>
#include <pty.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

inline constexpr const char* kPrompt = "driver-feature> ";

// The program on a terminal of its own.
class Terminal {
 public:
  Terminal(const std::filesystem::path& folder, const std::vector<std::string>& environment) {
    const winsize size{24, 200, 0, 0};
    child_ = forkpty(&master_, nullptr, nullptr, &size);
    if (child_ != 0) return;
    if (chdir(folder.c_str()) != 0) _exit(126);
    setenv("TERM", "dumb", 1);
    setenv("EDITRC", "/dev/null", 1);
    unsetenv("NO_COLOR");
    setenv("XDG_STATE_HOME", (folder / "state").c_str(), 1);
    for (const std::string& setting : environment) {
      const std::size_t equals = setting.find('=');
      setenv(setting.substr(0, equals).c_str(), setting.substr(equals + 1).c_str(), 1);
    }
    execl(DRIVER_FEATURE_PROGRAM, DRIVER_FEATURE_PROGRAM, "--callbacks", ROUTINES_LIBRARY, "shell",
          "office.xml", nullptr);
    _exit(127);
  }
  ~Terminal() {
    close(master_);
    if (child_ <= 0) return;
    kill(child_, SIGKILL);
    waitpid(child_, nullptr, 0);
  }
  Terminal(const Terminal&) = delete;
  Terminal& operator=(const Terminal&) = delete;

  void press(const std::string& keys) const {
    EXPECT_EQ(write(master_, keys.data(), keys.size()), static_cast<ssize_t>(keys.size()));
  }

  // What is shown from here on, up to and including `end`. After ten seconds
  // without it, what there is.
  std::string readUntil(const std::string& end) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    std::string shown;
    while (!shown.ends_with(end) && std::chrono::steady_clock::now() < deadline) {
      pollfd input{master_, POLLIN, 0};
      char byte = 0;
      if (poll(&input, 1, 100) <= 0) continue;
      if (read(master_, &byte, 1) != 1) break;
      shown += byte;
    }
    return shown;
  }

  std::string readPrompt() { return readUntil(kPrompt); }
  void resize(unsigned short columns) const {
    const winsize size{24, columns, 0, 0};
    EXPECT_EQ(ioctl(master_, TIOCSWINSZ, &size), 0);
  }
  pid_t child() const { return child_; }
  bool isLineEditing() const {
    termios settings{};
    return tcgetattr(master_, &settings) == 0 && (settings.c_lflag & ICANON) == 0;
  }

  // Waits for the end; the exit status, or 1000 and the signal. A program that
  // has not ended after ten seconds is killed.
  int end() {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    int status = 0;
    while (waitpid(child_, &status, WNOHANG) == 0) {
      if (std::chrono::steady_clock::now() > deadline) kill(child_, SIGKILL);
      std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    child_ = 0;
    return WIFEXITED(status) ? WEXITSTATUS(status) : 1000 + WTERMSIG(status);
  }

 private:
  int master_ = -1;
  pid_t child_ = -1;
};

#endif  // TESTS_HOST_SHELL_TERMINAL_H_
