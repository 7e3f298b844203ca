// Writes what can be asked for of a libxml2 tree as a plain document.
#ifndef PLATFORM_COMMON_API_XML_PLAIN_TEXT_H_
#define PLATFORM_COMMON_API_XML_PLAIN_TEXT_H_

#include <libxml/tree.h>

#include <string>
#include <vector>

namespace driver_feature {

struct PlainText {
  std::string text;
  std::vector<int> lines;  // Of the elements, in the order of their start tags.
};

// The elements, their attributes and the text before their first child. The tag of an element is
// written without its namespace prefix, the name of an attribute with it; declarations of
// namespaces are not written.
PlainText plainTextOf(const xmlDoc& tree);

}  // namespace driver_feature

#endif  // PLATFORM_COMMON_API_XML_PLAIN_TEXT_H_
