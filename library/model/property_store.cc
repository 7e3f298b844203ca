#include "model/property_store.h"

#include <algorithm>

namespace driver_feature {

namespace {

// What goes before the content: the property's number and the size.
std::size_t headSize(std::size_t size) {
  std::size_t bytes = 2;
  for (; size >= 0x80U; size >>= 7U) ++bytes;
  return bytes;
}

void appendHead(std::size_t property, std::size_t size, std::string& entries) {
  entries.push_back(static_cast<char>(property));
  for (; size >= 0x80U; size >>= 7U) entries.push_back(static_cast<char>((size & 0x7FU) | 0x80U));
  entries.push_back(static_cast<char>(size));
}

}  // namespace

// A text of another size goes to the end, so that one that changes again and
// again does not move the others.
void PropertyStore::setText(std::size_t property, std::string_view text) {
  const Entry old = find(static_cast<unsigned char>(property));
  const auto begin = static_cast<std::size_t>(old.begin - entries_.data());
  const auto content = static_cast<std::size_t>(old.content.data() - entries_.data());
  if (text.size() == old.content.size()) {
    std::copy(text.begin(), text.end(), entries_.data() + content);
    return;
  }
  const std::size_t removed = content + old.content.size() - begin;
  const std::size_t added = text.empty() ? 0 : headSize(text.size()) + text.size();
  const std::size_t needed = entries_.size() - removed + added;
  if (needed > entries_.capacity()) {
    // As much as is needed: most properties are set once.
    std::string grown;
    grown.reserve(needed);
    grown.append(entries_, 0, begin).append(entries_, begin + removed);
    entries_.swap(grown);
  } else if (removed != 0) {
    entries_.erase(begin, removed);
  }
  if (text.empty()) return;
  appendHead(property, text.size(), entries_);
  entries_.append(text);
}

}  // namespace driver_feature
