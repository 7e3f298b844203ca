#include "host/shell/shell_command.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

#include <CLI/CLI.hpp>

#include "host/command_arguments.h"
#include "host/shell/line_editor.h"
#include "host/shell/shell.h"

namespace driver_feature {

namespace {

constexpr const char* kFooter =
    "\"help\" in the shell lists its commands. Answers go to standard output; what a\n"
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

struct ShellRequest {
  std::string description;
  bool keepGoing = false;
  bool allowControlCharacters = false;
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

int runScript(Shell& shell, bool keepGoing) {
  int status = kSuccess;
  Script script;
  std::string line;
  while (!shell.hasEnded() && script.read(line)) {
    const Refusal refusal = shell.execute(line);
    if (!refusal) continue;
    complain("standard input:" + std::to_string(script.number()) + ": " + *refusal);
    if (status == kSuccess) status = shell.statusOfRefusal();
    if (!keepGoing) return status;
  }
  if (!Script::hasFailed()) return status;
  complain("standard input cannot be read; give a script or use a terminal");
  return kUnusable;
}

int runTerminal(Shell& shell, const Transcript& transcript) {
  LineEditor editor(shell);
  std::string line;
  while (!shell.hasEnded() && editor.read(line)) {
    if (const Refusal refusal = shell.execute(line)) transcript.refuse(*refusal);
  }
  return kSuccess;
}

int runShell(const SessionRequest& request, const ShellRequest& shellRequest) {
  const Transcript transcript;
  std::unique_ptr<Session> session;
  {
    const StandardOutputDiversion diversion;
    int status = kSuccess;
    session = Session::open(request, status);
    if (!session) return status;
    session->log().release();
    if (shellRequest.allowControlCharacters) session->allowControlCharacters();
  }
  Shell shell(*session, transcript);
  const bool atTerminal = ::isatty(STDIN_FILENO) != 0 && ::isatty(STDERR_FILENO) != 0;
  return atTerminal ? runTerminal(shell, transcript) : runScript(shell, shellRequest.keepGoing);
}

}  // namespace

Command addShellCommand(CLI::App& program, const SessionRequest& general) {
  const auto request = std::make_shared<ShellRequest>();
  CLI::App* command =
      program.add_subcommand("shell", "Work on a description line by line, or by a script");
  command->footer(kFooter);
  command->fallthrough();  // The general options may stand behind the command.
  command->add_option("DESC", request->description, "The feature description, an XML file")
      ->required()
      ->type_name("FILE");
  command->add_flag("--keep-going", request->keepGoing,
                    "Do the rest of a script although a line was refused");
  addAllowance(*command, request->allowControlCharacters);
  return {command, [request, &general] {
            SessionRequest session = general;
            session.description = request->description;
            return runShell(session, *request);
          }};
}

}  // namespace driver_feature
