// The text in an element of a document.
#ifndef PLATFORM_COMMON_API_XML_CONTENT_H_
#define PLATFORM_COMMON_API_XML_CONTENT_H_

#include "XMLDocument.h"
#include "xml_element.h"

namespace driver_feature {

// As of XMLDocument::contentOf().
XMLContent contentOf(const Element& element);

}  // namespace driver_feature

#endif  // PLATFORM_COMMON_API_XML_CONTENT_H_
