// Feeds arbitrary command templates and values to the formatter of commands,
// and compares the result with the C library's own for every template that may
// be handed to it.
//
// The input is one byte for the kind of value, the template up to a NUL, and
// the value.

#include <cctype>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

#include "output/command_template.h"

namespace driver_feature {
namespace {

// What a template of one conversion consists of, read independently of the
// library: by the grammar of printf.
struct Directive {
  bool found = false;
  std::string length;
  char letter = 0;
};

bool isFlag(char c) {
  return c != '\0' && std::strchr("-+ #0", c) != nullptr;
}

// False when the C library must not see the template: with no conversion or
// several, with another than the letters given, or with a field of more than
// four digits.
bool legal(const std::string& text, std::string_view letters, Directive& directive) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '%') continue;
    if (text[++i] == '%') continue;
    if (directive.found) return false;
    while (isFlag(text[i])) ++i;
    for (int part = 0; part < 2; ++part) {
      std::size_t digits = 0;
      while (std::isdigit(static_cast<unsigned char>(text[i])) != 0) ++i, ++digits;
      if (digits > 4) return false;
      if (part == 0 && text[i] == '.') ++i;
    }
    while (text[i] != '\0' && std::strchr("hl", text[i]) != nullptr) directive.length += text[i++];
    if (text[i] == '\0' || letters.find(text[i]) == std::string_view::npos) return false;
    directive.letter = text[i];
    directive.found = true;
  }
  return directive.found;
}

template <class... Value>
std::string printed(const std::string& commandTemplate, Value... value) {
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
#pragma GCC diagnostic ignored "-Wformat-security"
  const int length = std::snprintf(nullptr, 0, commandTemplate.c_str(), value...);
  if (length < 0) std::abort();
  std::string text(static_cast<std::size_t>(length) + 1, '\0');
  std::snprintf(text.data(), text.size(), commandTemplate.c_str(), value...);
#pragma GCC diagnostic pop
  text.pop_back();
  return text;
}

void expectSame(bool formatted, const std::string& got, const std::string& expected) {
  if (formatted && got == expected) return;
  std::fprintf(stderr, "got \"%s\", expected \"%s\"\n", got.c_str(), expected.c_str());
  std::abort();
}

// A width or precision above 4096 is refused on purpose.
bool hasLargeField(const std::string& text) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (std::isdigit(static_cast<unsigned char>(text[i])) == 0) continue;
    const long number = std::strtol(text.c_str() + i, nullptr, 10);
    if (number > 4096) return true;
    while (i < text.size() && std::isdigit(static_cast<unsigned char>(text[i])) != 0) ++i;
  }
  return false;
}

void tryText(const std::string& commandTemplate, const std::string& value) {
  std::string output = "untouched";
  const bool formatted = formatCommand(commandTemplate, std::string_view(value), output);
  if (!formatted && output != "untouched") std::abort();
  Directive directive;
  if (!legal(commandTemplate, "s", directive) || hasLargeField(commandTemplate)) return;
  // The C library reads an "l" as wide characters and ends at a NUL.
  if (!directive.length.empty() || value.find('\0') != std::string::npos) return;
  // Flags that have no meaning for texts are undefined in C.
  if (commandTemplate.find_first_of("#0+ ") != std::string::npos) return;
  expectSame(formatted, output, printed(commandTemplate, value.c_str()));
}

void tryInteger(const std::string& commandTemplate, int value) {
  std::string output = "untouched";
  const bool formatted = formatCommand(commandTemplate, value, output);
  if (!formatted && output != "untouched") std::abort();
  Directive directive;
  if (!legal(commandTemplate, "diuxXo", directive) || hasLargeField(commandTemplate)) return;
  if (!directive.length.empty() && directive.length != "h" && directive.length != "hh") return;
  expectSame(formatted, output, printed(commandTemplate, value));
}

void tryFloat(const std::string& commandTemplate, double value) {
  std::string output = "untouched";
  const bool formatted = formatCommand(commandTemplate, value, output);
  if (!formatted && output != "untouched") std::abort();
  Directive directive;
  if (!legal(commandTemplate, "fFeEgGaA", directive) || hasLargeField(commandTemplate)) return;
  if (!directive.length.empty() && directive.length != "l") return;
  // glibc loses digits of "%#g" where rounding adds one to the exponent.
  if (commandTemplate.find('#') != std::string::npos) return;
  expectSame(formatted, output, printed(commandTemplate, value));
}

}  // namespace
}  // namespace driver_feature

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 2) return 0;
  const std::string input(reinterpret_cast<const char*>(data) + 1, size - 1);
  const std::size_t end = input.find('\0');
  const std::string commandTemplate = input.substr(0, end);
  const std::string value = end == std::string::npos ? "" : input.substr(end + 1);
  char bytes[sizeof(double)] = {};
  std::memcpy(bytes, value.data(), value.size() < sizeof(bytes) ? value.size() : sizeof(bytes));
  switch (data[0] % 3) {
    case 0:
      driver_feature::tryText(commandTemplate, value);
      break;
    case 1: {
      int number = 0;
      std::memcpy(&number, bytes, sizeof(number));
      driver_feature::tryInteger(commandTemplate, number);
      break;
    }
    default: {
      // Values are floats that were widened.
      float number = 0;
      std::memcpy(&number, bytes, sizeof(number));
      driver_feature::tryFloat(commandTemplate, static_cast<double>(number));
    }
  }
  return 0;
}
