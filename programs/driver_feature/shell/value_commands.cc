#include "programs/driver_feature/shell/value_commands.h"

#include "host/base/text.h"
#include "host/session/log.h"
#include "host/session/properties.h"
#include "host/settings/setting.h"
#include "host/settings/value_safety.h"
#include "programs/driver_feature/shell/names.h"
#include "programs/driver_feature/show/secrets.h"
#include "programs/driver_feature/show/show.h"
#include "programs/driver_feature/show/show_details.h"
#include "programs/driver_feature/show/show_panels.h"
#include "programs/driver_feature/show/taken_out.h"
#include "programs/driver_feature/table.h"

namespace driver_feature::cli {

namespace {

// The word that means every property.
constexpr const char* kAll = "all";

host::Result<> setChecked(Shell& shell, const host::Setting& setting) {
  if (host::Result<> done = checkSetting(shell.model(), setting); !done) return done;
  if (shell.model().features.at(setting.name).setValue(setting.value)) {
    shell.rules().noteSet(setting.name);
    return {};
  }
  return host::refused("the library refuses the value " + host::inQuotes(setting.value) +
                       " of feature " + host::inQuotes(setting.name) + "; \"log all\" shows why");
}

host::Result<> getValue(Shell& shell, const std::string& name) {
  if (auto object = findObject(shell, name); !object) return failureOf(object);
  const auto feature = shell.model().features.find(name);
  if (feature == shell.model().features.end()) {
    return host::refused(host::inQuotes(name) +
                         " is a group and holds no value; name a property, or \"all\" of them");
  }
  if (!feature->second.hasValue()) {
    return host::refused(host::inQuotes(name) + " is a " + feature->second.typeName() +
                         " feature and holds no value; name a property, or \"all\" of them");
  }
  shell.answer((isMasked(feature->second) ? host::kMask : currentValueWord(feature->second)) +
               "\n");
  return {};
}

// What the library does not give back is left out.
void getAll(Shell& shell, CoreFeature& object) {
  const host::LogSilence silence;
  std::vector<TableRow> rows;
  for (const std::string& property : host::propertyNames()) {
    if (const auto text = host::readProperty(object, property)) {
      rows.push_back({{property}, {quoteWord(shownProperty(object, property, *text))}});
    }
  }
  shell.answer(layOut(rows, 0));
}

}  // namespace

host::Result<> runSet(Shell& shell, const Words& arguments) {
  if (arguments.size() == 2) {
    const rules::Plan plan = shell.rules().planFor({arguments[0], arguments[1]});
    if (plan.kind != rules::Plan::Kind::kFits) {
      return host::Failure(shell.rules().refusalOf(plan));
    }
    return setChecked(shell, {arguments[0], arguments[1]});
  }
  auto object = findObject(shell, arguments[0]);
  if (!object) return failureOf(object);
  host::Result<> safe =
      refuseUnsafeProperty(shell.model(), arguments[0], arguments[1], arguments[2]);
  if (!safe) return safe;
  return host::writeProperty(**object, arguments[1], arguments[2]);
}

host::Result<> runResolve(Shell& shell, const Words& arguments) {
  const host::Setting setting{arguments[0], arguments[1]};
  const rules::Plan plan = shell.rules().planFor(setting);
  const bool isWay =
      plan.kind == rules::Plan::Kind::kFits || plan.kind == rules::Plan::Kind::kMended;
  if (!isWay) return host::Failure(shell.rules().refusalOf(plan));
  if (host::Result<> done = setChecked(shell, setting); !done) return done;
  const auto made = shell.rules().carryOut(plan);
  if (!made) return host::Failure(made.error());
  for (const std::string& line : *made) shell.answer(line + "\n");
  return {};
}

host::Result<> runGet(Shell& shell, const Words& arguments) {
  if (arguments.size() == 1) return getValue(shell, arguments[0]);
  auto object = findObject(shell, arguments[0]);
  if (!object) return failureOf(object);
  if (arguments[1] == kAll) {
    getAll(shell, **object);
    return {};
  }
  auto text = host::readProperty(**object, arguments[1]);
  if (!text) return failureOf(text);
  shell.answer(quoteWord(shownProperty(**object, arguments[1], *text)) + "\n");
  return {};
}

host::Result<> runShow(Shell& shell, const Words& arguments) {
  const host::Model& model = shell.model();
  CoreFeatureSet& set = shell.session().features();
  if (arguments.empty()) {
    shell.answer(showTable(model, set, shell.width()) + showPanels(shell.session(), shell.width()) +
                 showTakenOut(shell.rules(), ""));
    return {};
  }
  const std::string& name = arguments.front();
  if (host::Result<> done = checkDetails(model, name); !done) return done;
  shell.answer(detailsText(model, set, name, shell.width()) + showTakenOut(shell.rules(), name));
  return {};
}

Proposals proposeSet(const Shell& shell, const Words& before, const std::string& /*word*/) {
  if (before.empty()) return {allNames(shell.model())};
  if (before.size() == 2)
    return {host::typeOfProperty(before[1]) == host::PropertyType::kBool
                ? std::vector<std::string>{"false", "true"}
                : optionNames(shell.model(), before[0])};
  std::vector<std::string> words = optionNames(shell.model(), before[0]);
  words.insert(words.end(), host::propertyNames().begin(), host::propertyNames().end());
  return {words};
}

Proposals proposeGet(const Shell& shell, const Words& before, const std::string& /*word*/) {
  if (before.empty()) return {allNames(shell.model())};
  std::vector<std::string> words = host::propertyNames();
  words.emplace_back(kAll);
  return {words};
}

Proposals proposeShow(const Shell& shell, const Words& /*before*/, const std::string& /*word*/) {
  return {allNames(shell.model())};
}

}  // namespace driver_feature::cli
