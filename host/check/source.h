// A description that has been read to be checked.
#ifndef HOST_CHECK_SOURCE_H_
#define HOST_CHECK_SOURCE_H_

#include <memory>
#include <string>

#include "XMLDocument.h"

#include "host/check/element.h"
#include "host/check/findings.h"

namespace driver_feature {

struct CheckedSource {
  std::string text;  // The file's bytes.
  std::unique_ptr<XMLDocument> document;
  void* handle = nullptr;             // The feature-description element, for the library.
  std::unique_ptr<Element> elements;  // The same element, for the rules.
};

// Reads a file once, whatever kind of file it is. Null when it is no document
// with a feature description; `findings` then has one finding. A second
// description in the document is reported, too.
std::unique_ptr<CheckedSource> readSource(const std::string& path, Findings& findings);

}  // namespace driver_feature

#endif  // HOST_CHECK_SOURCE_H_
