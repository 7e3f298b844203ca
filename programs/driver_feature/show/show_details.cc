#include "programs/driver_feature/show/show_details.h"

#include <algorithm>
#include <vector>

#include <nlohmann/json.hpp>

#include "host/base/nearest_name.h"
#include "host/session/group_view.h"
#include "programs/driver_feature/show/limits_view.h"
#include "programs/driver_feature/show/property_view.h"
#include "programs/driver_feature/show/secrets.h"
#include "programs/driver_feature/table.h"

namespace driver_feature::cli {

namespace {

using Json = nlohmann::ordered_json;

std::vector<std::string> membersOf(const host::Model& model, CoreFeatureSet& set,
                                   const host::GroupEntry& entry) {
  if (entry.kind == host::GroupKind::kDynamic) {
    const auto group = findDynamicGroup(set, model.index, entry.name);
    return group ? group->memberNames() : std::vector<std::string>();
  }
  const auto group = host::findStaticGroup(set, entry.name);
  return group ? group->memberNames() : std::vector<std::string>();
}

const host::GroupEntry* findGroup(const host::Model& model, const std::string& name) {
  const auto& groups = model.index.groups();
  const auto found =
      std::find_if(groups.begin(), groups.end(),
                   [&name](const host::GroupEntry& group) { return group.name == name; });
  return found == groups.end() ? nullptr : &*found;
}

// The groups around a member, the innermost first.
std::vector<std::string> groupsAround(const host::Model& model, CoreFeatureSet& set,
                                      const std::string& name) {
  std::vector<std::string> around;
  for (const host::GroupEntry& entry : model.index.groups()) {
    if (entry.kind != host::GroupKind::kStatic) continue;
    const std::vector<std::string> members = membersOf(model, set, entry);
    if (std::find(members.begin(), members.end(), name) == members.end()) continue;
    const host::GroupEntry* group = &entry;
    while (group != nullptr &&
           std::find(around.begin(), around.end(), group->name) == around.end()) {
      around.push_back(group->name);
      group = group->outer.empty() ? nullptr : findGroup(model, group->outer);
    }
  }
  return around;
}

Json describeGroup(const host::Model& model, CoreFeatureSet& set, const host::GroupEntry& entry) {
  const bool dynamic = entry.kind == host::GroupKind::kDynamic;
  const auto fixed = host::findStaticGroup(set, entry.name);
  const bool isTemplate = !dynamic && fixed && fixed->isTemplate();
  Json json = {{"name", entry.name},
               {"type", dynamic      ? "dynamic group"
                        : isTemplate ? "template"
                                     : "static group"},
               {"description", model.file},
               {"line", entry.line}};
  if (!entry.outer.empty()) json["groups"] = {entry.outer};
  json["members"] = membersOf(model, set, entry);
  if (const auto group = findDynamicGroup(set, model.index, entry.name); dynamic && group) {
    json["template"] = model.index.templateOf(entry.name);
    json["records"] = shownRecords(model, group->memberNames(), group->records());
  }
  return json;
}

Json describeFeature(const host::Model& model, CoreFeatureSet& set, const std::string& name) {
  const host::FeatureLimits& limits = model.index.limitsOf(name);
  Json json = {{"name", name},
               {"type", model.features.at(name).typeName()},
               {"description", model.file},
               {"line", limits.line}};
  const std::vector<std::string> groups = groupsAround(model, set, name);
  if (!groups.empty()) json["groups"] = groups;
  if (!limits.changeRoutine.empty()) json["changeRoutine"] = limits.changeRoutine;
  const Json found = limitsJson(limits);
  if (!found.empty()) json["limits"] = found;
  return json;
}

Json describe(const host::Model& model, CoreFeatureSet& set, const std::string& name) {
  const bool isFeature = model.features.contains(name);
  Json json = isFeature ? describeFeature(model, set, name)
                        : describeGroup(model, set, *findGroup(model, name));
  json["properties"] = Json::object();
  CoreFeature* object = set.FindFeatureInFeatureList(name);
  if (object == nullptr) return json;
  json["properties"] = propertiesOf(*object);
  if (!isFeature) return json;
  const Json options = optionsOf(*object);
  if (!options.empty()) json["options"] = options;
  return json;
}

// A text as it is, anything else as JSON writes it, and nothing at all as "".
std::string plainText(const Json& value) {
  if (value.is_string()) return value.get<std::string>();
  if (!value.is_array()) return value.dump();
  std::string text;
  for (const Json& part : value) text += (text.empty() ? "" : ", ") + plainText(part);
  return text;
}

// A column for each property that one of the options has.
std::string optionTable(const Json& options, std::size_t width) {
  std::vector<TableRow> rows(1);
  for (const auto& [property, first] : options.front().items()) {
    const std::string& name = property;
    const bool used = std::any_of(options.begin(), options.end(), [&name](const Json& option) {
      return !plainText(option.value(name, Json(""))).empty();
    });
    if (used) rows.front().cells.push_back(name);
  }
  for (const Json& option : options) {
    rows.emplace_back();
    for (const std::string& name : rows.front().cells) {
      rows.back().cells.push_back(plainText(option.value(name, Json(""))));
    }
  }
  rows.front().cells.front() = "OPTION";
  return "\n" + layOut(rows, width);
}

std::string recordTable(const Json& members, const Json& records, std::size_t width) {
  std::vector<TableRow> rows = {{{"RECORD"}, {}}};
  for (const Json& member : members) rows.front().cells.push_back(plainText(member));
  for (std::size_t i = 0; i < records.size(); ++i) {
    rows.push_back({{std::to_string(i)}, {}});
    for (const Json& value : records[i]) rows.back().cells.push_back(plainText(value));
  }
  return "\n" + layOut(rows, width);
}

}  // namespace

host::Result<> checkDetails(const host::Model& model, const std::string& name) {
  if (model.features.contains(name) || findGroup(model, name) != nullptr) return {};
  std::vector<std::string> names;
  for (const auto& [known, feature] : model.features) names.push_back(known);
  for (const host::GroupEntry& group : model.index.groups()) names.push_back(group.name);
  const auto nearest = host::nearestName(name, names);
  return host::refused("there is no feature or group \"" + name + "\"; " +
                       (nearest ? "did you mean \"" + *nearest + "\"?"
                                : "\"driver-feature show " + model.file + "\" lists them"));
}

std::string detailsText(const host::Model& model, CoreFeatureSet& set, const std::string& name,
                        std::size_t width) {
  const Json json = describe(model, set, name);
  std::vector<TableRow> rows = {{{"Name"}, {name}},
                                {{"Type"}, {plainText(json["type"])}},
                                {{"Defined"}, {model.file + ":" + json["line"].dump()}}};
  if (json.contains("groups")) rows.push_back({{"In groups"}, json["groups"]});
  if (model.features.contains(name)) {
    const std::vector<std::string> limits = limitTexts(model.index.limitsOf(name));
    if (!limits.empty()) rows.push_back({{"Limits"}, limits});
  }
  if (json.contains("changeRoutine")) {
    rows.push_back({{"Change routine"}, {plainText(json["changeRoutine"])}});
  }
  if (json.contains("members")) rows.push_back({{"Members"}, json["members"]});
  if (json.contains("template")) rows.push_back({{"Template"}, {plainText(json["template"])}});
  std::string text = layOut(rows, width);
  rows = {{{"PROPERTY"}, {"VALUE"}}};
  for (const auto& [property, value] : json["properties"].items()) {
    if (!plainText(value).empty()) rows.push_back({{property}, {plainText(value)}});
  }
  text += "\n" + layOut(rows, width);
  if (json.contains("options")) text += optionTable(json["options"], width);
  const bool hasRecords = json.contains("records") && !json["records"].empty();
  return hasRecords ? text + recordTable(json["members"], json["records"], width) : text;
}

std::string detailsJson(const host::Model& model, CoreFeatureSet& set, const std::string& name) {
  return describe(model, set, name).dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

}  // namespace driver_feature::cli
