#include "xml_text.h"

#include <algorithm>
#include <string_view>

namespace driver_feature {

namespace {

// The forms of a character of one to four bytes: the fixed bits of its first
// byte, and the lowest and highest character that may be written so.
struct Form {
  unsigned mask;
  unsigned lead;
  std::uint32_t lowest;
  std::uint32_t highest;
};
constexpr Form kForms[] = {{0x80, 0x00, 0, 0x7F},
                           {0xE0, 0xC0, 0x80, 0x7FF},
                           {0xF0, 0xE0, 0x800, 0xFFFF},
                           {0xF8, 0xF0, 0x10000, 0x10FFFF}};

unsigned byteAt(const std::string& text, std::size_t position) {
  return static_cast<unsigned char>(text[position]);
}

// Halves of a pair in UTF-16, which are not characters and not allowed in UTF-8.
bool isSurrogate(std::uint32_t character) {
  return character >= 0xD800 && character <= 0xDFFF;
}

// The character at `position`, which moves past it; nothing if there is no whole
// character in its shortest form.
std::optional<std::uint32_t> takeCharacter(const std::string& text, std::size_t& position) {
  const unsigned first = byteAt(text, position++);
  std::size_t more = 0;
  for (const Form& form : kForms) {
    if ((first & form.mask) != form.lead) {
      ++more;
      continue;
    }
    std::uint32_t character = first & ~form.mask;
    for (const std::size_t end = position + more; position < end; ++position) {
      // The NUL at the text's end is not such a byte either.
      if ((byteAt(text, position) & 0xC0U) != 0x80U) return {};
      character = character << 6 | (byteAt(text, position) & 0x3FU);
    }
    if (character < form.lowest || character > form.highest || isSurrogate(character)) return {};
    return character;
  }
  return {};
}

bool isUtf8(const std::string& text) {
  for (std::size_t position = 0; position < text.size();) {
    if (!takeCharacter(text, position)) return false;
  }
  return true;
}

std::string fromLatin1(const std::string& text) {
  std::string converted;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < 0x80) {
      converted += c;
    } else {
      converted += static_cast<char>(0xC0U | (byte >> 6));
      converted += static_cast<char>(0x80U | (byte & 0x3FU));
    }
  }
  return converted;
}

bool isForbidden(std::uint32_t character) {
  if (character < 0x20) return character != '\t' && character != '\n' && character != '\r';
  return character == 0xFFFE || character == 0xFFFF;
}

std::string toUtf8(const std::string& text) {
  return isUtf8(text) ? text : fromLatin1(text);
}

std::optional<std::uint32_t> findForbiddenCharacter(const std::string& utf8) {
  for (std::size_t position = 0; position < utf8.size();) {
    const auto character = takeCharacter(utf8, position);
    if (character && isForbidden(*character)) return character;
  }
  return {};
}

// Whether a value is written as it is, which nearly all are.
bool isPlain(const std::string& text) {
  return std::all_of(text.begin(), text.end(), [](char c) {
    return c >= ' ' && c < 0x7F && c != '<' && c != '>' && c != '&' && c != '"';
  });
}

// What a reader would take for markup, and the blanks that it would replace.
std::string_view referenceTo(char c) {
  switch (c) {
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    case '&':
      return "&amp;";
    case '"':
      return "&quot;";
    case '\t':
      return "&#9;";
    case '\n':
      return "&#10;";
    case '\r':
      return "&#13;";
    default:
      return {};
  }
}

void appendEscaped(const std::string& utf8, std::string& output) {
  for (const char c : utf8) {
    const std::string_view reference = referenceTo(c);
    if (reference.empty()) {
      output += c;
    } else {
      output += reference;
    }
  }
}

}  // namespace

std::optional<std::uint32_t> appendValue(const std::string& text, std::string& output) {
  if (isPlain(text)) {
    output += text;
    return {};
  }
  const std::string utf8 = toUtf8(text);
  if (const auto forbidden = findForbiddenCharacter(utf8)) return forbidden;
  appendEscaped(utf8, output);
  return {};
}

}  // namespace driver_feature
