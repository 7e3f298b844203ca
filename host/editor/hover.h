// What an element, attribute or value means, for a cursor that is on it.
#ifndef HOST_EDITOR_HOVER_H_
#define HOST_EDITOR_HOVER_H_

#include <cstddef>
#include <optional>
#include <string>

#include "host/editor/markup.h"

namespace driver_feature::editor {

struct Hover {
  Range range;
  std::string text;  // Markdown.

  bool operator==(const Hover&) const = default;
};

std::optional<Hover> hoverAt(const Markup& markup, std::size_t offset);

}  // namespace driver_feature::editor

#endif  // HOST_EDITOR_HOVER_H_
