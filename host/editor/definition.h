// Where what is named at a place of a description is defined.
#ifndef HOST_EDITOR_DEFINITION_H_
#define HOST_EDITOR_DEFINITION_H_

#include <cstddef>
#include <optional>

#include "host/editor/markup.h"

namespace driver_feature::editor {

struct Definition {
  Range from;    // What names it.
  Range whole;   // The element,
  Range chosen;  // and its name.

  bool operator==(const Definition&) const = default;
};

// For a default value, its option. For the name or tag of a feature, and where
// rules and media name one, the feature that the library uses for that name: the
// last one. For an end tag, its start tag. Nothing elsewhere.
std::optional<Definition> definitionAt(const Markup& markup, std::size_t offset);

}  // namespace driver_feature::editor

#endif  // HOST_EDITOR_DEFINITION_H_
