#include "host/ppd/losses.h"

#include <algorithm>

#include "host/text.h"

namespace driver_feature {

void Losses::note(LossKind kind, const std::string& what) {
  std::vector<Entry>& entries = entries_[kind];
  const auto known = std::find_if(entries.begin(), entries.end(),
                                  [&what](const Entry& entry) { return entry.what == what; });
  if (known != entries.end()) {
    ++known->times;
  } else {
    entries.push_back({what, 1});
  }
}

long Losses::count(LossKind kind) const {
  long count = 0;
  const auto entries = entries_.find(kind);
  if (entries == entries_.end()) return 0;
  for (const Entry& entry : entries->second) count += entry.times;
  return count;
}

std::string Losses::list(LossKind kind) const {
  std::vector<std::string> names;
  for (const Entry& entry : entries_.at(kind)) {
    names.push_back(entry.times == 1 ? entry.what
                                     : entry.what + " (" + std::to_string(entry.times) + ")");
  }
  return join(names, ", ");
}

std::vector<std::string> Losses::lines() const {
  std::vector<std::string> all;
  for (const auto& [kind, entries] : entries_) {
    for (const std::string& line : lines(kind)) all.push_back(line);
  }
  return all;
}

std::vector<std::string> Losses::lines(LossKind kind) const {
  const auto entries = entries_.find(kind);
  if (entries == entries_.end()) return {};
  if (kind == LossKind::kText) return {"texts for users: " + list(kind)};
  if (kind == LossKind::kKeyword) return {"keywords: " + list(kind)};
  const std::string word = kind == LossKind::kConstraint ? "constraint " : "";
  std::vector<std::string> lines;
  for (const Entry& entry : entries->second) lines.push_back(word + entry.what);
  return lines;
}

}  // namespace driver_feature
