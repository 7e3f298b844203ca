// The host's XML parser, as far as the feature library calls it.
//
// The order of the operations is the contract; the reserved ones keep the
// host's other operations in their places. An element handle is opaque, and
// the handle of nothing is null. Only elements count as children and
// siblings.
//
// The parser of the development edition reads documents of XMLDocument.h. The
// tag of an element comes without its namespace prefix, the name of an
// attribute with it, so that a foreign attribute is not mistaken for ours.
#ifndef PLATFORM_COMMON_API_XML_PARSER_H_
#define PLATFORM_COMMON_API_XML_PARSER_H_

#include <string>

class AttributeMap;

class XMLParser {
 public:
  virtual void tagName(void* element, std::string& tag) = 0;  // Slot 0.
  virtual void reserved1() = 0;
  virtual void* firstChild(void* element) = 0;   // Slot 2.
  virtual void* nextSibling(void* element) = 0;  // Slot 3.
  virtual void reserved4() = 0;
  virtual int childCount(void* element) = 0;                      // Slot 5.
  virtual void attributes(void* element, AttributeMap& map) = 0;  // Slot 6: adds to the map.

 protected:
  ~XMLParser() = default;
};

extern XMLParser* pParserInstance;

#endif  // PLATFORM_COMMON_API_XML_PARSER_H_
