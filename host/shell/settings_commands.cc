#include "host/shell/settings_commands.h"

#include "host/settings_file.h"
#include "host/shell/shell.h"

namespace driver_feature {

Refusal runWrite(Shell& shell, const Words& arguments) {
  shell.answerTo(arguments[0], composeSettings(shell.session().features(), shell.model()));
  return std::nullopt;
}

Refusal runLoad(Shell& shell, const Words& arguments) {
  const std::vector<std::string> refused =
      loadSettings(shell.session().features(), shell.model(), arguments[0]);
  if (refused.empty()) return std::nullopt;
  if (refused.size() == 1) return refused.front();
  for (const std::string& line : refused) shell.transcript().note(line);
  return arguments[0] + ": nothing was loaded; correct the lines above";
}

Proposals proposeFile(const Shell& /*shell*/, const Words& /*before*/,
                      const std::string& /*word*/) {
  Proposals proposals;
  proposals.files = true;
  return proposals;
}

}  // namespace driver_feature
