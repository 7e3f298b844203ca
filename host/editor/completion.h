// What can be written at a place of a description.
#ifndef HOST_EDITOR_COMPLETION_H_
#define HOST_EDITOR_COMPLETION_H_

#include <cstddef>
#include <string>
#include <vector>

#include "host/editor/markup.h"

namespace driver_feature::editor {

struct Completion {
  enum class Kind : unsigned char { kElement, kEndTag, kAttribute, kWord, kOption, kRoutine };

  Kind kind = Kind::kElement;
  std::string label;
  std::string sentence;  // May be empty.
  Range replaced;
  std::string text;         // In place of it.
  std::size_t cursor = 0;   // Where the cursor goes, in bytes of `text`.
  bool isRequired = false;  // Of attributes.
};

// In the order in which they should be offered. `routines` are the names of the
// routines that exist.
std::vector<Completion> completionsAt(const Markup& markup, std::size_t offset,
                                      const std::vector<std::string>& routines);

}  // namespace driver_feature::editor

#endif  // HOST_EDITOR_COMPLETION_H_
