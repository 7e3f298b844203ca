#include "equivalence/program_run.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <system_error>

namespace driver_feature::equivalence {

namespace {

[[noreturn]] void failWith(const char* what) {
  throw std::system_error(errno, std::generic_category(), what);
}

// A file without a name: both outputs can be long, and nobody reads while the
// program runs.
class Catch {
 public:
  Catch() : file_(::memfd_create("output", MFD_CLOEXEC)) {
    if (file_ < 0) failWith("memfd_create");
  }
  ~Catch() { ::close(file_); }
  Catch(const Catch&) = delete;
  Catch& operator=(const Catch&) = delete;

  int file() const { return file_; }

  std::string text() const {
    std::string all;
    std::array<char, 65536> buffer;
    for (;;) {
      const ssize_t count =
          ::pread(file_, buffer.data(), buffer.size(), static_cast<off_t>(all.size()));
      if (count <= 0) return all;
      all.append(buffer.data(), static_cast<std::size_t>(count));
    }
  }

 private:
  int file_;
};

int waitFor(pid_t child) {
  int status = 0;
  while (::waitpid(child, &status, 0) < 0) {
    if (errno != EINTR) failWith("waitpid");
  }
  return WIFSIGNALED(status) ? 1000 + WTERMSIG(status) : WEXITSTATUS(status);
}

}  // namespace

ProgramOutput runProgram(const std::string& program, const std::vector<std::string>& arguments,
                         const std::vector<std::pair<std::string, std::string>>& variables,
                         const std::string& input) {
  const Catch output;
  const Catch errors;
  const std::string source = input.empty() ? "/dev/null" : input;
  std::vector<std::string> words = {program};
  words.insert(words.end(), arguments.begin(), arguments.end());
  std::vector<char*> argv;
  argv.reserve(words.size() + 1);
  for (std::string& word : words) argv.push_back(word.data());
  argv.push_back(nullptr);
  const pid_t child = ::fork();
  if (child < 0) failWith("fork");
  if (child == 0) {
    for (const auto& [name, value] : variables) {
      if (value.empty()) {
        ::unsetenv(name.c_str());
      } else {
        ::setenv(name.c_str(), value.c_str(), 1);
      }
    }
    const int in = ::open(source.c_str(), O_RDONLY | O_CLOEXEC);
    ::dup2(in, STDIN_FILENO);
    ::dup2(output.file(), STDOUT_FILENO);
    ::dup2(errors.file(), STDERR_FILENO);
    ::execv(program.c_str(), argv.data());
    ::_exit(127);
  }
  ProgramOutput result;
  result.status = waitFor(child);
  result.output = output.text();
  result.errors = errors.text();
  return result;
}

}  // namespace driver_feature::equivalence
