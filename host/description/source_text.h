// A text by lines and positions, as messages show it.
#ifndef HOST_DESCRIPTION_SOURCE_TEXT_H_
#define HOST_DESCRIPTION_SOURCE_TEXT_H_

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "host/base/position.h"

namespace driver_feature::host {

// The text must outlive it.
class SourceText {
 public:
  explicit SourceText(std::string_view utf8);

  // A line, counted from 1, without its line end; nothing when there is none.
  std::optional<std::string_view> line(int number) const;

  // Where a line that there is begins, in bytes.
  std::size_t startOf(int number) const { return starts_[static_cast<std::size_t>(number) - 1]; }

  // Where a position is in the text, in bytes. Nothing when the line has fewer
  // characters; the end of a line has a position. Positions near the one that
  // was asked for before are found at once, however long the line is.
  std::optional<std::size_t> offsetOf(Position position) const;

 private:
  std::string_view text_;
  std::vector<std::size_t> starts_;  // Of each line.
  mutable Position known_{1, 1};     // The last position that was asked for,
  mutable std::size_t offset_ = 0;   // and where it is.
};

}  // namespace driver_feature::host

#endif  // HOST_DESCRIPTION_SOURCE_TEXT_H_
