#include "host/settings/changes.h"

#include "host/session/routine_calls.h"
#include "host/settings/command_line_key.h"
#include "host/settings/preset_settings.h"
#include "host/settings/setting.h"
#include "host/settings/settings_file.h"

namespace driver_feature::host {

namespace {

// Adds the problem of a failure, and those that come with it.
void collect(Result<>&& result, Problems& problems) {
  if (result) return;
  Problems more = std::move(result.error().more);
  result.error().more.clear();
  problems.push_back(std::move(result.error()));
  for (Problem& problem : more) problems.push_back(std::move(problem));
}

// A setting as messages repeat it.
std::string shownSetting(const Model& model, const std::string& text) {
  const Result<Setting> setting = parseSetting(text);
  if (!setting) return text;
  const auto feature = model.features.find(withoutKeys(model, *setting).name);
  const bool isSecret = feature != model.features.end() && feature->second.isEncrypted();
  return isSecret ? setting->name + "=" + kMask : text;
}

void setAll(const Model& model, const std::vector<std::string>& settings, RuleKeeper& keeper,
            Problems& problems) {
  for (const std::string& text : settings) {
    Result<> set = parseSetting(text).and_then([&](const Setting& setting) {
      const Setting named = withoutKeys(model, setting);
      keeper.noteSet(named.name);
      return applySetting(model, named);
    });
    if (!set) collect(failureOf(set, "-o " + shownSetting(model, text)), problems);
  }
}

void applyPresets(const Session& session, const std::vector<std::string>& names,
                  Problems& problems) {
  if (names.empty()) return;
  const Additions& additions = session.additions(kPresetsPart);
  for (const std::string& name : names) {
    Result<const Preset*> preset = findPreset(additions.presets, name);
    if (preset) {
      collect(applyPreset(session.features(), session.model(), **preset), problems);
      continue;
    }
    collect(failureOf(preset, "--preset " + name), problems);
    // It may be one of those that could not be read.
    for (const Problem& unread : additions.problems) problems.push_back(unread);
  }
}

void addAll(const Session& session, const std::vector<RecordsRequest>& requests,
            Problems& problems) {
  for (const RecordsRequest& request : requests) {
    Result<> added = addRecords(session.features(), session.model(), request);
    const bool hasPlace = !added && !added.error().file.empty();
    if (!added && !hasPlace) {
      added.error().text.insert(0, "--records " + request.group + " " + request.file + ": ");
    }
    collect(std::move(added), problems);
  }
}

}  // namespace

Result<> makeChangesUnjudged(Session& session, const Changes& changes, RuleKeeper& keeper) {
  if (changes.allowControlCharacters) session.allowControlCharacters();
  Problems problems;
  applyPresets(session, changes.presets, problems);
  for (const std::string& file : changes.files) {
    collect(loadSettings(session.features(), session.model(), file), problems);
  }
  keeper.noteAllChanged();
  setAll(session.model(), changes.settings, keeper, problems);
  addAll(session, changes.records, problems);
  if (!changes.savePreset.empty()) {
    Result<> named = checkPresetName(session, changes.savePreset);
    if (!named) collect(failureOf(named, "--save-preset " + changes.savePreset), problems);
  }
  collect(successOfRoutines(), problems);
  if (problems.empty()) return {};
  return failureOfAll(std::move(problems));
}

Result<std::vector<std::string>> makeChanges(Session& session, const Changes& changes) {
  RuleKeeper keeper(session);
  auto kept = makeChangesUnjudged(session, changes, keeper).and_then([&] {
    return keeper.keep(changes.rules);
  });
  if (kept) {
    session.log().release();
  } else {
    session.log().discard();
  }
  return kept;
}

Result<std::unique_ptr<Session>> openChanged(const SessionRequest& request,
                                             const Changes& changes) {
  return Session::open(request).and_then(
      [&changes](std::unique_ptr<Session> session) -> Result<std::unique_ptr<Session>> {
        const auto made = makeChanges(*session, changes);
        if (!made) return Failure(made.error());
        for (const std::string& line : *made) session->note(line);
        return session;
      });
}

std::vector<OutputText> outputsToSave(const Session& session, const Changes& changes) {
  std::vector<OutputText> outputs;
  if (!changes.saveFile.empty()) {
    const auto secrets = changes.saveSecrets ? Secrets::kSaved : Secrets::kLeftOut;
    outputs.push_back({changes.saveFile,
                       composeSavedSettings(session.features(), session.model(), secrets),
                       changes.saveSecrets});
  }
  if (!changes.savePreset.empty()) {
    outputs.push_back({presetFile(session.model().file, changes.savePreset),
                       composePreset(session.features(), session.model()), /*isPrivate=*/false,
                       /*makesFolder=*/true});
  }
  return outputs;
}

}  // namespace driver_feature::host
