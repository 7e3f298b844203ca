// "try": settings applied and undone.

#include <array>
#include <map>
#include <string>
#include <vector>

#include "AttributeMap.h"

#include "host/base/output_file.h"
#include "host/base/standard_streams.h"
#include "host/session/routine_calls.h"
#include "host/settings/settings_file.h"
#include "programs/common/console.h"
#include "programs/driver_feature/change_arguments.h"
#include "programs/driver_feature/commands/commands.h"
#include "programs/driver_feature/show/secrets.h"
#include "programs/driver_feature/show/show.h"
#include "programs/driver_feature/table.h"

namespace driver_feature::cli {

namespace {

constexpr const char* kFooter =
    "The table shows every feature that has changed, directly or through a routine\n"
    "of the description. --save writes the changed values.\n"
    "\n"
    "Examples:\n"
    "  driver-feature try office.xml -o MediaType=Envelope\n"
    "\n"
    "Exit status: 0 every value was restored, 1 one was not, or the description\n"
    "could not be loaded, 2 wrong usage, an unusable file or a refused setting.";

constexpr std::array kRows = {kDescriptionRow, kShowSecretsRow};

// A value and how it is shown.
struct Value {
  std::string text;
  std::string shown;

  bool operator==(const Value& other) const { return text == other.text; }
};

using Values = std::map<std::string, Value>;

Values valuesOf(const host::Model& model) {
  Values values;
  for (const auto& [name, feature] : model.features) {
    const std::string text = settingText(feature).value_or("");
    values[name] = {text, valueText(feature)};
  }
  return values;
}

AttributeMap namesOf(const host::Model& model) {
  AttributeMap names;
  for (const auto& [name, feature] : model.features) names[name];
  return names;
}

// Composes the table. True when every value is unchanged.
bool compare(const Values& before, const Values& changed, const Values& after, std::string& text) {
  std::vector<TableRow> rows = {{{"NAME", "BEFORE", "CHANGED"}, {"RESTORED"}}};
  bool restored = true;
  for (const auto& [name, value] : before) {
    if (value == changed.at(name) && value == after.at(name)) continue;
    rows.push_back({{name, value.shown, changed.at(name).shown}, {after.at(name).shown}});
    restored = restored && value == after.at(name);
  }
  text = rows.size() > 1 ? layOut(rows, 0) : "The settings change nothing.\n";
  return restored;
}

struct Trial {
  std::vector<host::OutputText> outputs;
  bool restored = false;
};

host::Result<Trial> tryChanges(const host::SessionRequest& request, const host::Changes& changes) {
  const host::StandardOutputDiversion diversion;
  auto opened = host::Session::open(request);
  if (!opened) return failureOf(opened);
  host::Session& session = **opened;
  AttributeMap names = namesOf(session.model());
  const Values before = valuesOf(session.model());
  session.save(names);
  const auto made = makeChanges(session, changes);
  if (!made) return host::Failure(made.error());
  for (const std::string& line : *made) session.note(line);
  const Values changed = valuesOf(session.model());
  Trial trial{outputsToSave(session, changes)};
  session.restore(names);
  if (host::Result<> ran = host::successOfRoutines(); !ran) return failureOf(ran);
  trial.outputs.emplace_back();
  trial.restored = compare(before, changed, valuesOf(session.model()), trial.outputs.back().bytes);
  return trial;
}

host::Result<int> run(const Arguments& arguments, const host::SessionRequest& general) {
  if (arguments.has("--show-secrets")) showSecrets();
  auto trial = tryChanges(sessionOf(arguments, general), changesOf(arguments));
  if (!trial) return failureOf(trial);
  if (host::Result<> written = writeAllOutputs(trial->outputs); !written) return failureOf(written);
  if (trial->restored) return kSuccess;
  return fail(host::Problem::Kind::kDifferent,
              "not every value was restored; a routine of the description changes them");
}

}  // namespace

const CommandRow kTryCommand = {
    "try",       "Save all values, make the changes, restore the values, and show each step",
    kFooter,     kRows,
    kChangeRows, &run,
    true};

}  // namespace driver_feature::cli
