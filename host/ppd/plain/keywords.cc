#include "host/ppd/plain/keywords.h"

#include <algorithm>
#include <cstddef>

#include "host/base/text.h"

namespace driver_feature::ppd {

namespace {

int lowered(char c) {
  return static_cast<unsigned char>(host::toLower(c));
}

}  // namespace

int compareKeywords(std::string_view left, std::string_view right) {
  const std::size_t shared = std::min(left.size(), right.size());
  for (std::size_t i = 0; i < shared; ++i) {
    if (const int difference = lowered(left[i]) - lowered(right[i]); difference != 0) {
      return difference;
    }
  }
  if (left.size() == right.size()) return 0;
  return left.size() < right.size() ? -1 : 1;
}

}  // namespace driver_feature::ppd
