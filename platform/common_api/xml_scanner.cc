#include "xml_scanner.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <initializer_list>
#include <string_view>
#include <utility>

#include "xml_characters.h"

namespace driver_feature {

namespace {

constexpr std::size_t kMostAttributes = 64;
constexpr std::size_t kLongestName = 1000;

// Each operation moves over one construct and returns whether it was there. The
// text ends with a NUL character, which no construct holds, so that only the
// comparison of several bytes asks how many are left.
class Scanner {
 public:
  Scanner(char* text, std::size_t size, Names names, ElementStore& elements)
      : next_(text), end_(text + size), names_(names), elements_(elements) {}

  Element* scanDocument() {
    if (startsWith("<?xml") && isOfClass(next_[5], kBlank) && !scanDeclaration()) return nullptr;
    if (!scanMiscellany() || *next_ != '<') return nullptr;
    Element* root = nullptr;
    if (!scanElements(root) || !scanMiscellany()) return nullptr;
    return next_ == end_ ? root : nullptr;
  }

 private:
  struct OpenElement {
    Element* element;
    Element* lastChild;
    std::string_view name;
  };

  bool startsWith(std::string_view wanted) const {
    return static_cast<std::size_t>(end_ - next_) >= wanted.size() &&
           std::memcmp(next_, wanted.data(), wanted.size()) == 0;
  }

  bool take(std::string_view wanted) {
    if (!startsWith(wanted)) return false;
    next_ += wanted.size();
    return true;
  }

  bool take(char wanted) {
    if (*next_ != wanted) return false;
    ++next_;
    return true;
  }

  // Over bytes of these classes. The place is a variable of its own meanwhile:
  // a character that is read might be a byte of next_ to the compiler.
  void skip(unsigned classes) {
    char* text = next_;
    while (isOfClass(*text, classes)) ++text;
    next_ = text;
  }

  // Whether there was one at least.
  bool skipBlanks() {
    char* text = next_;
    for (; isOfClass(*text, kBlank); ++text) {
      if (*text == '\n') ++line_;
    }
    return text != std::exchange(next_, text);
  }

  bool scanDeclaration() {
    next_ += 5;
    if (!scanPseudoAttribute("version") || !takeQuoted({"1.0"})) return false;
    if (scanPseudoAttribute("encoding") && !takeQuoted({"UTF-8", "utf-8"})) return false;
    if (scanPseudoAttribute("standalone") && !takeQuoted({"yes", "no"})) return false;
    skipBlanks();
    return take("?>");
  }

  // A name with blanks before it, and the sign after it.
  bool scanPseudoAttribute(std::string_view name) {
    char* start = next_;
    const int line = line_;
    if (skipBlanks() && take(name)) {
      skipBlanks();
      if (take('=')) {
        skipBlanks();
        return true;
      }
    }
    next_ = start;
    line_ = line;
    return false;
  }

  bool takeQuoted(std::initializer_list<std::string_view> values) {
    const char quote = *next_;
    if (quote != '"' && quote != '\'') return false;
    for (const std::string_view value : values) {
      char* start = next_++;
      if (take(value) && take(quote)) return true;
      next_ = start;
    }
    return false;
  }

  // Blanks, comments and processing instructions.
  bool scanMiscellany() {
    for (;;) {
      skipBlanks();
      if (startsWith("<!--")) {
        if (!scanComment()) return false;
      } else if (startsWith("<?")) {
        if (!scanInstruction()) return false;
      } else {
        return true;
      }
    }
  }

  bool scanComment() {
    next_ += 4;
    return moveTo("--") && take("-->");
  }

  bool scanInstruction() {
    next_ += 2;
    std::string_view target;
    if (!scanName(target)) return false;
    // Reserved, whatever the case of its letters.
    if (target.size() == 3 && (target[0] | 0x20) == 'x' && (target[1] | 0x20) == 'm' &&
        (target[2] | 0x20) == 'l') {
      return false;
    }
    if (take("?>")) return true;
    return skipBlanks() && moveTo("?>") && take("?>");
  }

  bool scanCharacterData() {
    next_ += std::string_view("<![CDATA[").size();
    return moveTo("]]>") && take("]]>");
  }

  // Over characters, up to a text.
  bool moveTo(std::string_view wanted) {
    while (*next_ != wanted.front() || !startsWith(wanted)) {
      if (!scanCharacter()) return false;
    }
    return true;
  }

  // Any character that XML can hold.
  bool scanCharacter() {
    if (isOfClass(*next_, kAscii)) {
      if (*next_ == '\n') ++line_;
      ++next_;
      return true;
    }
    const std::size_t length = lengthOfCharacter(next_);
    next_ += length;
    return length > 0;
  }

  bool scanReference(unsigned& character) {
    const std::size_t length = readReference(next_, character);
    next_ += length;
    return length > 0;
  }

  bool scanName(std::string_view& name) {
    const char* start = next_;
    if (names_ == Names::kPlain) {
      if (!isOfClass(*next_, kNameStart)) return false;
      skip(kNamePart);
    } else {
      skip(kNameByte);
    }
    name = {start, static_cast<std::size_t>(next_ - start)};
    return name.size() <= kLongestName || names_ == Names::kAny;
  }

  // The root and all that it holds.
  bool scanElements(Element*& root) {
    if (!scanStartTag()) return false;
    root = &elements_[0];
    while (depth_ > 0) {
      if (!scanText()) return false;
      switch (next_[1]) {
        case '/':
          if (!scanEndTag()) return false;
          break;
        case '!':
          if (!(startsWith("<!--") ? scanComment()
                                   : startsWith("<![CDATA[") && scanCharacterData())) {
            return false;
          }
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
    Element& element = elements_.add();
    element.tag = next_;
    element.line = line_;
    element.escaped = depth_ > 0 && open_[depth_ - 1].element->escaped;
    std::string_view name;
    if (!scanName(name) || !scanAttributes(element)) return false;
    append(element);
    if (take("/>")) return true;
    if (!take('>')) return false;
    open_[depth_++] = {&element, nullptr, name};
    return true;
  }

  void append(Element& element) {
    if (depth_ == 0) return;
    OpenElement& parent = open_[depth_ - 1];
    (parent.lastChild != nullptr ? parent.lastChild->nextSibling : parent.element->firstChild) =
        &element;
    parent.lastChild = &element;
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
      if (name == "ByteEscapes") element.escaped = std::string_view(value) == "yes";
    }
    return true;
  }

  // Whether the present tag may have it: a name occurs once.
  bool noteAttribute(std::string_view name) {
    if (names_ == Names::kAny) return true;
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
    char* text = next_;
    while (isOfClass(*text, kValuePart)) *end++ = *text++;
    next_ = text;
    return end;
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

  char* next_;
  const char* end_;
  Names names_;
  ElementStore& elements_;
  int line_ = 1;
  std::array<OpenElement, kHighestDepth> open_;
  std::size_t depth_ = 0;
  std::array<std::string_view, kMostAttributes> attributes_;  // Names, of the present tag.
  std::size_t attributeCount_ = 0;
};

}  // namespace

Element* scanPlainText(char* text, std::size_t size, Names names, ElementStore& elements) {
  return Scanner(text, size, names, elements).scanDocument();
}

}  // namespace driver_feature
