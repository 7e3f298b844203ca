#include "programs/printer/stages.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <sstream>

#include "host/base/child_process.h"

namespace driver_feature::printer {

namespace {

constexpr int kNoProgram = 127;
constexpr std::size_t kMostStages = 4;

// For the signal handler: those that get the signal. 0: none.
std::array<volatile pid_t, kMostStages> cancellable;
volatile std::sig_atomic_t gotSignal = 0;
bool hasKilledStage = false;

void passOn(int signal) {
  gotSignal = 1;
  for (const volatile pid_t& process : cancellable) {
    if (process > 0) ::kill(process, signal);
  }
}

void catchCancellation() {
  struct sigaction action {};
  action.sa_handler = passOn;
  ::sigaction(SIGTERM, &action, nullptr);
}

[[noreturn]] void runStage(const Stage& stage, pid_t parent, int input, int output) {
  host::endWithParent(parent);
  ::signal(SIGTERM, SIG_DFL);
  ::signal(SIGPIPE, SIG_DFL);
  const int nothing = ::open("/dev/null", O_RDWR | O_CLOEXEC);
  ::dup2(input == -1 ? nothing : input, STDIN_FILENO);
  // What a stage prints must not get between the lines for the server.
  ::dup2(output == -1 ? nothing : output, STDOUT_FILENO);
  ::close_range(STDERR_FILENO + 1, ~0U, 0);
  ::_exit(stage.run());
}

struct Running {
  pid_t process;
  std::string name;
  int status = 0;
};

host::Failure noProcess() {
  return host::fail(host::Problem::Kind::kNotLoaded,
                    std::string("a process cannot be made: ") + std::strerror(errno));
}

void closeUnlessGiven(int descriptor, int given) {
  if (descriptor != -1 && descriptor != given) ::close(descriptor);
}

// The first one that has failed by itself. One that has lost its reader has failed
// because of another.
host::Result<> outcome(const std::vector<Running>& running) {
  for (const bool isPipeCounted : {false, true}) {
    for (const Running& one : running) {
      const bool isPipe = WIFSIGNALED(one.status) && WTERMSIG(one.status) == SIGPIPE;
      if (one.status == 0 || isPipe != isPipeCounted) continue;
      return host::fail(host::Problem::Kind::kDifferent,
                        one.name + " ends with " + host::describeEnd(one.status));
    }
  }
  return {};
}

host::Result<> waitForAll(std::vector<Running>& running) {
  for (std::size_t i = 0; i < running.size(); ++i) {
    while (::waitpid(running[i].process, &running[i].status, 0) == -1 && errno == EINTR) {
    }
    const int status = running[i].status;
    if (WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL) hasKilledStage = true;
    // The number may soon be that of another process.
    cancellable[i] = 0;
  }
  return outcome(running);
}

}  // namespace

host::Result<> runStages(const std::vector<Stage>& stages, int input, int output) {
  catchCancellation();
  std::vector<Running> running;
  const pid_t self = ::getpid();
  int from = input;
  for (std::size_t i = 0; i < stages.size(); ++i) {
    std::array<int, 2> pipe{-1, output};
    const bool isLast = i + 1 == stages.size();
    if (!isLast && ::pipe2(pipe.data(), O_CLOEXEC) != 0) return noProcess();
    const pid_t process = ::fork();
    if (process == 0) runStage(stages[i], self, from, pipe[1]);
    closeUnlessGiven(from, input);
    closeUnlessGiven(pipe[1], output);
    from = pipe[0];
    if (process == -1) {
      closeUnlessGiven(from, input);
      return noProcess();
    }
    running.push_back({process, stages[i].name});
    if (stages[i].isCancellable && i < kMostStages) cancellable[i] = process;
  }
  // A signal that came before all of them had been made.
  if (isCancelled()) passOn(SIGTERM);
  return waitForAll(running);
}

bool isCancelled() {
  return gotSignal != 0;
}

bool wasKilled() {
  return hasKilledStage;
}

int runProgram(const std::vector<std::string>& arguments) {
  std::vector<char*> words;
  words.reserve(arguments.size() + 1);
  // execvp() changes nothing of them.
  for (const std::string& argument : arguments)
    words.push_back(const_cast<char*>(argument.c_str()));
  words.push_back(nullptr);
  ::execvp(words[0], words.data());
  return kNoProgram;
}

bool isProgram(const std::string& name) {
  const char* path = std::getenv("PATH");
  std::istringstream folders(path == nullptr ? "/usr/bin:/bin" : path);
  for (std::string folder; std::getline(folders, folder, ':');) {
    folder.append("/").append(name);
    if (::access(folder.c_str(), X_OK) == 0) return true;
  }
  return false;
}

}  // namespace driver_feature::printer
