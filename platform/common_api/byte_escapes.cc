#include "byte_escapes.h"

namespace driver_feature {

namespace {

// The byte that the three bytes at `text` mean; 0 if they are not an escape.
// U+F700 is EF 9C 80 in UTF-8.
unsigned escapedByte(std::string_view text) {
  if (text.size() < 3 || text[0] != '\xEF') return 0;
  const auto second = static_cast<unsigned char>(text[1]);
  const auto third = static_cast<unsigned char>(text[2]);
  if (second < 0x9C || second > 0x9F) return 0;
  return ((second - 0x9CU) << 6U) | (third & 0x3FU);
}

}  // namespace

std::string unescapeBytes(std::string_view text) {
  std::string bytes;
  bytes.reserve(text.size());
  while (!text.empty()) {
    const unsigned byte = escapedByte(text);
    bytes += byte != 0 ? static_cast<char>(byte) : text.front();
    text.remove_prefix(byte != 0 ? 3 : 1);
  }
  return bytes;
}

}  // namespace driver_feature
