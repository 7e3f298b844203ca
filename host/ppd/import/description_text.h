// An imported description as XML.
#ifndef HOST_PPD_IMPORT_DESCRIPTION_TEXT_H_
#define HOST_PPD_IMPORT_DESCRIPTION_TEXT_H_

#include <string>

#include "host/ppd/import/imported_element.h"

namespace driver_feature::ppd {

// The XML document with `root` as its root element, indented, in UTF-8. A
// value that XML cannot hold is escaped, and the root element then says
// ByteEscapes="yes". Throws std::bad_alloc for a lack of memory.
std::string descriptionText(const ImportedElement& root);

}  // namespace driver_feature::ppd

#endif  // HOST_PPD_IMPORT_DESCRIPTION_TEXT_H_
