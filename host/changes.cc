#include "host/changes.h"

#include "host/console.h"

namespace driver_feature {

bool makeChanges(const Session& session, const Changes& changes) {
  for (const std::string& text : changes.settings) {
    Setting setting;
    Refusal refusal = parseSetting(text, setting);
    if (!refusal) refusal = applySetting(session.model(), setting);
    if (!refusal) continue;
    complain("-o " + text + ": " + *refusal);
    return false;
  }
  for (const RecordsRequest& request : changes.records) {
    const Refusal refusal = addRecords(session.features(), session.model(), request);
    if (!refusal) continue;
    complain("--records " + request.group + " " + request.file + ": " + *refusal);
    return false;
  }
  return true;
}

}  // namespace driver_feature
