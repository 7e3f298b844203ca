// Settings as the query of a URL.

#include <algorithm>
#include <optional>
#include <string_view>

#include <nlohmann/json.hpp>

#include "host/base/text.h"
#include "host/page/command_line.h"

namespace driver_feature::page {

using Json = nlohmann::json;

namespace {

std::string encoded(std::string_view text) {
  constexpr std::string_view kPlain = "-._~";
  std::string result;
  for (const char character : text) {
    const bool isPlain =
        (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
        (character >= '0' && character <= '9') || kPlain.find(character) != std::string_view::npos;
    result += isPlain ? std::string(1, character) : host::percentEncoded(character);
  }
  return result;
}

std::string decoded(std::string_view text) {
  return host::percentDecoded(text, host::PlusSign::kBlank);
}

std::string arrayOf(const std::vector<host::Setting>& members) {
  Json values = Json::array();
  for (const host::Setting& member : members) values.push_back(member.value);
  return values.dump(-1, ' ', false, Json::error_handler_t::replace);
}

// The record that the value of a key in brackets is; nothing for anything else.
std::optional<PageRecord> recordOf(const std::string& key, const std::string& value) {
  if (key.size() < 3 || !key.starts_with('[') || !key.ends_with(']')) return std::nullopt;
  const Json values = Json::parse(value, nullptr, false);
  if (!values.is_array()) return std::nullopt;
  PageRecord record{key.substr(1, key.size() - 2), {}};
  for (const Json& member : values) {
    if (!member.is_string()) return std::nullopt;
    record.members.push_back({"", member.get<std::string>()});
  }
  return record;
}

}  // namespace

std::string queryOf(const PresentSettings& present) {
  std::string query;
  for (const auto& [name, value] : present.settings) {
    query += (query.empty() ? "" : "&") + encoded(name) + "=" + encoded(value);
  }
  for (const PageRecord& record : present.records) {
    query += (query.empty() ? "" : "&") + encoded("[" + record.group + "]") + "=" +
             encoded(arrayOf(record.members));
  }
  return query;
}

PresentSettings readQuery(const std::string& query) {
  PresentSettings present;
  std::string_view rest = query;
  while (!rest.empty()) {
    const std::string_view pair = rest.substr(0, rest.find('&'));
    rest.remove_prefix(std::min(pair.size() + 1, rest.size()));
    const std::size_t equals = pair.find('=');
    if (equals == std::string_view::npos) continue;
    std::string name = decoded(pair.substr(0, equals));
    std::string value = decoded(pair.substr(equals + 1));
    if (auto record = recordOf(name, value)) {
      present.records.push_back(std::move(*record));
    } else if (!name.empty()) {
      present.settings.push_back({std::move(name), std::move(value)});
    }
  }
  return present;
}

}  // namespace driver_feature::page
