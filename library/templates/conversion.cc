#include "templates/conversion.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <initializer_list>
#include <utility>

namespace driver_feature {

namespace {

// Takes a number off the front of `text`; nothing when it is too large. No
// digits count as 0.
std::optional<int> takeFieldSize(std::string_view& text) {
  int size = 0;
  while (!text.empty() && text.front() >= '0' && text.front() <= '9') {
    size = size * 10 + (text.front() - '0');
    if (size > kHighestFieldSize) return std::nullopt;
    text.remove_prefix(1);
  }
  return size;
}

bool takeFlag(std::string_view& text, Conversion& conversion) {
  constexpr std::pair<char, bool Conversion::*> kFlags[] = {
      {'-', &Conversion::leftAligned}, {'+', &Conversion::plusSign},
      {' ', &Conversion::blankSign},   {'#', &Conversion::alternateForm},
      {'0', &Conversion::zeroPadded},
  };
  for (const auto& [letter, flag] : kFlags) {
    if (!text.starts_with(letter)) continue;
    conversion.*flag = true;
    text.remove_prefix(1);
    return true;
  }
  return false;
}

// "h" and "l" may be doubled.
std::string_view takeLength(std::string_view& text) {
  constexpr std::string_view kLetters = "hljztL";
  if (text.empty() || kLetters.find(text.front()) == kLetters.npos) return {};
  const std::size_t size = text.starts_with("hh") || text.starts_with("ll") ? 2 : 1;
  const std::string_view taken = text.substr(0, size);
  text.remove_prefix(size);
  return taken;
}

bool isOneOf(std::string_view length, std::initializer_list<std::string_view> lengths) {
  return std::find(lengths.begin(), lengths.end(), length) != lengths.end();
}

// A number in pieces: zeros go between the sign or prefix and the digits.
struct Number {
  std::string prefix;
  std::string digits;
};

std::string pad(const Conversion& conversion, const Number& number, bool withZeros) {
  const std::size_t size = number.prefix.size() + number.digits.size();
  const auto width = static_cast<std::size_t>(conversion.width);
  const std::size_t missing = width > size ? width - size : 0;
  if (conversion.leftAligned) return number.prefix + number.digits + std::string(missing, ' ');
  if (withZeros) return number.prefix + std::string(missing, '0') + number.digits;
  return std::string(missing, ' ') + number.prefix + number.digits;
}

std::string signFor(const Conversion& conversion, bool negative) {
  if (negative) return "-";
  if (conversion.plusSign) return "+";
  return conversion.blankSign ? " " : "";
}

void toUpper(std::string& text) {
  for (char& c : text) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  }
}

std::string digitsOf(unsigned long long magnitude, int base) {
  std::array<char, 32> buffer;
  const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude, base);
  return {buffer.data(), result.ptr};
}

// The precision of an integer is its least number of digits; with a precision
// of 0 the value 0 has none.
void applyLeastDigits(const Conversion& conversion, bool isZero, std::string& digits) {
  if (!conversion.precision) return;
  const auto least = static_cast<std::size_t>(*conversion.precision);
  if (least == 0 && isZero) digits.clear();
  if (digits.size() < least) digits.insert(0, least - digits.size(), '0');
}

Number signedNumber(const Conversion& conversion, int value) {
  long long narrowed = value;
  if (conversion.length == "h") narrowed = static_cast<short>(value);
  if (conversion.length == "hh") narrowed = static_cast<int>(static_cast<signed char>(value));
  const bool negative = narrowed < 0;
  const auto magnitude = static_cast<unsigned long long>(negative ? -narrowed : narrowed);
  Number number{signFor(conversion, negative), digitsOf(magnitude, 10)};
  applyLeastDigits(conversion, magnitude == 0, number.digits);
  return number;
}

Number unsignedNumber(const Conversion& conversion, int value) {
  auto narrowed = static_cast<unsigned>(value);
  if (conversion.length == "h") narrowed = static_cast<unsigned short>(narrowed);
  if (conversion.length == "hh") narrowed = static_cast<unsigned char>(narrowed);
  const char letter = conversion.letter;
  const int base = letter == 'u' ? 10 : (letter == 'o' ? 8 : 16);
  Number number{"", digitsOf(narrowed, base)};
  applyLeastDigits(conversion, narrowed == 0, number.digits);
  if (conversion.alternateForm && base == 8 && !number.digits.starts_with('0')) {
    number.digits.insert(0, 1, '0');
  }
  if (conversion.alternateForm && base == 16 && narrowed != 0) number.prefix = "0x";
  if (letter == 'X') {
    toUpper(number.prefix);
    toUpper(number.digits);
  }
  return number;
}

