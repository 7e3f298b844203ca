#include "programs/filter/page_filter.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <string_view>
#include <thread>
#include <utility>

#include "host/base/child_process.h"
#include "host/base/descriptor.h"
#include "host/base/temporary_file.h"
#include "programs/filter/kept_file.h"

namespace driver_feature::filter {

namespace {

constexpr int kFilterPatience = 5000;  // Milliseconds for its end after its output's.
constexpr int kLittlePatience = 1000;  // Milliseconds for its end after a signal.
constexpr int kStep = 5;

host::Failure failure(const std::string& what, int error) {
  return fail(host::Problem::Kind::kNotLoaded, "the scheduler's filter for pages cannot be run: " +
                                                   what + ": " + std::strerror(error));
}

// This process's environment, but with another PPD and with the type of what
// the filter reads.
std::vector<std::string> environmentWith(const std::string& ppd) {
  std::vector<std::string> variables;
  for (char** variable = environ; *variable != nullptr; ++variable) {
    const std::string_view text = *variable;
    if (text.starts_with("PPD=") || text.starts_with("CONTENT_TYPE=")) continue;
    variables.emplace_back(text);
  }
  variables.push_back("PPD=" + ppd);
  variables.emplace_back("CONTENT_TYPE=application/postscript");
  return variables;
}

std::vector<char*> pointersTo(std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  pointers.reserve(texts.size() + 1);
  for (std::string& text : texts) pointers.push_back(text.data());
  pointers.push_back(nullptr);
  return pointers;
}

// Whether nothing is left to read, and nobody writes any more.
bool hasEnded(int descriptor) {
  pollfd wait{descriptor, POLLIN, 0};
  return ::poll(&wait, 1, 0) == 1 && (wait.revents & POLLIN) == 0;
}

}  // namespace

std::string pageFilterPath() {
  const char* folder = std::getenv("CUPS_SERVERBIN");
  const bool isSaid = folder != nullptr && *folder != '\0';
  return std::string(isSaid ? folder : "/usr/lib/cups") + "/filter/pstops";
}

bool hasPageFilter() {
  return ::access(pageFilterPath().c_str(), X_OK) == 0;
}

std::string optionsText(const std::vector<host::Setting>& options) {
  std::string text;
  for (const host::Setting& option : options) {
    if (!text.empty()) text += ' ';
    text += option.name + "=\"";
    for (const char c : option.value) {
      if (c == '"' || c == '\\' || c == '\'') text += '\\';
      text += c;
    }
    text += '"';
  }
  return text;
}

PageFilter::~PageFilter() {
  stop();
  if (!ppdFile_.empty()) ::unlink(ppdFile_.c_str());
}

host::Result<> PageFilter::start(int document, const std::string& ppd,
                                 const FilterArguments& arguments,
                                 const std::vector<host::Setting>& options) {
  const int file = makeNamedFile(ppdFile_);
  if (file == -1) return failure("a file in " + temporaryFolder(), errno);
  const bool isWritten = host::writeAll(file, ppd);
  const int error = errno;
  ::close(file);
  if (!isWritten) return failure(ppdFile_, error);
  std::array<int, 2> ends{};
  if (::pipe2(ends.data(), O_CLOEXEC) != 0) return failure("a pipe", errno);
  host::Result<> result =
      launch(document, ends[1],
             {"pstops", std::to_string(arguments.job), arguments.user, arguments.title,
              std::to_string(arguments.copies), optionsText(options)});
  ::close(ends[1]);
  if (result && ::dup2(ends[0], STDIN_FILENO) == -1) result = failure("a pipe", errno);
  ::close(ends[0]);
  return result;
}

host::Result<> PageFilter::launch(int document, int output, std::vector<std::string> words) {
  // All memory is taken before there are two processes.
  const std::string program = pageFilterPath();
  std::vector<std::string> variables = environmentWith(ppdFile_);
  const std::vector<char*> arguments = pointersTo(words);
  const std::vector<char*> environment = pointersTo(variables);
  const pid_t self = ::getpid();
  child_ = ::fork();
  if (child_ == -1) return failure(program, errno);
  if (child_ != 0) return {};
  host::endWithParent(self);
  if (::dup2(document, STDIN_FILENO) != -1 && ::dup2(output, STDOUT_FILENO) != -1) {
    ::execve(program.c_str(), arguments.data(), environment.data());
  }
  ::_exit(127);
}

bool PageFilter::waitFor(int milliseconds) {
  for (int waited = 0; child_ != -1; waited += kStep) {
    const pid_t ended = ::waitpid(child_, &status_, WNOHANG);
    if (ended == child_ || (ended == -1 && errno != EINTR)) child_ = -1;
    if (child_ == -1 || waited >= milliseconds) break;
    std::this_thread::sleep_for(std::chrono::milliseconds(kStep));
  }
  return child_ == -1;
}

// The signal lets it remove its own files.
void PageFilter::stop() {
  if (child_ == -1) return;
  ::kill(child_, SIGTERM);
  if (waitFor(kLittlePatience)) return;
  ::kill(child_, SIGKILL);
  while (::waitpid(child_, &status_, 0) == -1 && errno == EINTR) {
  }
  child_ = -1;
}

host::Result<> PageFilter::finish() {
  if (child_ == -1) return {};
  const bool isRead = hasEnded(STDIN_FILENO);
  // A filter that still writes notices that its output is not read.
  const int nothing = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
  if (nothing == -1) return failure("/dev/null", errno);
  ::dup2(nothing, STDIN_FILENO);
  ::close(nothing);
  if (!isRead) {
    stop();
    return {};
  }
  const std::string name = "the scheduler's filter " + pageFilterPath();
  if (!waitFor(kFilterPatience)) {
    stop();
    return host::refused(name + " did not end after its output; the document may not be whole");
  }
  if (WIFSIGNALED(status_)) {
    return host::refused(name + " was ended by signal " + std::to_string(WTERMSIG(status_)) +
                         "; the document is incomplete");
  }
  if (WEXITSTATUS(status_) == 0) return {};
  return host::refused(name + " failed with status " + std::to_string(WEXITSTATUS(status_)) +
                       "; the document is incomplete");
}

}  // namespace driver_feature::filter
