// An element of the description that an import makes, before it becomes XML.
#ifndef HOST_PPD_IMPORT_IMPORTED_ELEMENT_H_
#define HOST_PPD_IMPORT_IMPORTED_ELEMENT_H_

#include <string>
#include <utility>
#include <vector>

namespace driver_feature::ppd {

struct ImportedElement {
  std::string tag;
  std::vector<std::pair<std::string, std::string>> attributes;  // Values of any bytes.
  std::vector<ImportedElement> children;
  std::string content = {};  // Of an element without children; UTF-8.
};

}  // namespace driver_feature::ppd

#endif  // HOST_PPD_IMPORT_IMPORTED_ELEMENT_H_
