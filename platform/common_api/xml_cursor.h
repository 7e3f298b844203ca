// Moves over the constructs of an XML text other than elements.
#ifndef PLATFORM_COMMON_API_XML_CURSOR_H_
#define PLATFORM_COMMON_API_XML_CURSOR_H_

#include <cstddef>
#include <cstring>
#include <initializer_list>
#include <string_view>
#include <utility>

#include "xml_characters.h"

namespace driver_feature {

// Which names a document may have.
enum class Names : unsigned char {
  kPlain,  // ASCII letters, digits, "_", "-" and "."; neither prefixes nor namespaces.
  kAny,    // All that another reader has accepted and checked before.
};

// Each operation moves over one construct and returns whether it was there. The
// text ends with a NUL character, which no construct holds, so that only the
// comparison of several bytes asks how many are left.
class XMLCursor {
 public:
  XMLCursor(char* text, std::size_t size, Names names)
      : next_(text), end_(text + size), names_(names) {}

  bool isAtEnd() const { return next_ == end_; }
  int line() const { return line_; }

  // The XML declaration of a plain document, if there is one.
  bool scanDeclaration();

  // Blanks, comments and processing instructions.
  bool scanMiscellany();

  bool scanComment();
  bool scanInstruction();
  bool scanCharacterData();

 protected:
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

  // Over bytes of these classes. A local variable holds the place meanwhile: to
  // the compiler, a character that is read might be a byte of next_.
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

  Names names() const { return names_; }

  bool scanName(std::string_view& name) {
    const char* start = next_;
    if (names_ == Names::kPlain) {
      if (!isOfClass(*next_, kNameStart)) return false;
      skip(kNamePart);
    } else {
      skip(kNameByte);
    }
    constexpr std::size_t kLongestName = 1000;
    name = {start, static_cast<std::size_t>(next_ - start)};
    return name.size() <= kLongestName || names_ == Names::kAny;
  }

  char* next_;

 private:
  bool scanPseudoAttribute(std::string_view name);
  bool takeQuoted(std::initializer_list<std::string_view> values);
  bool moveTo(std::string_view wanted);

  const char* end_;
  Names names_;
  int line_ = 1;
};

}  // namespace driver_feature

#endif  // PLATFORM_COMMON_API_XML_CURSOR_H_
