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

// Of a default, its option; of the name or tag of a feature, wherever it is, the
// feature that the library takes for that name: the last one; the same where rules
// and media name a feature. Of an end tag, its start tag.
std::optional<Definition> definitionAt(const Markup& markup, std::size_t offset);

}  // namespace driver_feature::editor

#endif  // HOST_EDITOR_DEFINITION_H_
