#include "host/base/text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>

namespace driver_feature::host {

namespace {

struct CodePointRange {
  std::uint32_t first;
  std::uint32_t last;
};

constexpr std::array<CodePointRange, 5> kZeroWidth = {{
    {0x0300, 0x036F},  // Combining diacritical marks.
    {0x200B, 0x200F},
    {0x20D0, 0x20FF},
    {0xFE00, 0xFE0F},
    {0xFE20, 0xFE2F},
}};

constexpr std::array<CodePointRange, 10> kDoubleWidth = {{
    {0x1100, 0x115F},
    {0x2E80, 0x303E},
    {0x3041, 0xA4CF},
    {0xAC00, 0xD7A3},
    {0xF900, 0xFAFF},
    {0xFE30, 0xFE6F},
    {0xFF00, 0xFF60},
    {0xFFE0, 0xFFE6},
    {0x1F300, 0x1FAFF},
    {0x20000, 0x3FFFD},
}};

// Control characters, blanks, hyphens and joiners that show nothing, marks of
// direction, private characters, and those that are not characters.
constexpr std::array<CodePointRange, 17> kInvisible = {{
    {0x0080, 0x00A0},
    {0x00AD, 0x00AD},
    {0x034F, 0x034F},
    {0x061C, 0x061C},
    {0x115F, 0x1160},
    {0x17B4, 0x17B5},
    {0x180B, 0x180F},
    {0x2000, 0x200F},
    {0x2028, 0x202F},
    {0x205F, 0x206F},
    {0x3164, 0x3164},
    {0xE000, 0xF8FF},
    {0xFDD0, 0xFDEF},
    {0xFEFF, 0xFEFF},
    {0xFFA0, 0xFFA0},
    {0xFFF0, 0xFFFB},
    {0xE0000, 0x10FFFF},
}};

template <std::size_t kCount>
bool contains(const std::array<CodePointRange, kCount>& ranges, std::uint32_t codePoint) {
  return std::any_of(ranges.begin(), ranges.end(), [codePoint](const CodePointRange& range) {
    return range.first <= codePoint && codePoint <= range.last;
  });
}

// The number of bytes that a character with this first byte takes; 1 for a
// byte that does not begin one.
std::size_t lengthFrom(unsigned char first) {
  if (first >= 0xC2 && first <= 0xDF) return 2;
  if (first >= 0xE0 && first <= 0xEF) return 3;
  if (first >= 0xF0 && first <= 0xF4) return 4;
  return 1;
}

std::uint32_t decode(std::string_view bytes) {
  const auto first = static_cast<unsigned char>(bytes.front());
  if (bytes.size() == 1) return first;
  std::uint32_t codePoint = first & (0x7FU >> bytes.size());
  for (const char byte : bytes.substr(1)) {
    codePoint = (codePoint << 6U) | (static_cast<unsigned char>(byte) & 0x3FU);
  }
  return codePoint;
}

// True for a character in its shortest form that is not a surrogate.
bool isValid(std::string_view bytes) {
  constexpr std::array<std::uint32_t, 5> kLowest = {0, 0, 0x80, 0x800, 0x10000};
  const std::uint32_t codePoint = decode(bytes);
  const bool surrogate = codePoint >= 0xD800 && codePoint <= 0xDFFF;
  return codePoint >= kLowest[bytes.size()] && codePoint <= 0x10FFFF && !surrogate;
}

std::string_view firstCharacter(std::string_view text) {
  const std::size_t length = lengthFrom(static_cast<unsigned char>(text.front()));
  if (length == 1 || length > text.size()) return text.substr(0, 1);
  const std::string_view bytes = text.substr(0, length);
  const bool continued = std::all_of(bytes.begin() + 1, bytes.end(), [](char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
  });
  return continued && isValid(bytes) ? bytes : text.substr(0, 1);
}

// "U+" and at least four digits.
std::string codePointName(std::uint32_t codePoint) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string name;
  for (int count = 0; codePoint > 0 || count < 4; ++count, codePoint >>= 4U) {
    name.insert(name.begin(), kDigits[codePoint & 0xFU]);
  }
  return "U+" + name;
}

}  // namespace

