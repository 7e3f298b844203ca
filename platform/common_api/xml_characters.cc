#include "xml_characters.h"

#include <string_view>

namespace driver_feature {

namespace {

constexpr unsigned kHighestCharacter = 0x10FFFF;

bool isCharacter(unsigned code) {
  if (code < 0x20) return code == '\t' || code == '\n' || code == '\r';
  if (code >= 0xD800 && code < 0xE000) return false;
  return code != 0xFFFE && code != 0xFFFF && code <= kHighestCharacter;
}

unsigned byteAt(const char* text) {
  return static_cast<unsigned char>(*text);
}

// The value of a digit, or a number above all bases.
unsigned digitOf(char c) {
  if (c >= '0' && c <= '9') return static_cast<unsigned>(c - '0');
  if (c >= 'a' && c <= 'f') return static_cast<unsigned>(c - 'a') + 10;
  if (c >= 'A' && c <= 'F') return static_cast<unsigned>(c - 'A') + 10;
  return ~0U;
}

// "&#65;" or "&#x41;".
std::size_t readCharacterReference(const char* text, unsigned& character) {
  const bool isHexadecimal = text[2] == 'x';
  const unsigned base = isHexadecimal ? 16 : 10;
  const char* digit = text + (isHexadecimal ? 3 : 2);
  unsigned code = digitOf(*digit);
  if (code >= base) return 0;
  for (unsigned next = 0; (next = digitOf(*++digit)) < base;) {
    code = code * base + next;
    if (code > kHighestCharacter) return 0;
  }
  if (*digit != ';' || !isCharacter(code)) return 0;
  character = code;
  return static_cast<std::size_t>(digit + 1 - text);
}

struct Entity {
  std::string_view reference;
  char character;
};

constexpr Entity kEntities[] = {
    {"&lt;", '<'}, {"&gt;", '>'}, {"&amp;", '&'}, {"&quot;", '"'}, {"&apos;", '\''},
};

bool beginsWith(const char* text, std::string_view wanted) {
  // Byte by byte: the text may end before it.
  for (const char c : wanted) {
    if (*text++ != c) return false;
  }
  return true;
}

}  // namespace

std::size_t lengthOfCharacter(const char* text) {
  const unsigned first = byteAt(text);
  if (first < 0xC2 || first > 0xF4) return 0;
  const std::size_t length = first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
  unsigned code = first & (0xFFU >> (length + 1));
  for (std::size_t i = 1; i < length; ++i) {
    if ((byteAt(text + i) & 0xC0U) != 0x80) return 0;
    code = code << 6U | (byteAt(text + i) & 0x3FU);
  }
  // Each character has one form only, the shortest.
  constexpr unsigned kLowest[] = {0, 0, 0x80, 0x800, 0x10000};
  return code >= kLowest[length] && isCharacter(code) ? length : 0;
}

std::size_t readReference(const char* text, unsigned& character) {
  if (text[1] == '#') return readCharacterReference(text, character);
  for (const Entity& entity : kEntities) {
    if (!beginsWith(text, entity.reference)) continue;
    character = static_cast<unsigned char>(entity.character);
    return entity.reference.size();
  }
  return 0;
}

char* writeCharacter(unsigned character, char* out) {
  const auto write = [&out](unsigned byte) { *out++ = static_cast<char>(byte); };
  const auto writeContinuation = [&](unsigned shift) {
    write(0x80U | (character >> shift & 0x3FU));
  };
  if (character < 0x80) {
    write(character);
    return out;
  }
  if (character < 0x800) {
    write(0xC0U | character >> 6U);
  } else if (character < 0x10000) {
    write(0xE0U | character >> 12U);
    writeContinuation(6);
  } else {
    write(0xF0U | character >> 18U);
    writeContinuation(12);
    writeContinuation(6);
  }
  writeContinuation(0);
  return out;
}

}  // namespace driver_feature
