// The elements of a document: a compact tree over the document's text.
//
// An element says where its start tag begins. The tag and the attributes are
// read from there when somebody asks. That text has been found well-formed
// before, and values have been resolved in their places: each ends with a NUL
// character, and spaces fill the rest of its place and that of its last quote.
#ifndef PLATFORM_COMMON_API_XML_ELEMENT_H_
#define PLATFORM_COMMON_API_XML_ELEMENT_H_

#include <cstddef>
#include <cstdint>
#include <memory_resource>
#include <string_view>
#include <vector>

#include "xml_characters.h"

namespace driver_feature {

// Elements are in one array, in the order of their start tags.
class Element {
 public:
  // `tag` is the first character of its name, in the text.
  Element(const char* tag, int line, bool escaped)
      : tag_(tag), line_(static_cast<unsigned>(line) & kLineBits), escaped_(escaped ? 1 : 0) {}

  const char* tag() const { return tag_; }

  // On which the start tag begins.
  int line() const { return static_cast<int>(line_); }
  void setLine(int line) { line_ = static_cast<unsigned>(line) & kLineBits; }

  // Whether the values of its attributes hold byte escapes. The nearest element
  // that says so in its attribute ByteEscapes counts, the element itself or one
  // around it.
  bool isEscaped() const { return escaped_ != 0; }
  void setEscaped(bool escaped) { escaped_ = escaped ? 1 : 0; }

  // Null if there is none.
  Element* firstChild() { return isParent_ != 0 ? this + 1 : nullptr; }
  Element* nextSibling() { return toSibling_ != 0 ? this + toSibling_ : nullptr; }

  void setParent() { isParent_ = 1; }
  void setNextSibling(const Element& sibling) {
    toSibling_ = static_cast<std::uint32_t>(&sibling - this);
  }

 private:
  // More than a document has bytes.
  static constexpr unsigned kLineBits = (1U << 30U) - 1;

  const char* tag_;
  std::uint32_t toSibling_ = 0;  // How many elements further on; 0 without one.
  unsigned line_ : 30;
  unsigned escaped_ : 1;
  unsigned isParent_ : 1 = 0;
};

using Elements = std::pmr::vector<Element>;

// The name at the beginning of a start tag or of an attribute.
inline std::string_view nameAt(const char* text) {
  const char* end = text;
  while (isOfClass(*end, kNameByte)) ++end;
  return {text, static_cast<std::size_t>(end - text)};
}

// Walks over the attributes in a start tag:
//
//   for (AttributeReader attribute(element); attribute.read();) {
//     ... attribute.name() ... attribute.value() ...
//   }
class AttributeReader {
 public:
  explicit AttributeReader(const Element& element) : next_(nameAt(element.tag()).end()) {}

  // Moves to the next attribute; false after the last one.
  bool read() {
    next_ = skipBlanks(next_);
    if (*next_ == '>' || *next_ == '/') return false;
    name_ = nameAt(next_);
    const char* sign = skipBlanks(name_.end());  // "=".
    const char* quote = skipBlanks(sign + 1);
    value_ = quote + 1;
    next_ = value_.end() + 1;
    return true;
  }

  // Both are valid as long as the document's text.
  std::string_view name() const { return name_; }
  std::string_view value() const { return value_; }

  // After the last attribute: the end of the tag, ">" or "/>".
  const char* end() const { return next_; }

 private:
  static const char* skipBlanks(const char* text) {
    while (isOfClass(*text, kBlank)) ++text;
    return text;
  }

  const char* next_;
  std::string_view name_;
  std::string_view value_;
};

}  // namespace driver_feature

#endif  // PLATFORM_COMMON_API_XML_ELEMENT_H_
