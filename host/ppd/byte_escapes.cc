#include "host/ppd/byte_escapes.h"

#include <algorithm>

#include "host/base/text.h"

namespace driver_feature::ppd {

namespace {

unsigned byteOf(char byte) {
  return static_cast<unsigned char>(byte);
}

void appendEscape(unsigned byte, std::string& text) {
  if (byte == 0) return;
  text += '\xEF';
  text += static_cast<char>(0x9C + (byte >> 6));
  text += static_cast<char>(0x80 + (byte & 0x3F));
}

// Of three bytes that spell a character: U+F700 to U+F7FF, U+FFFE or U+FFFF.
bool isReserved(std::string_view character) {
  if (character.size() != 3 || byteOf(character[0]) != 0xEF) return false;
  const unsigned second = byteOf(character[1]);
  return (second >= 0x9C && second <= 0x9F) || (second == 0xBF && byteOf(character[2]) >= 0xBE);
}

// Whether XML holds the byte as a character of its own.
bool isPlain(char character) {
  const unsigned byte = byteOf(character);
  return (byte >= 0x20 && byte < 0x80) || byte == '\t' || byte == '\n' || byte == '\r';
}

bool isHeldByXml(std::string_view character) {
  return character.size() > 1 ? !isReserved(character) : isPlain(character.front());
}

}  // namespace

std::string escapeBytes(std::string_view bytes) {
  // Most texts have nothing to escape.
  if (std::all_of(bytes.begin(), bytes.end(), isPlain)) return std::string(bytes);
  std::string text;
  text.reserve(bytes.size());
  for (const std::string_view character : host::splitCharacters(bytes)) {
    if (isHeldByXml(character)) {
      text += character;
      continue;
    }
    for (const char byte : character) appendEscape(byteOf(byte), text);
  }
  return text;
}

}  // namespace driver_feature::ppd
