#include "host/changes.h"

#include "host/console.h"
#include "host/settings_file.h"

namespace driver_feature {

namespace {

using Refusals = std::vector<std::string>;

Refusals loadAll(const Session& session, const std::vector<std::string>& files) {
  for (const std::string& file : files) {
    Refusals refusals = loadSettings(session.features(), session.model(), file);
    if (!refusals.empty()) return refusals;
  }
  return {};
}

Refusals setAll(const Model& model, const std::vector<std::string>& settings) {
  for (const std::string& text : settings) {
    Setting setting;
    Refusal refusal = parseSetting(text, setting);
    if (!refusal) refusal = applySetting(model, setting);
    if (refusal) return {"-o " + text + ": " + *refusal};
  }
  return {};
}

Refusals addAll(const Session& session, const std::vector<RecordsRequest>& requests) {
  for (const RecordsRequest& request : requests) {
    const Refusal refusal = addRecords(session.features(), session.model(), request);
    if (refusal) return {"--records " + request.group + " " + request.file + ": " + *refusal};
  }
  return {};
}

}  // namespace

bool makeChanges(Session& session, const Changes& changes) {
  if (changes.allowControlCharacters) session.allowControlCharacters();
  Refusals refusals = loadAll(session, changes.files);
  if (refusals.empty()) refusals = setAll(session.model(), changes.settings);
  if (refusals.empty()) refusals = addAll(session, changes.records);
  if (refusals.empty()) {
    session.log().release();
    return true;
  }
  session.log().discard();
  for (const std::string& refusal : refusals) complain(refusal);
  return false;
}

std::unique_ptr<Session> openChanged(const SessionRequest& request, const Changes& changes,
                                     int& status) {
  auto session = Session::open(request, status);
  if (!session || makeChanges(*session, changes)) return session;
  status = kUnusable;
  return nullptr;
}

std::vector<Result> saveResults(const Session& session, const Changes& changes) {
  if (changes.saveFile.empty()) return {};
  return {{changes.saveFile, composeSettings(session.features(), session.model())}};
}

int workOnDescription(const SessionRequest& request, const Changes& changes, const Work& work) {
  std::vector<Result> results;
  {
    const StandardOutputDiversion diversion;
    int status = kSuccess;
    const auto session = openChanged(request, changes, status);
    if (!session) return status;
    results = saveResults(*session, changes);
    status = work(*session, results);
    if (status != kSuccess) return status;
  }
  return deliver(results);
}

int deliver(const std::vector<Result>& results) {
  const WriteProblem problem = writeResults(results);
  if (!problem) return kSuccess;
  complain(*problem);
  return kFailure;
}

}  // namespace driver_feature
