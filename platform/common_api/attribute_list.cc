#include "AttributeList.h"

#include <cstring>

int ParseAttributeList_LowLevel(const char* const* names, int highestIndex, const char* name) {
  if (names == nullptr || name == nullptr) return -1;
  int low = 0;
  int high = highestIndex;
  while (low <= high) {
    const int middle = low + (high - low) / 2;
    const int order = std::strcmp(name, names[middle]);
    if (order == 0) return middle;
    if (order < 0) {
      high = middle - 1;
    } else {
      low = middle + 1;
    }
  }
  return -1;
}
