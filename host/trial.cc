#include "host/trial.h"

#include <map>
#include <string>
#include <vector>

#include "host/console.h"
#include "host/output_file.h"
#include "host/show.h"
#include "host/table.h"

#include "AttributeMap.h"

namespace driver_feature {

namespace {

using Values = std::map<std::string, std::string>;

Values valuesOf(const Model& model) {
  Values values;
  for (const auto& [name, feature] : model.features) values[name] = valueText(feature);
  return values;
}

AttributeMap namesOf(const Model& model) {
  AttributeMap names;
  for (const auto& [name, feature] : model.features) names[name];
  return names;
}

// Prints the table. True when every value is the one it was.
bool compare(const Values& before, const Values& changed, const Values& after, std::string& text) {
  std::vector<TableRow> rows = {{{"NAME", "BEFORE", "CHANGED"}, {"RESTORED"}}};
  bool restored = true;
  for (const auto& [name, value] : before) {
    if (value == changed.at(name) && value == after.at(name)) continue;
    rows.push_back({{name, value, changed.at(name)}, {after.at(name)}});
    restored = restored && value == after.at(name);
  }
  text = rows.size() > 1 ? layOut(rows, 0) : "The settings change nothing.\n";
  return restored;
}

}  // namespace

int tryChanges(const SessionRequest& sessionRequest, const Changes& changes) {
  std::vector<Result> results;
  bool restored = false;
  {
    const StandardOutputDiversion diversion;
    int status = kSuccess;
    const auto session = Session::open(sessionRequest, status);
    if (!session) return status;
    const Model& model = session->model();
    AttributeMap names = namesOf(model);
    const Values before = valuesOf(model);
    session->save(names);
    if (!makeChanges(*session, changes)) return kUnusable;
    const Values changed = valuesOf(model);
    results = saveResults(*session, changes);
    session->restore(names);
    results.emplace_back();
    restored = compare(before, changed, valuesOf(model), results.back().bytes);
  }
  if (const int status = deliver(results); status != kSuccess) return status;
  if (restored) return kSuccess;
  complain("not every value was restored; a routine of the description changes them");
  return kFailure;
}

}  // namespace driver_feature
