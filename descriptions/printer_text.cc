#include "descriptions/printer_text.h"

#include <array>
#include <charconv>
#include <cmath>

namespace driver_feature {

namespace {

bool isPrintable(char character) {
  return character >= ' ' && character <= '~';
}

std::string octal(char character) {
  const auto byte = static_cast<unsigned char>(character);
  std::string text = "\\";
  for (int shift = 6; shift >= 0; shift -= 3) {
    text += static_cast<char>('0' + ((byte >> shift) & 7));
  }
  return text;
}

}  // namespace

std::string pjlString(std::string_view text) {
  std::string quoted = "\"";
  for (const char character : text) {
    if (character == '"') {
      quoted += '\'';
    } else {
      quoted += isPrintable(character) ? character : '?';
    }
  }
  return quoted + "\"";
}

std::string postScriptString(std::string_view text) {
  std::string quoted = "(";
  for (const char character : text) {
    if (!isPrintable(character)) {
      quoted += octal(character);
      continue;
    }
    if (character == '(' || character == ')' || character == '\\') quoted += '\\';
    quoted += character;
  }
  return quoted + ")";
}

std::string pjlSet(std::string_view variable, std::string_view value) {
  return "@PJL SET " + std::string(variable) + " = " + std::string(value) + "\r\n";
}

std::string decimalText(float number) {
  std::array<char, 64> buffer{};
  const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number,
                                    std::chars_format::fixed, 2);
  return {buffer.data(), result.ptr};
}

int pointsOf(float millimetres) {
  return static_cast<int>(std::lround(static_cast<double>(millimetres) * 72 / 25.4));
}

}  // namespace driver_feature
