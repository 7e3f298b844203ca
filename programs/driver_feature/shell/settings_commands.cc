#include "programs/driver_feature/shell/settings_commands.h"

#include <functional>

#include "host/base/child_process.h"
#include "host/base/text.h"
#include "host/settings/preset_settings.h"
#include "host/settings/settings_file.h"
#include "programs/driver_feature/shell/shell.h"
#include "programs/driver_feature/show/people_texts.h"

namespace driver_feature::cli {

namespace {

// Sets what a settings file or a preset says, unless the rules forbid it
// together. That is tried in a copy of the process first.
host::Result<> setWithinRules(Shell& shell, const std::function<host::Result<>()>& set) {
  if (shell.rules().hasRules()) {
    const auto texts = host::runInChild(host::ChildStreams::kDropped, [&] {
      std::vector<std::string> refusals;
      if (!set()) return refusals;
      shell.rules().noteAllChanged();
      const auto kept = shell.rules().keep(host::RuleConduct::kRefuse);
      if (!kept) refusals.push_back(kept.error().text);
      return refusals;
    });
    if (texts && !texts->empty()) return host::refused(texts->front());
  }
  host::Result<> done = set();
  if (done) shell.rules().noteAllChanged();
  return done;
}

// The lines of several refusals, and one sentence about all of them.
host::Result<> noteAll(const Shell& shell, host::Result<> done, const std::string& what) {
  if (done) return done;
  if (done.error().more.empty()) {
    if (done.error().file.empty()) done.error().text.insert(0, what + ": ");
    return done;
  }
  shell.transcript().note(describe(done.error()));
  for (const host::Problem& problem : done.error().more) {
    shell.transcript().note(describe(problem));
  }
  return host::refused(what + "; correct the lines above");
}

}  // namespace

host::Result<> runWrite(Shell& shell, const Words& arguments) {
  shell.answerTo(arguments[0], composeSavedSettings(shell.session().features(), shell.model(),
                                                    host::Secrets::kLeftOut));
  return {};
}

host::Result<> runLoad(Shell& shell, const Words& arguments) {
  return noteAll(
      shell,
      setWithinRules(
          shell,
          [&] { return loadSettings(shell.session().features(), shell.model(), arguments[0]); }),
      arguments[0] + ": nothing was loaded");
}

host::Result<> runPreset(Shell& shell, const Words& arguments) {
  const auto preset =
      host::findPreset(shell.session().additions(host::kPresetsPart).presets, arguments[0]);
  if (!preset) return host::Failure(preset.error());
  return noteAll(
      shell,
      setWithinRules(
          shell, [&] { return applyPreset(shell.session().features(), shell.model(), **preset); }),
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
