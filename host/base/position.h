// A place in a text.
#ifndef HOST_BASE_POSITION_H_
#define HOST_BASE_POSITION_H_

#include <compare>

namespace driver_feature::host {

// Both count from 1; columns are characters (code points). 0 means the file
// as a whole.
struct Position {
  int line = 0;
  int column = 0;

  // NOLINTNEXTLINE(modernize-use-nullptr): clang-tidy 14 finds a 0 inside the comparison.
  auto operator<=>(const Position&) const = default;
};

}  // namespace driver_feature::host

#endif  // HOST_BASE_POSITION_H_
