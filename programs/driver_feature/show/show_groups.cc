#include "programs/driver_feature/show/show_groups.h"

#include <nlohmann/json.hpp>

#include <vector>

#include "host/session/group_view.h"
#include "programs/driver_feature/show/secrets.h"
#include "programs/driver_feature/table.h"

namespace driver_feature::cli {

namespace {

using Json = nlohmann::ordered_json;

// One group as both forms show it.
struct GroupSummary {
  std::string name;
  std::string kind;
  std::string outer;
  int line = 0;
  std::vector<std::string> members;
  std::vector<host::Record> records;
};

std::vector<GroupSummary> summariesOf(const host::Model& model, CoreFeatureSet& set) {
  std::vector<GroupSummary> summaries;
  for (const host::GroupEntry& entry : model.index.groups()) {
    if (entry.kind == host::GroupKind::kDynamic) {
      const auto group = findDynamicGroup(set, model.index, entry.name);
      if (!group) continue;
      const std::vector<std::string> members = group->memberNames();
      summaries.push_back({entry.name, "dynamic", entry.outer, entry.line, members,
                           shownRecords(model, members, group->records())});
    } else if (const auto group = host::findStaticGroup(set, entry.name)) {
      summaries.push_back({entry.name,
                           group->isTemplate() ? "template" : "static",
                           entry.outer,
                           entry.line,
                           group->memberNames(),
                           {}});
    }
  }
  return summaries;
}

std::string recordsTable(const GroupSummary& group, std::size_t width) {
  std::vector<TableRow> rows = {{{"RECORD"}, {}}};
  std::vector<std::string>& heading = rows.front().cells;
  heading.insert(heading.end(), group.members.begin(), group.members.end());
  for (std::size_t i = 0; i < group.records.size(); ++i) {
    rows.push_back({{std::to_string(i)}, {}});
    std::vector<std::string>& cells = rows.back().cells;
    cells.insert(cells.end(), group.records[i].begin(), group.records[i].end());
  }
  return "\n" + group.name + "\n" + layOut(rows, width);
}

}  // namespace

std::string showGroups(const host::Model& model, CoreFeatureSet& set, std::size_t width) {
  const std::vector<GroupSummary> groups = summariesOf(model, set);
  if (groups.empty()) return "";
  std::vector<TableRow> rows = {{{"GROUP", "KIND", "IN", "RECORDS"}, {"MEMBERS"}}};
  std::string records;
  for (const GroupSummary& group : groups) {
    const bool dynamic = group.kind == "dynamic";
    rows.push_back({{group.name, group.kind, group.outer.empty() ? "-" : group.outer,
                     dynamic ? std::to_string(group.records.size()) : "-"},
                    group.members});
    if (!group.records.empty()) records += recordsTable(group, width);
  }
  return "\n" + layOut(rows, width) + records;
}

nlohmann::ordered_json groupsJson(const host::Model& model, CoreFeatureSet& set) {
  Json list = Json::array();
  for (const GroupSummary& group : summariesOf(model, set)) {
    Json json = {{"name", group.name}, {"kind", group.kind}, {"line", group.line}};
    if (!group.outer.empty()) json["in"] = group.outer;
    json["members"] = group.members;
    if (group.kind == "dynamic") {
      json["records"] = Json::array();
      for (const host::Record& record : group.records) {
        Json values = Json::object();
        for (std::size_t i = 0; i < record.size(); ++i) values[group.members[i]] = record[i];
        json["records"].push_back(values);
      }
    }
    list.push_back(json);
  }
  return list;
}

}  // namespace driver_feature::cli
