#include "xml_scanner.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "xml_cursor.h"

namespace driver_feature {

namespace {

constexpr std::size_t kMostAttributes = 64;

// Elements and all that is in them.
class Scanner : private XMLCursor {
 public:
  Scanner(char* text, std::size_t size, Names names, Elements& elements)
      : XMLCursor(text, size, names), elements_(elements) {}

  Element* scanDocument() {
    if (!scanDeclaration() || !scanMiscellany() || *next_ != '<') return nullptr;
    if (!scanElements() || !scanMiscellany()) return nullptr;
    return isAtEnd() ? &elements_.front() : nullptr;
  }

 private:
  // Elements by their positions: their array grows.
  struct OpenElement {
    std::size_t element;
    std::size_t lastChild;  // The element itself while it has none.
    std::string_view name;
  };

  // The root and all that it holds.
  bool scanElements() {
    if (!scanStartTag()) return false;
    while (depth_ > 0) {
      if (!scanText()) return false;
      switch (next_[1]) {
        case '/':
          if (!scanEndTag()) return false;
          break;
        case '!':
          if (!scanComment() && !scanCharacterData()) return false;
          break;
        case '?':
          if (!scanInstruction()) return false;
          break;
        default:
          if (!scanStartTag()) return false;
      }
    }
    return true;
  }

  // The text in an element, up to the next "<".
  bool scanText() {
    for (;;) {
      skip(kContentPart);
      if (*next_ == '<') return true;
      if (*next_ == '&') {
        unsigned character = 0;
        if (!scanReference(character)) return false;
      } else if (startsWith("]]>") || !scanCharacter()) {
        return false;
      }
    }
  }

  bool scanStartTag() {
    if (depth_ == open_.size()) return false;
    ++next_;
    const std::size_t position = elements_.size();
    const bool isEscaped = depth_ > 0 && elements_[open_[depth_ - 1].element].isEscaped();
    Element& element = elements_.emplace_back(next_, line(), isEscaped);
    std::string_view name;
    if (!scanName(name) || !scanAttributes(element)) return false;
    append(position);
    if (take("/>")) return true;
    if (!take('>')) return false;
    open_[depth_++] = {position, position, name};
    return true;
  }

  // To the element that is open.
  void append(std::size_t position) {
    if (depth_ == 0) return;
    OpenElement& parent = open_[depth_ - 1];
    if (parent.lastChild == parent.element) {
      elements_[parent.element].setParent();
    } else {
      elements_[parent.lastChild].setNextSibling(elements_[position]);
    }
    parent.lastChild = position;
  }

  // The attributes, and the blanks after them.
  bool scanAttributes(Element& element) {
    attributeCount_ = 0;
    while (skipBlanks() && *next_ != '>' && *next_ != '/') {
      std::string_view name;
      if (!scanName(name) || !noteAttribute(name)) return false;
      skipBlanks();
      if (!take('=')) return false;
      skipBlanks();
      const char* value = next_ + 1;
      if (!scanValue()) return false;
      if (name == "ByteEscapes") element.setEscaped(std::string_view(value) == "yes");
    }
    return true;
  }

  // Whether the present tag may have it: a name occurs once.
  bool noteAttribute(std::string_view name) {
    if (names() == Names::kAny) return true;
    for (std::size_t i = 0; i < attributeCount_; ++i) {
      if (attributes_[i] == name) return false;
    }
    if (name == "xmlns" || attributeCount_ == attributes_.size()) return false;
    attributes_[attributeCount_++] = name;
    return true;
  }

  bool scanValue() {
    const char quote = *next_;
    if (quote != '"' && quote != '\'') return false;
    ++next_;
    skip(kValuePart);
    char* end = next_;
    while (*next_ != quote) {
      if (!resolve(end)) return false;
      end = moveValueParts(end);
    }
    *end = '\0';
    std::fill(end + 1, next_ + 1, ' ');
    ++next_;
    return true;
  }

  // Moves what means itself to `end`, the end of what has been resolved.
  char* moveValueParts(char* end) {
    const char* start = next_;
    skip(kValuePart);
    return std::copy<const char*>(start, next_, end);
  }

  // A reference, a blank, the other quote or a character beyond ASCII. What it
  // means is never longer than itself.
  bool resolve(char*& end) {
    const char* start = next_;
    if (*start == '&') {
      unsigned character = 0;
      if (!scanReference(character)) return false;
      end = writeCharacter(character, end);
      return true;
    }
    if (*start == '<' || !scanCharacter()) return false;
    if (!isOfClass(*start, kBlank)) {
      end = std::copy<const char*>(start, next_, end);
    } else if (*start != '\r' || *next_ != '\n') {  // The two are one line end.
      *end++ = ' ';
    }
    return true;
  }

  bool scanEndTag() {
    const OpenElement& last = open_[depth_ - 1];
    next_ += 2;
    if (!take(last.name)) return false;
    skipBlanks();
    --depth_;
    return take('>');
  }

  Elements& elements_;
  std::array<OpenElement, kHighestDepth> open_;
  std::size_t depth_ = 0;
  std::array<std::string_view, kMostAttributes> attributes_;  // Names, of the present tag.
  std::size_t attributeCount_ = 0;
};

}  // namespace

Element* scanPlainText(char* text, std::size_t size, Names names, Elements& elements) {
  elements.clear();
  elements.reserve(usualElements(size));  // Memory that none uses costs nothing.
  return Scanner(text, size, names, elements).scanDocument();
}

}  // namespace driver_feature
