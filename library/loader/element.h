// A look at one element of the description through the host's parser.
#ifndef LOADER_ELEMENT_H_
#define LOADER_ELEMENT_H_

#include <string>

#include "AttributeMap.h"
#include "XMLParser.h"

namespace driver_feature {

// Walks the children of an element in document order:
//
//   for (ChildElements child(element); child.handle() != nullptr; child.next()) {
//     child.read();
//     ... child.tag() ... child.attributes() ...
//   }
//
// A child that is not read costs the parser nothing.
class ChildElements {
 public:
  explicit ChildElements(void* element) : handle_(pParserInstance->firstChild(element)) {}

  void* handle() const { return handle_; }
  const std::string& tag() const { return tag_; }
  AttributeMap& attributes() { return attributes_; }

  // After the last child, further calls do nothing.
  void next() {
    if (handle_ == nullptr) return;
    handle_ = pParserInstance->nextSibling(handle_);
    attributes_.clear();
  }

  // Reads the tag and the attributes of the current child. If there is none,
  // the tag is unchanged and there are no attributes.
  void read() {
    if (handle_ == nullptr) return;
    pParserInstance->tagName(handle_, tag_);
    pParserInstance->attributes(handle_, attributes_);
  }

 private:
  void* handle_;
  std::string tag_;
  AttributeMap attributes_;
};

}  // namespace driver_feature

#endif  // LOADER_ELEMENT_H_
