// An XML text while it is being typed: elements and attributes with their places,
// however incomplete.
#ifndef HOST_EDITOR_MARKUP_H_
#define HOST_EDITOR_MARKUP_H_

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace driver_feature::editor {

// Bytes of a text, from `begin` to before `end`.
struct Range {
  std::size_t begin = 0;
  std::size_t end = 0;

  // Whether a cursor is in it or at one of its ends.
  bool touches(std::size_t offset) const { return begin <= offset && offset <= end; }
  bool operator==(const Range&) const = default;
};

struct MarkupAttribute {
  std::string name;
  Range nameRange;
  std::optional<Range> value;  // Between the quotation marks; nothing before it is begun.
  std::string text;            // The value with its references resolved.
};

struct MarkupElement {
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

  std::string tag;        // Without prefix; may be empty.
  Range nameRange;        // With prefix.
  Range startTag;         // From "<"; up to what cannot belong to it when its ">" is missing.
  bool isClosed = false;  // Whether the start tag has its ">".
  bool isOpened = false;  // Whether it has a content: not after "/>".
  std::optional<Range> endName;  // The name in the end tag.
  Range whole;                   // With the end tag; without one, up to where another element ends.
  std::vector<MarkupAttribute> attributes;
  std::size_t parent = kNone;  // By its number in the text.

  const MarkupAttribute* find(std::string_view name) const;
  // The value of an attribute; empty without it.
  std::string text(std::string_view name) const;
};

// Where a cursor is.
struct MarkupPlace {
  enum class Kind : unsigned char { kNowhere, kContent, kTagName, kEndName, kInTag, kName, kValue };

  Kind kind = Kind::kNowhere;  // Nowhere: comments and the like.
  // The element of a tag; of content, the innermost one around it.
  const MarkupElement* element = nullptr;
  const MarkupAttribute* attribute = nullptr;  // Of names and values.
  Range word;                                  // The name or value at the cursor.
};

class Markup {
 public:
  explicit Markup(std::string text);
  Markup(const Markup&) = delete;  // Others point into it.
  Markup& operator=(const Markup&) = delete;

  const std::string& text() const { return text_; }

  // In the order of their start tags. Elements deeper than 256 count as children
  // of the 256th.
  const std::vector<MarkupElement>& elements() const { return elements_; }

  // Null at top level.
  const MarkupElement* parentOf(const MarkupElement& element) const;

  std::vector<const MarkupElement*> childrenOf(const MarkupElement& element) const;

  MarkupPlace placeAt(std::size_t offset) const;

  // What is between the element's tags.
  std::string_view contentOf(const MarkupElement& element) const;

 private:
  friend class MarkupReader;
  const MarkupElement* elementBefore(std::size_t offset) const;
  const MarkupElement* innermostAt(std::size_t offset) const;
  std::optional<MarkupPlace> placeInStartTag(std::size_t offset) const;
  std::optional<MarkupPlace> placeInEndTag(std::size_t offset) const;

  std::string text_;
  std::vector<MarkupElement> elements_;
  std::vector<Range> opaque_;                           // Comments and the like.
  std::vector<std::pair<Range, std::size_t>> endTags_;  // With their elements, if any.
};

// The text with the references of XML resolved, as far as they are right.
std::string resolveReferences(std::string_view text);

}  // namespace driver_feature::editor

#endif  // HOST_EDITOR_MARKUP_H_
