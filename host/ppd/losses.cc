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

std::vector<std::string> Losses::lines(bool brief) const {
  std::vector<std::string> lines;
  for (const auto& [kind, entries] : entries_) {
    if (kind == LossKind::kText) {
      lines.push_back("texts for users: " + list(kind));
    } else if (kind == LossKind::kKeyword) {
      lines.push_back("keywords: " + list(kind));
    } else if (kind == LossKind::kConstraint && brief) {
      const long number = count(kind);
      lines.push_back(std::to_string(number) + (number == 1 ? " constraint" : " constraints") +
                      "; --verbose names each");
    } else {
      const std::string word = kind == LossKind::kConstraint ? "constraint " : "";
      for (const Entry& entry : entries) lines.push_back(word + entry.what);
    }
  }
  return lines;
}

}  // namespace driver_feature
