#include "programs/driver_feature/shell/record_commands.h"

#include <algorithm>

#include "AttributeMap.h"

#include "host/base/nearest_name.h"
#include "host/base/text.h"
#include "host/session/group_view.h"
#include "host/settings/records.h"
#include "host/settings/setting.h"
#include "programs/driver_feature/shell/names.h"
#include "programs/driver_feature/show/secrets.h"
#include "programs/driver_feature/table.h"

namespace driver_feature::cli {

namespace {

using Group = IntermediateDynamicFeatureGroup;

// One group on which an action works.
struct Target {
  std::string name;
  Group* group;
  std::vector<std::string> members;
};

struct Action {
  const char* name;
  std::size_t fewest;  // Numbers of arguments.
  std::size_t most;
  host::Result<> (*run)(Shell& shell, const Target& target, const Words& arguments);
};

// No record can be read while the description lacks a template.
host::Result<Target> findTarget(Shell& shell, const std::string& name) {
  auto group = findRecords(shell, name);
  if (!group) return failureOf(group);
  const auto view = findDynamicGroup(shell.session().features(), shell.model().index, name);
  if (!view)
    return host::refused("group " + host::inQuotes(name) + " has no template; give it one");
  return Target{name, *group, view->memberNames()};
}

host::Result<> list(Shell& shell, const Target& target, const Words& /*arguments*/) {
  const auto view = findDynamicGroup(shell.session().features(), shell.model().index, target.name);
  const std::set<long>& selected = *target.group->fetchSelectedEntries();
  std::vector<TableRow> rows = {{{"RECORD"}, {}}};
  rows.front().cells.insert(rows.front().cells.end(), target.members.begin(), target.members.end());
  long index = 0;
  for (const host::Record& record : shownRecords(shell.model(), target.members, view->records())) {
    rows.push_back({{std::to_string(index) + (selected.contains(index) ? "*" : "")}, {}});
    rows.back().cells.insert(rows.back().cells.end(), record.begin(), record.end());
    ++index;
  }
  shell.answer(index > 0 ? layOut(rows, shell.width()) : "no records\n");
  return {};
}

host::Failure refuseMember(const Target& target, const std::string& name) {
  const auto nearest = host::nearestName(name, target.members);
  return host::refused("group " + host::inQuotes(target.name) + " has no member " +
                       host::inQuotes(name) + "; " +
                       (nearest ? "did you mean " + host::inQuotes(*nearest) + "?"
                                : "the members are " + host::listed(target.members)));
}

// The values of a record, checked like settings when `check` is set.
host::Result<AttributeMap> readValues(Shell& shell, const Target& target, const Words& words,
                                      bool check) {
  AttributeMap values;
  std::vector<std::string> missing = target.members;
  for (const std::string& word : words) {
    const host::Result<host::Setting> parsed = host::parseSetting(word);
    if (!parsed) return host::refused(host::inQuotes(word) + " is not MEMBER=VALUE; write it so");
    const host::Setting& setting = *parsed;
    const auto member = std::find(missing.begin(), missing.end(), setting.name);
    if (member == missing.end()) {
      const bool twice = std::count(target.members.begin(), target.members.end(), setting.name) > 0;
      if (!twice) return refuseMember(target, setting.name);
      return host::refused("member " + host::inQuotes(setting.name) +
                           " is given twice; give it one value");
    }
    missing.erase(member);
    host::Result<> checked = check ? checkSetting(shell.model(), setting) : host::Result<>();
    if (!checked) return failureOf(checked, host::inQuotes(setting.name));
    values[setting.name] = setting.value;
  }
  if (missing.empty()) return values;
  return host::refused("member " + host::inQuotes(missing.front()) +
                       " is missing; give it a value");
}

host::Result<> add(Shell& shell, const Target& target, const Words& arguments) {
  auto values = readValues(shell, target, arguments, true);
  if (!values) return failureOf(values);
  if (target.group->addStaticGroupToDynamicGroup(*values)) return {};
  return host::refused("the library refuses the record; \"log all\" shows why");
}

host::Result<> addFile(Shell& shell, const Target& target, const Words& arguments) {
  host::Result<> added =
      addRecords(shell.session().features(), shell.model(), {target.name, arguments[0]});
  if (added) return {};
  if (added.error().more.empty()) {
    if (added.error().file.empty()) return failureOf(added, arguments[0]);
    return host::refused(describe(added.error()));
  }
  shell.transcript().note(describe(added.error()));
  for (const host::Problem& problem : added.error().more) {
    shell.transcript().note(describe(problem));
  }
  return host::refused(arguments[0] + ": nothing was added; correct the lines above");
}

// The position of an existing record.
host::Result<unsigned> readIndex(const Target& target, const std::string& word) {
  auto index = readNumber(word, "the number of a record");
  if (!index) return failureOf(index);
  const long count = target.group->fetchNumberOfDynamicEntries();
  if (*index < count) return static_cast<unsigned>(*index);
  return host::refused(
      "there is no record " + word + " in " + host::inQuotes(target.name) + "; " +
      (count == 0 ? "it is empty" : "the last one is " + std::to_string(count - 1)));
}

host::Result<> remove(Shell& /*shell*/, const Target& target, const Words& arguments) {
  auto index = readIndex(target, arguments[0]);
  if (!index) return failureOf(index);
  if (target.group->removeDynamicEntryByIndex(*index)) return {};
  return host::refused("the library refuses to remove the record; \"log all\" shows why");
}

host::Result<> clear(Shell& /*shell*/, const Target& target, const Words& /*arguments*/) {
  if (target.group->removeAllDynamicEntries()) return {};
  return host::refused("the library refuses to remove the records; \"log all\" shows why");
}

host::Result<> sort(Shell& /*shell*/, const Target& target, const Words& /*arguments*/) {
  if (target.group->sortList()) return {};
  return host::refused("the records cannot be sorted; give group " + host::inQuotes(target.name) +
                       " the attribute \"SortFunctionName\", or see why with \"log all\"");
}

host::Result<> select(Shell& /*shell*/, const Target& target, const Words& arguments) {
  auto index = readIndex(target, arguments[0]);
  if (!index) return failureOf(index);
  if (target.group->addConstraint(*index)) return {};
  return host::refused("record " + arguments[0] + " is selected already; \"records " + target.name +
                       " list\" shows which are");
}

// A selection outlives its record, so any index can be taken out.
host::Result<> deselect(Shell& /*shell*/, const Target& target, const Words& arguments) {
  auto index = readNumber(arguments[0], "the number of a record");
  if (!index) return failureOf(index);
  if (target.group->removeConstraint(*index)) return {};
  return host::refused("record " + arguments[0] + " is not selected; \"records " + target.name +
                       " list\" shows which are");
}

host::Result<> load(Shell& /*shell*/, const Target& target, const Words& arguments) {
  auto index = readIndex(target, arguments[0]);
  if (!index) return failureOf(index);
  if (target.group->getDynamicEntryByIndex(*index) != nullptr) {
    return {};
  }
  return host::refused("the library cannot load the record; \"log all\" shows why");
}

host::Result<> has(Shell& shell, const Target& target, const Words& arguments) {
  auto values = readValues(shell, target, arguments, false);
  if (!values) return failureOf(values);
  shell.answer(target.group->detectDuplicateRecord(*values) ? "yes\n" : "no\n");
  return {};
}

constexpr Action kActions[] = {
    {"add", 1, kAnyNumber, &add},  {"add-file", 1, 1, &addFile}, {"clear", 0, 0, &clear},
    {"deselect", 1, 1, &deselect}, {"has", 1, kAnyNumber, &has}, {"list", 0, 0, &list},
    {"load", 1, 1, &load},         {"remove", 1, 1, &remove},    {"select", 1, 1, &select},
    {"sort", 0, 0, &sort},
};

std::vector<std::string> actionNames() {
  std::vector<std::string> names;
  for (const Action& action : kActions) names.emplace_back(action.name);
  return names;
}

const Action* findAction(const std::string& name) {
  const auto* const found =
      std::find_if(std::begin(kActions), std::end(kActions),
                   [&name](const Action& action) { return action.name == name; });
  return found != std::end(kActions) ? found : nullptr;
}

// Members where a record's values go, and after "NAME=" the options of one.
Proposals proposeValues(const Shell& shell, const std::string& group, const std::string& word) {
  Proposals proposals;
  const auto view = findDynamicGroup(shell.session().features(), shell.model().index, group);
  if (!view) return proposals;
  const std::size_t equals = word.find('=');
  if (equals == std::string::npos) {
    proposals.unfinished = true;
    for (const std::string& member : view->memberNames()) proposals.words.push_back(member + "=");
    return proposals;
  }
  for (const std::string& option : optionNames(shell.model(), word.substr(0, equals))) {
    proposals.words.push_back(word.substr(0, equals + 1) + option);
  }
  return proposals;
}

}  // namespace

host::Result<> runRecords(Shell& shell, const Words& arguments) {
  auto target = findTarget(shell, arguments[0]);
  if (!target) return failureOf(target);
  const std::string name = arguments.size() > 1 ? arguments[1] : "list";
  const Action* action = findAction(name);
  if (action == nullptr) {
    return host::refused("there is no action " + host::inQuotes(name) + "; give one of " +
                         host::join(actionNames(), ", "));
  }
  const Words rest(arguments.begin() + std::min<std::ptrdiff_t>(2, std::ssize(arguments)),
                   arguments.end());
  if (rest.size() < action->fewest || rest.size() > action->most) {
    return host::refused(std::string(rest.size() < action->fewest ? "an argument is missing"
                                                                  : "too many arguments") +
                         "; \"help records\" shows what " + name + " takes");
  }
  return action->run(shell, *target, rest);
}

Proposals proposeRecords(const Shell& shell, const Words& before, const std::string& word) {
  if (before.empty()) return {dynamicGroupNames(shell.model())};
  if (before.size() == 1) return {actionNames()};
  if (before[1] == "add" || before[1] == "has") return proposeValues(shell, before[0], word);
  Proposals proposals;
  proposals.files = before[1] == "add-file" && before.size() == 2;
  return proposals;
}

}  // namespace driver_feature::cli
