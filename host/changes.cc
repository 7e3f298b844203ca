#include "host/changes.h"

#include "host/console.h"

namespace driver_feature {

namespace {

Refusal setAll(const Model& model, const std::vector<std::string>& settings) {
  for (const std::string& text : settings) {
    Setting setting;
    Refusal refusal = parseSetting(text, setting);
    if (!refusal) refusal = applySetting(model, setting);
    if (refusal) return "-o " + text + ": " + *refusal;
  }
  return std::nullopt;
}

Refusal addAll(const Session& session, const std::vector<RecordsRequest>& requests) {
  for (const RecordsRequest& request : requests) {
    const Refusal refusal = addRecords(session.features(), session.model(), request);
    if (refusal) return "--records " + request.group + " " + request.file + ": " + *refusal;
  }
  return std::nullopt;
}

}  // namespace

bool makeChanges(Session& session, const Changes& changes) {
  Refusal refusal = setAll(session.model(), changes.settings);
  if (!refusal) refusal = addAll(session, changes.records);
  if (!refusal) {
    session.log().release();
    return true;
  }
  session.log().discard();
  complain(*refusal);
  return false;
}

}  // namespace driver_feature
