#include "programs/driver_feature/shell/value_commands.h"

#include "host/session/log.h"
#include "host/session/properties.h"
#include "host/settings/setting.h"
#include "host/settings/value_safety.h"
#include "programs/driver_feature/shell/names.h"
#include "programs/driver_feature/show/show.h"
#include "programs/driver_feature/show/show_details.h"
#include "programs/driver_feature/table.h"

namespace driver_feature {

namespace {

// The word that stands for every property.
constexpr const char* kAll = "all";

Result<> setChecked(Shell& shell, const Setting& setting) {
  if (Result<> done = checkSetting(shell.model(), setting); !done) return done;
  if (shell.model().features.at(setting.name).setValue(setting.value)) return {};
  return refused("the library refuses the value " + quoted(setting.value) + " of feature " +
                 quoted(setting.name) + "; \"log all\" shows why");
}

Result<> getValue(Shell& shell, const std::string& name) {
  CoreFeature* object = nullptr;
  if (Result<> done = findObject(shell, name, object); !done) return done;
  const auto feature = shell.model().features.find(name);
  if (feature == shell.model().features.end()) {
    return refused(quoted(name) +
                   " is a group and holds no value; name a property, or \"all\" of them");
  }
  if (!feature->second.hasValue()) {
    return refused(quoted(name) + " is a " + feature->second.typeName() +
                   " feature and holds no value; name a property, or \"all\" of them");
  }
  shell.answer(currentValueWord(feature->second) + "\n");
  return {};
}

// What the library does not give back is left out.
void getAll(Shell& shell, CoreFeature& object) {
  const LogSilence silence;
  std::vector<TableRow> rows;
  for (const std::string& property : propertyNames()) {
    if (const auto text = readProperty(object, property)) {
      rows.push_back({{property}, {quoteWord(*text)}});
    }
  }
  shell.answer(layOut(rows, 0));
}

}  // namespace

Result<> runSet(Shell& shell, const Words& arguments) {
  if (arguments.size() == 2) return setChecked(shell, {arguments[0], arguments[1]});
  CoreFeature* object = nullptr;
  if (Result<> done = findObject(shell, arguments[0], object); !done) return done;
  Result<> safe = refuseUnsafeProperty(shell.model(), arguments[0], arguments[1], arguments[2]);
  if (!safe) return safe;
  return writeProperty(*object, arguments[1], arguments[2]);
}

Result<> runGet(Shell& shell, const Words& arguments) {
  if (arguments.size() == 1) return getValue(shell, arguments[0]);
  CoreFeature* object = nullptr;
  if (Result<> done = findObject(shell, arguments[0], object); !done) return done;
  if (arguments[1] == kAll) {
    getAll(shell, *object);
    return {};
  }
  auto text = readProperty(*object, arguments[1]);
  if (!text) return failureOf(text);
  shell.answer(quoteWord(*text) + "\n");
  return {};
}

Result<> runShow(Shell& shell, const Words& arguments) {
  const Model& model = shell.model();
  CoreFeatureSet& set = shell.session().features();
  if (arguments.empty()) {
    shell.answer(showTable(model, set, shell.width()));
    return {};
  }
  const std::string& name = arguments.front();
  if (Result<> done = checkDetails(model, name); !done) return done;
  shell.answer(detailsText(model, set, name, shell.width()));
  return {};
}

Proposals proposeSet(const Shell& shell, const Words& before, const std::string& /*word*/) {
  if (before.empty()) return {allNames(shell.model())};
  if (before.size() == 2)
    return {typeOfProperty(before[1]) == PropertyType::kBool
                ? std::vector<std::string>{"false", "true"}
                : optionNames(shell.model(), before[0])};
  std::vector<std::string> words = optionNames(shell.model(), before[0]);
  words.insert(words.end(), propertyNames().begin(), propertyNames().end());
  return {words};
}

Proposals proposeGet(const Shell& shell, const Words& before, const std::string& /*word*/) {
  if (before.empty()) return {allNames(shell.model())};
  std::vector<std::string> words = propertyNames();
  words.emplace_back(kAll);
  return {words};
}

Proposals proposeShow(const Shell& shell, const Words& /*before*/, const std::string& /*word*/) {
  return {allNames(shell.model())};
}

}  // namespace driver_feature
