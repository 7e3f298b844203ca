// The features, options and groups of a description, as they are nested.
#ifndef HOST_EDITOR_OUTLINE_H_
#define HOST_EDITOR_OUTLINE_H_

#include <string>
#include <vector>

#include "host/editor/markup.h"

namespace driver_feature::editor {

struct Symbol {
  std::string tag;
  std::string name;    // The tag, if it has none.
  std::string detail;  // The type of a feature.
  Range whole;
  Range chosen;  // Its name.
  std::vector<Symbol> children;
};

// All elements that the grammar knows, outside of those that it does not know.
std::vector<Symbol> outlineOf(const Markup& markup);

}  // namespace driver_feature::editor

#endif  // HOST_EDITOR_OUTLINE_H_
