#include "host/ppd/import/losses.h"

#include "host/base/text.h"

namespace driver_feature::ppd {

void Losses::note(LossKind kind, const std::string& what) {
  Notes& notes = notes_[kind];
  const auto [place, isNew] = notes.places.try_emplace(what, notes.entries.size());
  if (isNew) notes.entries.push_back({what, 0});
  ++notes.entries[place->second].times;
}

long Losses::count(LossKind kind) const {
  long count = 0;
  const auto notes = notes_.find(kind);
  if (notes == notes_.end()) return 0;
  for (const Entry& entry : notes->second.entries) count += entry.times;
  return count;
}

std::string Losses::list(LossKind kind) const {
  std::vector<std::string> names;
  for (const Entry& entry : notes_.at(kind).entries) {
    names.push_back(entry.times == 1 ? entry.what
                                     : entry.what + " (" + std::to_string(entry.times) + ")");
  }
  return host::join(names, ", ");
}

std::vector<std::string> Losses::lines() const {
  std::vector<std::string> all;
  for (const auto& [kind, notes] : notes_) {
    for (const std::string& line : lines(kind)) all.push_back(line);
  }
  return all;
}

std::vector<std::string> Losses::lines(LossKind kind) const {
  const auto notes = notes_.find(kind);
  if (notes == notes_.end()) return {};
  if (kind == LossKind::kText) return {"texts for users: " + list(kind)};
  if (kind == LossKind::kKeyword) return {"keywords: " + list(kind)};
  const std::string word = kind == LossKind::kConstraint ? "constraint " : "";
  std::vector<std::string> lines;
  for (const Entry& entry : notes->second.entries) lines.push_back(word + entry.what);
  return lines;
}

}  // namespace driver_feature::ppd
