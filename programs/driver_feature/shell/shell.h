// The shell apart from reading lines: runs commands in a session and shows what
// each of them causes.
#ifndef PROGRAMS_DRIVER_FEATURE_SHELL_SHELL_H_
#define PROGRAMS_DRIVER_FEATURE_SHELL_SHELL_H_

#include <cstddef>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "host/base/result.h"
#include "host/session/session.h"
#include "host/settings/rule_keeping.h"
#include "programs/driver_feature/shell/events.h"
#include "programs/driver_feature/shell/transcript.h"

namespace driver_feature::cli {

struct ShellCommand;

class Shell {
 public:
  // Both must outlive the shell. From now on the session's log lines go to the
  // transcript.
  Shell(host::Session& session, const Transcript& transcript);
  ~Shell();
  Shell(const Shell&) = delete;
  Shell& operator=(const Shell&) = delete;

  // Runs one line and writes its result. A refused line writes none; what
  // it has changed before it was refused stays.
  host::Result<> execute(const std::string& line);

  bool hasEnded() const { return ended_; }

  // For the commands.

  host::Session& session() { return session_; }
  const host::Session& session() const { return session_; }
  const host::Model& model() const { return session_.model(); }
  const Transcript& transcript() const { return transcript_; }
  // Columns of the terminal that results go to; 0 when they go elsewhere.
  std::size_t width() const { return width_; }
  void answer(const std::string& text) { answer_ += text; }
  // Writes `bytes` to a file, whole or not at all, once the command has ended.
  void answerTo(const std::string& file, const std::string& bytes) { files_[file] = bytes; }
  void end() { ended_ = true; }

  // The rules of the description, and what has been set under them.
  host::RuleKeeper& rules() { return rules_; }

  // What an option was before its first constraint, by feature and option.
  struct OptionFlags {
    bool available = true;
    bool visible = true;
  };
  using ConstrainedOptions = std::map<std::pair<std::string, std::string>, OptionFlags>;
  ConstrainedOptions& constrainedOptions() { return constrained_; }

 private:
  host::Result<> run(const ShellCommand& command, const std::vector<std::string>& words);
  host::Result<> writeAnswers() const;

  host::Session& session_;
  const Transcript& transcript_;
  host::RuleKeeper rules_;
  EventWatch watch_;
  std::size_t width_ = 0;
  std::string answer_;
  std::map<std::string, std::string> files_;
  bool ended_ = false;
  ConstrainedOptions constrained_;
};

}  // namespace driver_feature::cli

#endif  // PROGRAMS_DRIVER_FEATURE_SHELL_SHELL_H_
