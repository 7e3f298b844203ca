#include "programs/driver_feature/shell/shell.h"

#include "host/base/standard_streams.h"
#include "host/session/routine_calls.h"
#include "programs/common/console.h"
#include "programs/driver_feature/shell/command_table.h"
#include "programs/driver_feature/shell/words.h"
#include "programs/driver_feature/show/show.h"

namespace driver_feature::cli {

namespace {

host::Result<> checkCount(const ShellCommand& command, std::size_t count) {
  if (count >= command.fewest && count <= command.most) return {};
  const std::string usage = std::string(command.name) + " " + command.arguments;
  return host::refused(
      std::string(count < command.fewest ? "an argument is missing" : "too many arguments") +
      "; write " + (*command.arguments != '\0' ? usage : std::string(command.name)));
}

// What was set before the shell begins counts as set by its user.
host::RuleKeeper keeperFor(const host::Session& session) {
  host::RuleKeeper keeper(session, "\"resolve\" in place of \"set\" also changes ");
  keeper.noteAllChanged();
  keeper.takeOut();
  return keeper;
}

}  // namespace

Shell::Shell(host::Session& session, const Transcript& transcript)
    : session_(session),
      transcript_(transcript),
      rules_(keeperFor(session)),
      watch_(session, [&transcript](EventKind kind, const std::string& text) {
        transcript.event(kind, text);
      }) {
  session_.log().setReport([&transcript](const std::string& line) { transcript.logLine(line); });
}

Shell::~Shell() {
  session_.log().setReport(&printError);
}

host::Result<> Shell::execute(const std::string& line) {
  Words words;
  if (host::Result<> done = splitWords(line, words); !done) return done;
  if (words.empty()) return {};
  auto command = findCommand(words.front());
  if (!command) return failureOf(command);
  words.erase(words.begin());
  if (host::Result<> done = checkCount(**command, words.size()); !done) return done;
  answer_.clear();
  files_.clear();
  width_ = terminalWidth();
  if (host::Result<> done = run(**command, words); !done) return done;
  return writeAnswers();
}

// A routine that throws refuses the line and not the whole work.
host::Result<> Shell::run(const ShellCommand& command, const std::vector<std::string>& words) {
  // Routines of the description may print, which is not part of the result.
  const host::StandardOutputDiversion diversion;
  host::clearRoutineRecord();
  host::Result<> done;
  try {
    done = command.run(*this, words);
  } catch (...) {
    if (host::successOfRoutines()) throw;
  }
  rules_.takeOut();  // Hardware may have changed.
  watch_.look();
  if (host::Result<> ran = host::successOfRoutines(); !ran) return ran;
  return done;
}

host::Result<> Shell::writeAnswers() const {
  for (const auto& [file, bytes] : files_) {
    if (host::Result<> written = host::writeToFile(file, bytes); !written) return written;
  }
  return Transcript::answer(answer_);
}

}  // namespace driver_feature::cli
