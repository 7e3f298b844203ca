#include "AttributeList.h"

#include <cstddef>
#include <cstring>

int ParseAttributeList_LowLevel(const char* const* names, int highestIndex, const char* name) {
  if (names == nullptr || name == nullptr || highestIndex < 0) return -1;
  const auto first = static_cast<unsigned char>(*name);
  std::size_t low = 0;
  std::size_t end = static_cast<std::size_t>(highestIndex) + 1;
  while (low < end) {
    const std::size_t middle = (low + end) / 2;
    // Most names that are compared differ in their first character already,
    // which is looked at without a call.
    const auto otherFirst = static_cast<unsigned char>(*names[middle]);
    bool isBefore = first < otherFirst;
    if (first == otherFirst) {
      const int order = std::strcmp(name, names[middle]);
      if (order == 0) return static_cast<int>(middle);
      isBefore = order < 0;
    }
    if (isBefore) {
      end = middle;
    } else {
      low = middle + 1;
    }
  }
  return -1;
}
