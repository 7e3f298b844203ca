#include "model/text_conversion.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <limits>
#include <string_view>
#include <system_error>

#include "Text.h"

namespace driver_feature {

namespace {

constexpr std::string_view kBlanks = " \t\n\v\f\r";
constexpr std::string_view kDigits = "0123456789";
constexpr std::string_view kHexDigits = "0123456789abcdefABCDEF";

// Takes leading blanks and a sign off `text`; true when the sign is a minus.
bool takeSign(std::string_view& text) {
  text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
  if (text.empty() || (text.front() != '-' && text.front() != '+')) return false;
  const bool negative = text.front() == '-';
  text.remove_prefix(1);
  return negative;
}

// Whether `text` is "0x" and a hexadecimal digit, perhaps after a point.
bool isHexadecimal(std::string_view text) {
  if (!text.starts_with("0x") && !text.starts_with("0X")) return false;
  text.remove_prefix(2);
  if (text.starts_with('.')) text.remove_prefix(1);
  return text.find_first_of(kHexDigits) == 0;
}

// Whether a number that a double cannot hold is too large, not too small: the
// place of its first digit that counts, moved by the exponent, decides.
bool isTooLarge(std::string_view number, bool hexadecimal) {
  const std::string_view digits = hexadecimal ? kHexDigits : kDigits;
  const std::size_t mantissaEnd =
      std::min(number.find_first_of(hexadecimal ? std::string_view("pP") : std::string_view("eE")),
               number.size());
  const std::string_view mantissa = number.substr(0, mantissaEnd);
  const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
  const std::size_t first = mantissa.find_first_of(digits.substr(1));
  if (first == mantissa.npos) return false;
  long long place = static_cast<long long>(point) - static_cast<long long>(first);
  if (hexadecimal) place *= 4;

  std::string_view exponentText = number.substr(std::min(mantissaEnd + 1, number.size()));
  const bool negative = takeSign(exponentText);
  long long exponent = 0;
  const char* end = exponentText.data() + exponentText.size();
  if (std::from_chars(exponentText.data(), end, exponent).ec == std::errc::result_out_of_range) {
    return !negative;
  }
  return place > (negative ? exponent : -exponent);
}

}  // namespace

int toInt(const std::string& text) {
  std::string_view rest = text;
  const bool negative = takeSign(rest);
  const std::size_t length = std::min(rest.find_first_not_of(kDigits), rest.size());
  using Limits = std::numeric_limits<int>;
  long long magnitude = 0;
  const auto result = std::from_chars(rest.data(), rest.data() + length, magnitude);
  const bool clamped = result.ec == std::errc::result_out_of_range;
  if (negative) {
    return clamped || -magnitude < Limits::min() ? Limits::min() : static_cast<int>(-magnitude);
  }
  return clamped || magnitude > Limits::max() ? Limits::max() : static_cast<int>(magnitude);
}

float toFloat(const std::string& text) {
  std::string_view rest = text;
  const bool negative = takeSign(rest);
  // The conversion takes a minus of its own; here the sign is gone already.
  if (rest.starts_with('-')) return 0;
  const bool hexadecimal = isHexadecimal(rest);
  if (hexadecimal) rest.remove_prefix(2);
  double value = 0;
  const auto format = hexadecimal ? std::chars_format::hex : std::chars_format::general;
  const auto result = std::from_chars(rest.data(), rest.data() + rest.size(), value, format);
  // Without a number the sign has no effect: "-" is plus zero.
  if (result.ec == std::errc::invalid_argument) return 0;
  if (result.ec == std::errc::result_out_of_range) {
    const auto length = static_cast<std::size_t>(result.ptr - rest.data());
    const bool large = isTooLarge(rest.substr(0, length), hexadecimal);
    value = large ? std::numeric_limits<double>::infinity() : 0;
  }
  return static_cast<float>(negative ? -value : value);
}

std::string toFixedText(double value) {
  // The longest double has 309 digits before the point.
  std::array<char, 400> buffer;
  const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                    std::chars_format::fixed, 6);
  return {buffer.data(), result.ptr};
}

std::string toDecimalText(int value) {
  std::array<char, 40> buffer;
  return itoa(value, buffer.data(), 10);
}

}  // namespace driver_feature
