// "shell": work on a description line by line.

#include "programs/driver_feature/shell/shell.h"

#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

#include "host/base/standard_streams.h"
#include "programs/common/console.h"
#include "programs/driver_feature/change_arguments.h"
#include "programs/driver_feature/commands/commands.h"
#include "programs/driver_feature/shell/line_editor.h"

namespace driver_feature::cli {

namespace {

constexpr const char* kFooter =
    "\"help\" in the shell lists its commands. Results go to standard output; what a\n"
    "command causes (log lines, notifications, changes) goes to standard error.\n"
    "\n"
    "A script on standard input ends at its first refused line, with that line's\n"
    "status, unless --keep-going is given.\n"
    "\n"
    "Examples:\n"
    "  driver-feature shell office.xml\n"
    "  printf 'set Copies 2\\nemit ps\\n' | driver-feature shell office.xml\n"
    "\n"
    "Exit status: 0 success, 1 a description could not be loaded or a file not written,\n"
    "2 wrong usage, an unusable file or a refused line.";

constexpr std::array kRows = {
    kDescriptionRow,
    ArgumentRow{"--keep-going", "", "Continue a script after a refused line"},
    kAllowanceRow,
};

// The lines of standard input.
class Script {
 public:
  Script() = default;
  ~Script() { std::free(buffer_); }
  Script(const Script&) = delete;
  Script& operator=(const Script&) = delete;

  // False at the end. A line end with a carriage return counts as one.
  bool read(std::string& line) {
    const ssize_t length = ::getline(&buffer_, &size_, stdin);
    if (length < 0) return false;
    line.assign(buffer_, static_cast<std::size_t>(length));
    if (line.ends_with('\n')) line.pop_back();
    if (line.ends_with('\r')) line.pop_back();
    ++number_;
    return true;
  }

  std::size_t number() const { return number_; }  // Of the last line, from 1.
  static bool hasFailed() { return std::ferror(stdin) != 0; }

 private:
  char* buffer_ = nullptr;
  std::size_t size_ = 0;
  std::size_t number_ = 0;
};

host::Result<int> runScript(Shell& shell, bool keepGoing) {
  int status = kSuccess;
  Script script;
  std::string line;
  while (!shell.hasEnded() && script.read(line)) {
    const host::Result<> done = shell.execute(line);
    if (done) continue;
    printError("standard input:" + std::to_string(script.number()) + ": " + describe(done.error()));
    if (status == kSuccess) status = statusOf(done.error());
    if (!keepGoing) return status;
  }
  if (!Script::hasFailed()) return status;
  return fail(host::Problem::Kind::kUnreadable,
              "standard input cannot be read; give a script or use a terminal");
}

int runTerminal(Shell& shell, const Transcript& transcript) {
  LineEditor editor(shell);
  std::string line;
  while (!shell.hasEnded() && editor.read(line)) {
    if (const host::Result<> done = shell.execute(line); !done) {
      transcript.refuse(describe(done.error()));
    }
  }
  return kSuccess;
}

host::Result<std::unique_ptr<host::Session>> open(const host::SessionRequest& request) {
  const host::StandardOutputDiversion diversion;
  auto session = host::Session::open(request);
  if (session) (*session)->log().release();
  return session;
}

host::Result<int> run(const Arguments& arguments, const host::SessionRequest& general) {
  const Transcript transcript;
  auto session = open(sessionOf(arguments, general));
  if (!session) return failureOf(session);
  if (arguments.has("--allow-control-characters")) (*session)->allowControlCharacters();
  Shell shell(**session, transcript);
  const bool atTerminal = ::isatty(STDIN_FILENO) != 0 && ::isatty(STDERR_FILENO) != 0;
  if (atTerminal) return runTerminal(shell, transcript);
  return runScript(shell, arguments.has("--keep-going"));
}

}  // namespace

const CommandRow kShellCommand = {
    "shell", "Work on a description line by line, or from a script", kFooter, kRows, {}, &run,
    true};

}  // namespace driver_feature::cli
