// Finds an entry of a map of few texts.
#ifndef PLATFORM_COMMON_API_FEW_ENTRIES_H_
#define PLATFORM_COMMON_API_FEW_ENTRIES_H_

#include <cstddef>
#include <string>

namespace driver_feature {

inline constexpr std::size_t kFew = 8;

// Whether two names are the same. Those of attributes often begin alike, and
// differ in length or in the last character.
template <class Name>
bool isSame(const std::string& name, const Name& other) {
  return name.size() == other.size() && (name.empty() || name.back() == other.back()) &&
         name == other;
}

// The entry of that name, or the end. An element has a few attributes: one after
// another they are compared faster than in the order of a tree.
template <class Map, class Name>
auto findAmongFew(Map& entries, const Name& name) {
  auto entry = entries.begin();
  while (entry != entries.end() && !isSame(entry->first, name)) ++entry;
  return entry;
}

}  // namespace driver_feature

#endif  // PLATFORM_COMMON_API_FEW_ENTRIES_H_
