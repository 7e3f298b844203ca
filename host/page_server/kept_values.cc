#include "host/page_server/kept_values.h"

#include <nlohmann/json.hpp>

#include "host/page_server/json_text.h"

namespace driver_feature::page_server {

namespace {

using Json = nlohmann::json;

bool isPair(const Json& json) {
  return json.is_array() && json.size() == 2 && json[0].is_string() && json[1].is_string();
}

}  // namespace

void KeptValues::begin(const std::string& name, const std::string& value) {
  values_[name] = value;
  changed_[name] = false;
}

void KeptValues::take(const Json& state, const std::string& request) {
  if (state.value("whole", true)) {
    values_.clear();
    records_.clear();
  }
  if (const auto values = state.find("values"); values != state.end()) {
    for (const auto& [name, value] : values->items()) {
      if (value.is_string()) values_[name] = value.get<std::string>();
      if (value.is_null()) values_.erase(name);
    }
  }
  if (const auto records = state.find("records"); records != state.end()) {
    for (const auto& [group, list] : records->items()) {
      if (list.is_array()) records_[group] = list.dump();
      if (list.is_null()) records_.erase(group);
    }
  }
  changed_.clear();
  for (const Json& name : state.value("changed", Json::array())) {
    if (name.is_string()) changed_[name.get<std::string>()] = false;
  }
  takeSecrets(state, request);
}

// A secret comes from the page only, and is kept as long as it is not the default.
void KeptValues::takeSecrets(const Json& state, const std::string& request) {
  const Json wanted = Json::parse(request, nullptr, false);
  const bool isSet = wanted.is_object() && wanted.contains("settings");
  for (const Json& name : state.value("masked", Json::array())) {
    if (!name.is_string()) continue;
    const auto changed = changed_.find(name.get<std::string>());
    if (changed == changed_.end()) continue;
    changed->second = true;
    if (!isSet || !wanted["settings"].is_array()) continue;
    for (const Json& setting : wanted["settings"]) {
      if (isPair(setting) && setting[0] == name) secrets_[changed->first] = setting[1];
    }
  }
  std::erase_if(secrets_, [this](const auto& secret) { return !changed_.contains(secret.first); });
}

std::optional<std::string> KeptValues::restoring() const {
  Json settings = Json::array();
  for (const auto& [name, isSecret] : changed_) {
    const auto& values = isSecret ? secrets_ : values_;
    const auto found = values.find(name);
    if (found != values.end()) settings.push_back({found->first, found->second});
  }
  Json records = Json::object();
  for (const auto& [group, list] : records_) records[group] = Json::parse(list);
  if (settings.empty() && records.empty()) return std::nullopt;
  const Json request = {{"do", "restore"}, {"settings", settings}, {"records", records}};
  return jsonText(request);
}

}  // namespace driver_feature::page_server
