// Walks through the elements of a document, whose handles pParserInstance
// takes.
#ifndef HOST_DESCRIPTION_XML_ELEMENT_H_
#define HOST_DESCRIPTION_XML_ELEMENT_H_

#include <string>

#include "XMLParser.h"

namespace driver_feature::host {

inline std::string tagOf(void* element) {
  std::string tag;
  pParserInstance->tagName(element, tag);
  return tag;
}

template <class Visit>
void forEachChild(void* element, const Visit& visit) {
  for (void* child = pParserInstance->firstChild(element); child != nullptr;
       child = pParserInstance->nextSibling(child)) {
    visit(child);
  }
}

}  // namespace driver_feature::host

#endif  // HOST_DESCRIPTION_XML_ELEMENT_H_
