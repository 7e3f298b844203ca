#include "host/settings/records.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <vector>

#include <nlohmann/json.hpp>

#include "host/base/input_file.h"
#include "host/base/nearest_name.h"
#include "host/base/text.h"
#include "host/session/group_view.h"

namespace driver_feature::host {

namespace {

using Json = nlohmann::ordered_json;

// "line 3, column 5" of a byte counted from 1.
std::string placeOf(const std::string& text, std::size_t byte) {
  const std::string before = text.substr(0, byte > 0 ? byte - 1 : 0);
  const auto line = 1 + std::count(before.begin(), before.end(), '\n');
  const std::size_t lineStart = before.rfind('\n') + 1;  // 0 on the first line.
  return "line " + std::to_string(line) + ", column " +
         std::to_string(before.size() - lineStart + 1);
}

Result<Json> parse(const std::string& text) {
  Json json;
  try {
    json = Json::parse(text);
  } catch (const Json::parse_error& error) {
    return refused("the file is not JSON at " + placeOf(text, error.byte) +
                   "; correct it there or just before");
  } catch (const Json::out_of_range&) {
    return refused("the file holds a number that is too large for any feature; give a smaller one");
  }
  if (json.is_array()) return json;
  return refused("the file is not an array; write [ {\"NAME\": VALUE, ...}, ... ]");
}

// The text of a JSON string or number; nothing for any other value.
std::optional<std::string> textOf(const Json& value) {
  if (value.is_string()) return value.get<std::string>();
  if (value.is_number()) return value.dump();
  return std::nullopt;
}

// One group with the names of the members that have a value.
class RecordCheck {
 public:
  RecordCheck(const Model& model, const std::vector<std::string>& members)
      : model_(model), members_(members) {}

  // The values of a record in the order of the members.
  Result<> read(const Json& object, Record& record) const {
    if (!object.is_object()) return refused("it is not an object; write {\"NAME\": VALUE, ...}");
    for (const auto& [name, value] : object.items()) {
      if (takesValue(name)) continue;
      const auto nearest = nearestName(name, members_);
      return refused("there is no member " + inQuotes(name) + "; " +
                     (nearest ? "did you mean " + inQuotes(*nearest) + "?"
                              : "the members are " + listed(members_)));
    }
    for (const std::string& name : members_) {
      record.emplace_back();
      if (!takesValue(name)) continue;
      if (Result<> done = readMember(object, name, record.back()); !done) return done;
    }
    return {};
  }

 private:
  // A nested group is one of the members, and has no value.
  bool takesValue(const std::string& name) const {
    const bool isMember = std::find(members_.begin(), members_.end(), name) != members_.end();
    return isMember && model_.features.contains(name);
  }

  Result<> readMember(const Json& object, const std::string& name, std::string& text) const {
    const auto found = object.find(name);
    if (found == object.end())
      return refused("member " + inQuotes(name) + " is missing; give it a value");
    const auto value = textOf(*found);
    if (!value)
      return refused("the value of " + inQuotes(name) +
                     " is neither a text nor a number; give one");
    text = *value;
    if (Result<> checked = checkSetting(model_, {name, text}); !checked) {
      return failureOf(checked, inQuotes(name));
    }
    return {};
  }

  const Model& model_;
  const std::vector<std::string>& members_;
};

}  // namespace

std::string refuseDynamicGroup(const Model& model, const std::string& name) {
  std::vector<std::string> names;
  for (const GroupEntry& group : model.index.groups()) {
    if (group.kind == GroupKind::kDynamic) names.push_back(group.name);
  }
  if (names.empty()) return "the description has no dynamic group; leave the records out";
  return "there is no dynamic group " + inQuotes(name) + "; give one of " + listed(names);
}

Result<> addRecords(CoreFeatureSet& set, const Model& model, const RecordsRequest& request) {
  const auto group = findDynamicGroup(set, model.index, request.group);
  if (!group) return refused(refuseDynamicGroup(model, request.group));
  const Result<std::string> text = readFile(request.file);
  if (!text) return refused("the file " + text.error().text + "; give a JSON file");
  Result<Json> json = parse(*text);
  if (!json) return failureOf(json);
  const std::vector<std::string> members = group->memberNames();
  const RecordCheck check(model, members);
  std::vector<Record> records;
  for (const Json& object : *json) {
    records.emplace_back();
    if (Result<> read = check.read(object, records.back()); !read) {
      return failureOf(read, "record " + std::to_string(records.size()));
    }
  }
  for (std::size_t i = 0; i < records.size(); ++i) {
    if (group->add(records[i])) continue;
    return refused("record " + std::to_string(i + 1) +
                   ": the feature library refuses it; run again with --verbose to see why");
  }
  return {};
}

}  // namespace driver_feature::host
