#include "host/shell/shell.h"

#include "host/shell/command_table.h"
#include "host/shell/words.h"
#include "host/show.h"

namespace driver_feature {

namespace {

Refusal checkCount(const ShellCommand& command, std::size_t count) {
  if (count >= command.fewest && count <= command.most) return std::nullopt;
  const std::string usage = std::string(command.name) + " " + command.arguments;
  return std::string(count < command.fewest ? "an argument is missing" : "too many arguments") +
         "; write " + (*command.arguments != '\0' ? usage : std::string(command.name));
}

}  // namespace

Shell::Shell(Session& session, const Transcript& transcript)
    : session_(session),
      transcript_(transcript),
      watch_(session, [&transcript](EventKind kind, const std::string& text) {
        transcript.event(kind, text);
      }) {
  session_.log().setTeller([&transcript](const std::string& line) { transcript.logLine(line); });
}

Shell::~Shell() {
  session_.log().setTeller(&complain);
}

Refusal Shell::execute(const std::string& line) {
  status_ = kUnusable;
  Words words;
  if (Refusal refusal = splitWords(line, words)) return refusal;
  if (words.empty()) return std::nullopt;
  const ShellCommand* command = nullptr;
  if (Refusal refusal = findCommand(words.front(), command)) return refusal;
  words.erase(words.begin());
  if (Refusal refusal = checkCount(*command, words.size())) return refusal;
  answer_.clear();
  files_.clear();
  width_ = terminalWidth();
  {
    // Routines of the description may print, and that is no answer.
    const StandardOutputDiversion diversion;
    Refusal refusal = command->run(*this, words);
    watch_.look();
    if (refusal) return refusal;
  }
  if (const WriteProblem problem = writeAnswers()) return failToWrite(*problem);
  return std::nullopt;
}

WriteProblem Shell::writeAnswers() const {
  for (const auto& [file, bytes] : files_) {
    if (WriteProblem problem = writeToFile(file, bytes)) return problem;
  }
  return Transcript::answer(answer_);
}

Refusal Shell::failToWrite(const std::string& problem) {
  status_ = kFailure;
  return problem;
}

}  // namespace driver_feature
