#include "AttributeList.h"

#include <cstring>

int ParseAttributeList_LowLevel(const char* const* names, int highestIndex, const char* name) {
  if (names == nullptr || name == nullptr) return -1;
  const auto first = static_cast<unsigned char>(*name);
  int low = 0;
  int high = highestIndex;
  while (low <= high) {
    const int middle = low + (high - low) / 2;
    // Most names that are compared differ in their first character already,
    // which is looked at without a call.
    const auto otherFirst = static_cast<unsigned char>(*names[middle]);
    bool isBefore = first < otherFirst;
    if (first == otherFirst) {
      const int order = std::strcmp(name, names[middle]);
      if (order == 0) return middle;
      isBefore = order < 0;
    }
    if (isBefore) {
      high = middle - 1;
    } else {
      low = middle + 1;
    }
  }
  return -1;
}
