#include "host/description/value_source.h"

#include <charconv>
#include <string_view>

#include "host/base/text.h"

namespace driver_feature::host {

namespace {

// One character of a value as it is written.
struct Piece {
  std::string_view source;
  std::size_t bytes = 0;  // Of the value.
};

bool isByteEscape(unsigned long codePoint) {
  return codePoint > 0xF700 && codePoint <= 0xF7FF;
}

// Of a character in UTF-8.
std::size_t sizeOf(unsigned long codePoint) {
  if (codePoint < 0x80) return 1;
  if (codePoint < 0x800) return 2;
  return codePoint < 0x10000 ? 3 : 4;
}

// A reference between "&" and ";".
std::size_t sizeOfReference(std::string_view name, bool escapes) {
  if (!name.starts_with('#')) return 1;  // The five names mean ASCII characters.
  name.remove_prefix(1);
  const bool isHex = name.starts_with('x');
  if (isHex) name.remove_prefix(1);
  unsigned long codePoint = 0;
  std::from_chars(name.data(), name.data() + name.size(), codePoint, isHex ? 16 : 10);
  return escapes && isByteEscape(codePoint) ? 1 : sizeOf(codePoint);
}

// U+F701 to U+F7FF are EF 9C 81 to EF 9F BF.
bool isByteEscape(std::string_view character) {
  return character.size() == 3 && character.starts_with('\xEF') && character[1] >= '\x9C' &&
         character[1] <= '\x9F' && character != "\xEF\x9C\x80";
}

Piece takePiece(std::string_view& source, bool escapes) {
  Piece piece;
  const std::size_t end = source.starts_with('&') ? source.find(';') : std::string_view::npos;
  if (end != std::string_view::npos) {
    piece = {source.substr(0, end + 1), sizeOfReference(source.substr(1, end - 1), escapes)};
  } else if (source.starts_with("\r\n")) {
    piece = {source.substr(0, 2), 1};  // One blank.
  } else {
    piece.source = splitCharacters(source.substr(0, 4)).front();
    piece.bytes = escapes && isByteEscape(piece.source) ? 1 : piece.source.size();
  }
  source.remove_prefix(piece.source.size());
  return piece;
}

std::size_t countBytes(std::string_view source, bool escapes) {
  std::size_t count = 0;
  while (!source.empty()) count += takePiece(source, escapes).bytes;
  return count;
}

Position after(Position position, std::string_view source) {
  for (const std::string_view character : splitCharacters(source)) {
    ++position.column;
    if (character == "\n") position = {position.line + 1, 1};
  }
  return position;
}

}  // namespace

Position placeIn(const Attribute& attribute, std::size_t offset) {
  std::string_view source = attribute.source;
  // The value shows whether byte escapes are resolved in it.
  const bool escapes = countBytes(source, false) != attribute.value.size();
  if (escapes && countBytes(source, true) != attribute.value.size()) return attribute.position;
  Position position = attribute.valuePosition;
  for (std::size_t passed = 0; !source.empty();) {
    const Piece piece = takePiece(source, escapes);
    passed += piece.bytes;
    if (passed > offset) return position;
    position = after(position, piece.source);
  }
  return position;
}

}  // namespace driver_feature::host
