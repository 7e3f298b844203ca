// The elements of a document: a compact tree over the document's text.
//
// An element says where its start tag begins. The tag and the attributes are
// read from there when somebody asks. That text has been found well-formed
// before, and values have been resolved in their places: each ends with a NUL
// character, and spaces fill the rest of its place and that of its last quote.
#ifndef PLATFORM_COMMON_API_XML_ELEMENT_H_
#define PLATFORM_COMMON_API_XML_ELEMENT_H_

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

namespace driver_feature {

struct Element {
  const char* tag = nullptr;  // The first character of its name, in the text.
  Element* nextSibling = nullptr;
  Element* firstChild = nullptr;
  int line = 0;  // On which the start tag begins.
  // Whether the values of its attributes hold byte escapes. The nearest element
  // that says so in its attribute ByteEscapes counts, the element itself or one
  // around it.
  bool escaped = false;
};

// Elements that stay where they are. Some share each piece of memory.
class ElementStore {
 public:
  Element& add();

  // In the order in which they were added.
  Element& operator[](std::size_t index) { return pieces_[index / kPiece][index % kPiece]; }
  std::size_t size() const { return size_; }

 private:
  static constexpr std::size_t kPiece = 256;

  std::vector<std::unique_ptr<Element[]>> pieces_;
  std::size_t size_ = 0;
};

// Walks over the attributes in a start tag:
//
//   for (AttributeReader attribute(element); attribute.read();) {
//     ... attribute.name() ... attribute.value() ...
//   }
class AttributeReader {
 public:
  explicit AttributeReader(const Element& element);

  // Moves to the next attribute; false after the last one.
  bool read();

  // Both are valid as long as the document's text.
  std::string_view name() const { return name_; }
  std::string_view value() const { return value_; }

  // After the last attribute: the end of the tag, ">" or "/>".
  const char* end() const { return next_; }

 private:
  const char* next_;
  std::string_view name_;
  std::string_view value_;
};

// The name at the beginning of a start tag.
std::string_view nameAt(const char* tag);

}  // namespace driver_feature

#endif  // PLATFORM_COMMON_API_XML_ELEMENT_H_
