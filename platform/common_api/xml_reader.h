// Parses any XML text into a libxml2 tree, with everything refused or left
// alone that a feature description has no use for. See XMLDocument.h.
#ifndef PLATFORM_COMMON_API_XML_READER_H_
#define PLATFORM_COMMON_API_XML_READER_H_

#include <libxml/tree.h>

#include <memory>
#include <string>
#include <string_view>

#include "XMLDocument.h"

namespace driver_feature {

struct TreeDeleter {
  void operator()(xmlDoc* tree) const { xmlFreeDoc(tree); }
};
using TreePointer = std::unique_ptr<xmlDoc, TreeDeleter>;

// The tree of `text`, or null and a filled `problem`. `name` is the file's
// name in messages. Nothing is written to standard error.
TreePointer readTree(std::string_view text, const std::string& name, XMLProblem& problem);

// The line on which the start tag of an element of its trees begins.
int notedLine(const xmlNode& element);

}  // namespace driver_feature

#endif  // PLATFORM_COMMON_API_XML_READER_H_
