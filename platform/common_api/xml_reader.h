// Parses XML text into a libxml2 tree, with everything refused or left alone
// that a feature description has no use for. See XMLDocument.h.
#ifndef PLATFORM_COMMON_API_XML_READER_H_
#define PLATFORM_COMMON_API_XML_READER_H_

#include <libxml/tree.h>

#include <memory>
#include <string>

#include "XMLDocument.h"

namespace driver_feature {

struct TreeDeleter {
  void operator()(xmlDoc* tree) const { xmlFreeDoc(tree); }
};
using TreePointer = std::unique_ptr<xmlDoc, TreeDeleter>;

// The tree of `text`, or null and a filled `problem`. `name` is the file's
// name in messages. Nothing is written to standard error.
TreePointer readTree(const std::string& text, const std::string& name, XMLProblem& problem);

// What readTree() has noted with an element of its trees: its line, and whether
// the values of its attributes hold byte escapes. The nearest element that says
// so in its attribute ByteEscapes counts, the element itself or one around it.
int notedLine(const xmlNode& element);
bool hasByteEscapes(const xmlNode& element);

}  // namespace driver_feature

#endif  // PLATFORM_COMMON_API_XML_READER_H_
