#include "host/page/page_request.h"

#include <optional>

#include "host/base/text.h"

namespace driver_feature::page {

using Json = nlohmann::json;

namespace {

constexpr const char* kSettingsForm = "\"settings\" is not [[\"NAME\",\"VALUE\"], ...]";
constexpr const char* kRecordsForm = "\"records\" is not {\"GROUP\": [[\"VALUE\", ...], ...]}";

// The text of a JSON text or number; nothing for anything else.
std::optional<std::string> textOf(const Json& value) {
  if (value.is_string()) return value.get<std::string>();
  if (value.is_number()) return value.dump();
  return std::nullopt;
}

// With the names that the description has. An unknown one stays, to be refused.
host::Setting named(const Catalog& catalog, std::string name, std::string value) {
  const CatalogFeature* feature = catalog.findShown(name);
  if (feature == nullptr) return {std::move(name), std::move(value)};
  return {feature->name, Catalog::valueShownAs(*feature, value)};
}

host::Result<> addRecords(const std::string& group, const Json& rows, PresentSettings& present) {
  if (!rows.is_array()) return host::refused(kRecordsForm);
  for (const Json& row : rows) {
    if (!row.is_array()) return host::refused(kRecordsForm);
    PageRecord record{group, {}};
    for (const Json& value : row) {
      auto text = textOf(value);
      if (!text) return host::refused(kRecordsForm);
      record.members.push_back({"", std::move(*text)});
    }
    present.records.push_back(std::move(record));
  }
  return {};
}

}  // namespace

std::string textIn(const Json& request, const char* name, const std::string& otherwise) {
  const auto found = request.find(name);
  return found != request.end() && found->is_string() ? found->get<std::string>() : otherwise;
}

bool flagIn(const Json& request, const char* name) {
  const auto found = request.find(name);
  return found != request.end() && found->is_boolean() && found->get<bool>();
}

host::Result<host::RuleConduct> conductIn(const Json& request) {
  const std::string word = textIn(request, "conduct", "refuse");
  if (word == "refuse") return host::RuleConduct::kRefuse;
  if (word == "mend") return host::RuleConduct::kMend;
  return host::refused("there is no conduct " + host::inQuotes(word) + "; give refuse or mend");
}

host::Result<std::vector<host::Setting>> settingsIn(const Json& request, const Catalog& catalog) {
  std::vector<host::Setting> settings;
  const auto found = request.find("settings");
  if (found == request.end()) return settings;
  if (!found->is_array()) return host::refused(kSettingsForm);
  for (const Json& pair : *found) {
    const bool isPair = pair.is_array() && pair.size() == 2;
    auto name = isPair ? textOf(pair[0]) : std::nullopt;
    auto value = isPair ? textOf(pair[1]) : std::nullopt;
    if (!name || !value) return host::refused(kSettingsForm);
    settings.push_back(named(catalog, std::move(*name), std::move(*value)));
  }
  return settings;
}

host::Result<PresentSettings> presentIn(const Json& request, const Catalog& catalog) {
  PresentSettings present;
  if (request.contains("query")) {
    present = readQuery(textIn(request, "query"));
    for (host::Setting& setting : present.settings) {
      setting = named(catalog, std::move(setting.name), std::move(setting.value));
    }
    return present;
  }
  auto settings = settingsIn(request, catalog);
  if (!settings) return failureOf(settings);
  present.settings = std::move(*settings);
  const auto records = request.find("records");
  if (records == request.end()) return present;
  if (!records->is_object()) return host::refused(kRecordsForm);
  for (const auto& [group, rows] : records->items()) {
    if (auto added = addRecords(group, rows, present); !added) return failureOf(added);
  }
  return present;
}

host::Result<RecordsAction> recordsActionIn(const Json& request) {
  RecordsAction action{textIn(request, "group"), textIn(request, "action"), {}, {}};
  const auto index = request.find("index");
  if (index != request.end() && index->is_number_unsigned()) {
    action.index = index->get<std::size_t>();
  }
  const auto values = request.find("values");
  if (values == request.end()) return action;
  if (!values->is_array()) return host::refused("\"values\" is not an array");
  for (const Json& value : *values) {
    auto text = textOf(value);
    if (!text && !value.is_null()) {
      return host::refused("a value is neither a text nor a number; give one");
    }
    action.values.push_back(std::move(text));
  }
  return action;
}

}  // namespace driver_feature::page
