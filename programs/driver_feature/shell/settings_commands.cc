#include "programs/driver_feature/shell/settings_commands.h"

#include "host/settings/settings_file.h"
#include "programs/driver_feature/shell/shell.h"

namespace driver_feature::cli {

host::Result<> runWrite(Shell& shell, const Words& arguments) {
  shell.answerTo(arguments[0], composeSavedSettings(shell.session().features(), shell.model(),
                                                    host::Secrets::kLeftOut));
  return {};
}

host::Result<> runLoad(Shell& shell, const Words& arguments) {
  host::Result<> loaded = loadSettings(shell.session().features(), shell.model(), arguments[0]);
  if (loaded || loaded.error().more.empty()) return loaded;
  shell.transcript().note(describe(loaded.error()));
  for (const host::Problem& problem : loaded.error().more)
    shell.transcript().note(describe(problem));
  return host::refused(arguments[0] + ": nothing was loaded; correct the lines above");
}

Proposals proposeFile(const Shell& /*shell*/, const Words& /*before*/,
                      const std::string& /*word*/) {
  Proposals proposals;
  proposals.files = true;
  return proposals;
}

}  // namespace driver_feature::cli
