#include "host/settings/records.h"

#include <algorithm>
#include <utility>
#include <vector>

#include <nlohmann/json.hpp>

#include "host/base/input_file.h"
#include "host/base/nearest_name.h"
#include "host/base/text.h"
#include "host/session/group_view.h"
#include "host/settings/json_places.h"

namespace driver_feature::host {

namespace {

using Json = nlohmann::ordered_json;

// The place of a byte counted from 1.
Position placeOf(const std::string& text, std::size_t byte) {
  const std::string before = text.substr(0, byte > 0 ? byte - 1 : 0);
  const auto line = 1 + std::count(before.begin(), before.end(), '\n');
  const std::size_t lineStart = before.rfind('\n') + 1;  // 0 on the first line.
  return {static_cast<int>(line), static_cast<int>(before.size() - lineStart + 1)};
}

Problem problemIn(const std::string& file, Position position, std::string text) {
  return {Problem::Kind::kRefused, std::move(text), "", "", file, position};
}

Result<Json> parse(const std::string& file, const std::string& text) {
  Json json;
  try {
    json = Json::parse(text);
  } catch (const Json::parse_error& error) {
    return Failure(problemIn(file, placeOf(text, error.byte),
                             "the file is not JSON; correct it there or just before"));
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
  RecordCheck(const Model& model, const std::vector<std::string>& members, std::string file)
      : model_(model), members_(members), file_(std::move(file)) {}

  // Reads the values of a record in the order of the members, and notes what is
  // wrong with it. Records are counted from 0, as the library does.
  void read(const Json& object, const JsonPlace& place, std::vector<Record>& records) {
    place_ = &place;
    start_ = "record " + std::to_string(records.size()) + ": ";
    records.emplace_back();
    if (!object.is_object()) {
      return refuse(place.line, "it is not an object; write {\"NAME\": VALUE, ...}");
    }
    for (const auto& [name, value] : object.items()) {
      if (!takesValue(name)) refuseName(name);
    }
    for (const std::string& name : members_) {
      records.back().emplace_back();
      if (takesValue(name)) readMember(object, name, records.back().back());
    }
  }

  // In the order of their lines.
  Problems problems() {
    std::ranges::stable_sort(problems_, {}, &Problem::position);
    return std::move(problems_);
  }

 private:
  void refuse(int line, const std::string& reason) {
    problems_.push_back(problemIn(file_, {line, 0}, start_ + reason));
  }

  int lineOf(const std::string& name) const {
    const auto line = place_->members.find(name);
    return line != place_->members.end() ? line->second : place_->line;
  }

  void refuseName(const std::string& name) {
    const auto nearest = nearestName(name, members_);
    refuse(lineOf(name), "there is no member " + inQuotes(name) + "; " +
                             (nearest ? "did you mean " + inQuotes(*nearest) + "?"
                                      : "the members are " + listed(members_)));
  }

  // A nested group is one of the members, and has no value.
  bool takesValue(const std::string& name) const {
    const bool isMember = std::find(members_.begin(), members_.end(), name) != members_.end();
    return isMember && model_.features.contains(name);
  }

  void readMember(const Json& object, const std::string& name, std::string& text) {
    const auto found = object.find(name);
    if (found == object.end()) {
      return refuse(place_->line, "member " + inQuotes(name) + " is missing; give it a value");
    }
    const auto value = textOf(*found);
    if (!value) {
      return refuse(lineOf(name),
                    "the value of " + inQuotes(name) + " is neither a text nor a number; give one");
    }
    text = *value;
    const Result<> checked = checkSetting(model_, {name, text});
    if (!checked) refuse(lineOf(name), inQuotes(name) + ": " + checked.error().text);
  }

  const Model& model_;
  const std::vector<std::string>& members_;
  std::string file_;
  const JsonPlace* place_ = nullptr;
  std::string start_;
  Problems problems_;
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
  const Result<Json> json = parse(request.file, *text);
  if (!json) return Failure(json.error());
  const std::vector<std::string> members = group->memberNames();
  const std::vector<JsonPlace> places = jsonPlaces(*text);
  RecordCheck check(model, members, request.file);
  std::vector<Record> records;
  for (const Json& object : *json) check.read(object, places.at(records.size()), records);
  if (Problems problems = check.problems(); !problems.empty()) {
    return failureOfAll(std::move(problems));
  }
  for (std::size_t i = 0; i < records.size(); ++i) {
    if (group->add(records[i])) continue;
    return Failure(problemIn(request.file, {places[i].line, 0},
                             "record " + std::to_string(i) +
                                 ": the feature library refuses it; run again with --verbose to "
                                 "see why"));
  }
  return {};
}

}  // namespace driver_feature::host