std::vector<std::string_view> splitCharacters(std::string_view text) {
  std::vector<std::string_view> characters;
  while (!text.empty()) {
    characters.push_back(firstCharacter(text));
    text.remove_prefix(characters.back().size());
  }
  return characters;
}

std::size_t displayWidth(std::string_view text) {
  std::size_t width = 0;
  for (const std::string_view character : splitCharacters(text)) {
    const std::uint32_t codePoint = decode(character);
    if (contains(kZeroWidth, codePoint)) continue;
    width += contains(kDoubleWidth, codePoint) ? 2 : 1;
  }
  return width;
}

std::string printable(std::string_view text) {
  std::string shown;
  for (const char character : text) {
    const auto code = static_cast<unsigned char>(character);
    if (character == '\n') {
      shown += "\\n";
    } else if (character == '\t') {
      shown += "\\t";
    } else if (character == '\r') {
      shown += "\\r";
    } else if (code < 0x20 || code == 0x7F) {
      shown += escapedByte(character);
    } else {
      shown += character;
    }
  }
  return shown;
}

std::string spellOutInvisible(std::string_view text) {
  std::string shown;
  for (const std::string_view character : splitCharacters(text)) {
    const bool isSeen = character.size() == 1 || !contains(kInvisible, decode(character));
    shown += isSeen ? std::string(character) : codePointName(decode(character));
  }
  return shown;
}

std::string escapedByte(char byte) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  const auto code = static_cast<unsigned char>(byte);
  return {'\\', 'x', kDigits[code >> 4U], kDigits[code & 0xFU]};
}

std::string percentEncoded(char byte) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  const auto code = static_cast<unsigned char>(byte);
  return {'%', kDigits[code >> 4U], kDigits[code & 0xFU]};
}

std::string percentDecoded(std::string_view text, PlusSign plus) {
  std::string bytes;
  for (std::size_t at = 0; at < text.size(); ++at) {
    unsigned char byte = 0;
    const char* const digits = text.data() + at + 1;
    if (text[at] == '%' && at + 2 < text.size() &&
        std::from_chars(digits, digits + 2, byte, 16).ptr == digits + 2) {
      bytes += static_cast<char>(byte);
      at += 2;
    } else {
      bytes += text[at] == '+' && plus == PlusSign::kBlank ? ' ' : text[at];
    }
  }
  return bytes;
}

std::string counted(long count, const std::string& one) {
  return counted(count, one, one + "s");
}

std::string counted(long count, const std::string& one, const std::string& several) {
  return std::to_string(count) + " " + (count == 1 ? one : several);
}

std::string_view trimmed(std::string_view text, std::string_view blanks) {
  text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
  return text.substr(0, text.find_last_not_of(blanks) + 1);
}

std::string inQuotes(std::string_view text) {
  return "\"" + std::string(text) + "\"";
}

std::string toLower(std::string text) {
  for (char& character : text) character = toLower(character);
  return text;
}

char toLower(char character) {
  const bool isCapital = character >= 'A' && character <= 'Z';
  return isCapital ? static_cast<char>(character - 'A' + 'a') : character;
}

std::string join(const std::vector<std::string>& texts, const std::string& separator) {
  std::string joined;
  for (const std::string& text : texts) {
    if (&text != &texts.front()) joined += separator;
    joined += text;
  }
  return joined;
}

std::string listed(const std::vector<std::string>& names) {
  constexpr std::size_t kShown = 10;
  if (names.size() <= kShown) return join(names, ", ");
  return join({names.begin(), names.begin() + kShown}, ", ") + " and " +
         std::to_string(names.size() - kShown) + " more";
}

}  // namespace driver_feature::host
