#include "host/settings/changes.h"

#include "host/settings/setting.h"
#include "host/settings/settings_file.h"

namespace driver_feature::host {

namespace {

Result<> loadAll(const Session& session, const std::vector<std::string>& files) {
  for (const std::string& file : files) {
    Result<> loaded = loadSettings(session.features(), session.model(), file);
    if (!loaded) return loaded;
  }
  return {};
}

Result<> setAll(const Model& model, const std::vector<std::string>& settings) {
  for (const std::string& text : settings) {
    Result<> set = parseSetting(text).and_then(
        [&model](const Setting& setting) { return applySetting(model, setting); });
    if (!set) return failureOf(set, "-o " + text);
  }
  return {};
}

Result<> addAll(const Session& session, const std::vector<RecordsRequest>& requests) {
  for (const RecordsRequest& request : requests) {
    Result<> added = addRecords(session.features(), session.model(), request);
    if (!added) return failureOf(added, "--records " + request.group + " " + request.file);
  }
  return {};
}

}  // namespace

Result<> makeChanges(Session& session, const Changes& changes) {
  if (changes.allowControlCharacters) session.allowControlCharacters();
  Result<> made = loadAll(session, changes.files)
                      .and_then([&] { return setAll(session.model(), changes.settings); })
                      .and_then([&] { return addAll(session, changes.records); });
  if (made) {
    session.log().release();
  } else {
    session.log().discard();
  }
  return made;
}

Result<std::unique_ptr<Session>> openChanged(const SessionRequest& request,
                                             const Changes& changes) {
  return Session::open(request).and_then(
      [&changes](std::unique_ptr<Session> session) -> Result<std::unique_ptr<Session>> {
        if (Result<> made = makeChanges(*session, changes); !made) return failureOf(made);
        return session;
      });
}

std::vector<OutputText> outputsToSave(const Session& session, const Changes& changes) {
  if (changes.saveFile.empty()) return {};
  return {{changes.saveFile, composeSettings(session.features(), session.model())}};
}

}  // namespace driver_feature::host
