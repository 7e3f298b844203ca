#include "programs/driver_feature/shell/settings_commands.h"

#include "host/base/text.h"
#include "host/settings/preset_settings.h"
#include "host/settings/settings_file.h"
#include "programs/driver_feature/shell/shell.h"
#include "programs/driver_feature/show/people_texts.h"

namespace driver_feature::cli {

host::Result<> runWrite(Shell& shell, const Words& arguments) {
  shell.answerTo(arguments[0], composeSavedSettings(shell.session().features(), shell.model(),
                                                    host::Secrets::kLeftOut));
  return {};
}

namespace {

// The lines of several refusals, and one sentence about all of them.
host::Result<> noteAll(const Shell& shell, host::Result<> done, const std::string& what) {
  if (done || done.error().more.empty()) return done;
  shell.transcript().note(describe(done.error()));
  for (const host::Problem& problem : done.error().more) {
    shell.transcript().note(describe(problem));
  }
  return host::refused(what + "; correct the lines above");
}

}  // namespace

host::Result<> runLoad(Shell& shell, const Words& arguments) {
  return noteAll(shell, loadSettings(shell.session().features(), shell.model(), arguments[0]),
                 arguments[0] + ": nothing was loaded");
}

host::Result<> runPreset(Shell& shell, const Words& arguments) {
  const auto preset =
      host::findPreset(shell.session().additions(host::kPresetsPart).presets, arguments[0]);
  if (!preset) return host::Failure(preset.error());
  return noteAll(shell, applyPreset(shell.session().features(), shell.model(), **preset),
                 "preset " + host::inQuotes(arguments[0]) + ": nothing was set");
}

host::Result<> runPresets(Shell& shell, const Words& /*arguments*/) {
  shell.answer(presetsText(shell.session(), PeopleTexts(shell.session(), ""), shell.width()));
  return {};
}

Proposals proposePreset(const Shell& shell, const Words& before, const std::string& /*word*/) {
  Proposals proposals;
  if (!before.empty()) return proposals;
  for (const host::Preset& preset : shell.session().additions(host::kPresetsPart).presets) {
    proposals.words.push_back(preset.name);
  }
  return proposals;
}

Proposals proposeFile(const Shell& /*shell*/, const Words& /*before*/,
                      const std::string& /*word*/) {
  Proposals proposals;
  proposals.files = true;
  return proposals;
}

}  // namespace driver_feature::cli
