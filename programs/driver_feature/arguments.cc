#include "programs/driver_feature/arguments.h"

#include <algorithm>

namespace driver_feature::cli {

namespace {

// Not with a stream: that hides a lack of memory.
std::vector<std::string> split(std::string_view text, char separator) {
  std::vector<std::string> parts;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find(separator), text.size());
    parts.emplace_back(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return parts;
}

}  // namespace

std::vector<std::string> spellingsOf(const ArgumentRow& row) {
  return split(row.name, ',');
}

std::vector<std::string> kindsOf(const ArgumentRow& row) {
  return split(row.kinds, ' ');
}

const std::vector<std::string>& Arguments::texts(std::string_view name) const {
  static const std::vector<std::string> kNone;
  const auto found = values_.find(name);
  return found != values_.end() ? found->second : kNone;
}

std::string Arguments::text(std::string_view name, const std::string& otherwise) const {
  const std::vector<std::string>& all = texts(name);
  return all.empty() ? otherwise : all.front();
}

std::vector<const ArgumentRow*> CommandRow::arguments() const {
  std::vector<const ArgumentRow*> rows;
  for (const ArgumentRow& row : own) rows.push_back(&row);
  for (const ArgumentRow& row : shared) rows.push_back(&row);
  return rows;
}

}  // namespace driver_feature::cli