std::string floatDigits(double magnitude, std::chars_format format, std::optional<int> precision) {
  // The longest double has 309 digits before the point. Memory is asked for only
  // where more digits than usual are to follow it.
  constexpr std::size_t kUsual = 100;
  constexpr std::size_t kWithoutFraction = 400;
  std::array<char, kWithoutFraction + kUsual> usual;
  std::string large;
  char* begin = usual.data();
  char* end = begin + usual.size();
  const auto wanted = static_cast<std::size_t>(precision.value_or(0));
  if (wanted > kUsual) {
    large.resize(kWithoutFraction + wanted);
    begin = large.data();
    end = begin + large.size();
  }
  const auto result = precision ? std::to_chars(begin, end, magnitude, format, *precision)
                                : std::to_chars(begin, end, magnitude, format);
  return {begin, result.ptr};
}

// Puts a point after the digits of a number that has none.
void addPoint(std::string& digits, std::string_view exponentLetters) {
  if (digits.find('.') != digits.npos) return;
  digits.insert(std::min(digits.find_first_of(exponentLetters), digits.size()), 1, '.');
}

// The general form with "#": its trailing zeros stay.
std::string generalWithZeros(double magnitude, int precision) {
  const int significant = std::max(precision, 1);
  const std::string scientific =
      floatDigits(magnitude, std::chars_format::scientific, significant - 1);
  const int exponent = std::stoi(scientific.substr(scientific.find('e') + 1));
  const bool fixed = exponent >= -4 && exponent < significant;
  std::string digits =
      fixed ? floatDigits(magnitude, std::chars_format::fixed, significant - 1 - exponent)
            : scientific;
  addPoint(digits, "e");
  return digits;
}

Number finiteNumber(const Conversion& conversion, char form, double magnitude) {
  if (form == 'a') {
    Number number{"0x", floatDigits(magnitude, std::chars_format::hex, conversion.precision)};
    if (conversion.alternateForm) addPoint(number.digits, "p");
    return number;
  }
  const int precision = conversion.precision.value_or(6);
  if (form == 'g') {
    if (conversion.alternateForm) return {"", generalWithZeros(magnitude, precision)};
    return {"", floatDigits(magnitude, std::chars_format::general, precision)};
  }
  const auto format = form == 'f' ? std::chars_format::fixed : std::chars_format::scientific;
  Number number{"", floatDigits(magnitude, format, precision)};
  if (conversion.alternateForm) addPoint(number.digits, "e");
  return number;
}

}  // namespace

std::optional<Conversion> takeConversion(std::string_view& text) {
  Conversion conversion;
  while (takeFlag(text, conversion)) {
  }
  const auto width = takeFieldSize(text);
  if (!width) return std::nullopt;
  conversion.width = *width;
  if (text.starts_with('.')) {
    text.remove_prefix(1);
    conversion.precision = takeFieldSize(text);
    if (!conversion.precision) return std::nullopt;
  }
  conversion.length = takeLength(text);
  if (text.empty()) return std::nullopt;
  conversion.letter = text.front();
  text.remove_prefix(1);
  return conversion;
}

std::optional<std::string> convert(const Conversion& conversion, std::string_view value) {
  if (conversion.letter != 's' || !conversion.length.empty()) return std::nullopt;
  if (conversion.precision)
    value = value.substr(0, static_cast<std::size_t>(*conversion.precision));
  return pad(conversion, {"", std::string(value)}, false);
}

std::optional<std::string> convert(const Conversion& conversion, int value) {
  if (conversion.letter == 'c') {
    if (!conversion.length.empty()) return std::nullopt;
    return pad(conversion, {"", std::string(1, static_cast<char>(value))}, false);
  }
  if (std::string_view("diuxXo").find(conversion.letter) == std::string_view::npos) {
    return std::nullopt;
  }
  if (conversion.length == "L") return std::nullopt;
  const bool isSigned = conversion.letter == 'd' || conversion.letter == 'i';
  const Number number =
      isSigned ? signedNumber(conversion, value) : unsignedNumber(conversion, value);
  return pad(conversion, number, conversion.zeroPadded && !conversion.precision);
}

std::optional<std::string> convert(const Conversion& conversion, double value) {
  if (std::string_view("fFeEgGaA").find(conversion.letter) == std::string_view::npos) {
    return std::nullopt;
  }
  if (!isOneOf(conversion.length, {"", "l", "L"})) return std::nullopt;
  const bool upper = std::string_view("FEGA").find(conversion.letter) != std::string_view::npos;
  const char form = upper ? static_cast<char>(conversion.letter - 'A' + 'a') : conversion.letter;
  const bool finite = std::isfinite(value);
  const double magnitude = std::fabs(value);
  Number number = finite ? finiteNumber(conversion, form, magnitude)
                         : Number{"", std::isnan(value) ? "nan" : "inf"};
  if (upper) {
    toUpper(number.prefix);
    toUpper(number.digits);
  }
  number.prefix.insert(0, signFor(conversion, std::signbit(value)));
  return pad(conversion, number, conversion.zeroPadded && finite);
}

}  // namespace driver_feature
