#include "programs/driver_feature/shell/completion.h"

#include <algorithm>

#include "host/session/log.h"

namespace driver_feature::cli {

namespace {

Proposals proposeAll(const Shell& shell, const UnfinishedLine& line) {
  if (line.before.empty()) return {commandNames()};
  const auto found = findCommand(line.before.front());
  if (!found) return {};
  const ShellCommand& command = **found;
  const Words arguments(line.before.begin() + 1, line.before.end());
  if (command.propose == nullptr || arguments.size() >= command.most) return {};
  return command.propose(shell, arguments, line.word);
}

}  // namespace

Proposals complete(const Shell& shell, std::string_view line) {
  const UnfinishedLine unfinished = splitUnfinished(line);
  Proposals proposals = proposeAll(shell, unfinished);
  std::vector<std::string>& words = proposals.words;
  std::erase_if(
      words, [&unfinished](const std::string& word) { return !word.starts_with(unfinished.word); });
  std::sort(words.begin(), words.end());
  words.erase(std::unique(words.begin(), words.end()), words.end());
  return proposals;
}

}  // namespace driver_feature::cli
