#include "equivalence/custom_values.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <system_error>

namespace driver_feature::equivalence {

namespace {

constexpr int kLongestText = 24;

template <class Number>
Number numberOf(const std::string& text) {
  Number number{};
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

std::string randomFloat(float least, float greatest, Random& random) {
  const double low = std::ceil(static_cast<double>(least) * 4);
  const double high = std::floor(static_cast<double>(std::min(greatest, least + 4000)) * 4);
  if (!(low <= high)) return shortestText(least);
  const auto steps = static_cast<std::uint64_t>(high - low) + 1;
  return shortestText(static_cast<float>((low + static_cast<double>(random.below(steps))) / 4));
}

std::string randomInt(int least, int greatest, Random& random) {
  if (greatest <= least) return std::to_string(least);
  const auto span = static_cast<std::uint64_t>(static_cast<std::int64_t>(greatest) - least);
  const auto step =
      static_cast<std::int64_t>(random.below(std::min<std::uint64_t>(span, 9999) + 1));
  return std::to_string(least + step);
}

std::string randomText(int least, int greatest, std::string_view characters, Random& random) {
  const int shortest = std::clamp(least, 0, kLongestText);
  const int longest = std::clamp(greatest, shortest, kLongestText);
  const auto length =
      shortest + static_cast<int>(random.below(static_cast<std::uint64_t>(longest - shortest) + 1));
  std::string text;
  for (int i = 0; i < length; ++i) {
    text += characters[static_cast<std::size_t>(random.below(characters.size()))];
  }
  return text;
}

}  // namespace

std::string shortestText(float value) {
  std::array<char, 64> buffer;
  const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
  return {buffer.data(), written.ptr};
}

std::string customValueOf(const ppd_cparam_t& parameter) {
  switch (parameter.type) {
    case PPD_CUSTOM_INT:
      return std::to_string(parameter.current.custom_int);
    case PPD_CUSTOM_PASSCODE:
    case PPD_CUSTOM_PASSWORD:
    case PPD_CUSTOM_STRING:
      return parameter.current.custom_string != nullptr ? parameter.current.custom_string : "";
    default:
      return shortestText(parameter.current.custom_real);
  }
}

void storeCustomValue(ppd_cparam_t& parameter, const std::string& value) {
  switch (parameter.type) {
    case PPD_CUSTOM_INT:
      parameter.current.custom_int = numberOf<int>(value);
      break;
    case PPD_CUSTOM_PASSCODE:
    case PPD_CUSTOM_PASSWORD:
    case PPD_CUSTOM_STRING:
      std::free(parameter.current.custom_string);
      parameter.current.custom_string = ::strdup(value.c_str());
      break;
    default:
      parameter.current.custom_real = numberOf<float>(value);
  }
}

std::string randomCustomValue(const ppd_cparam_t& parameter, Random& random) {
  switch (parameter.type) {
    case PPD_CUSTOM_INT:
      return randomInt(parameter.minimum.custom_int, parameter.maximum.custom_int, random);
    case PPD_CUSTOM_PASSCODE:
      return randomText(parameter.minimum.custom_passcode, parameter.maximum.custom_passcode,
                        "0123456789", random);
    case PPD_CUSTOM_PASSWORD:
      return randomText(parameter.minimum.custom_password, parameter.maximum.custom_password,
                        "0123456789ABCDEFabcdef", random);
    case PPD_CUSTOM_STRING:
      return randomText(parameter.minimum.custom_string, parameter.maximum.custom_string,
                        "0123456789 ABCDEFabcdef%()<>/-_.~", random);
    default:
      return randomFloat(parameter.minimum.custom_real, parameter.maximum.custom_real, random);
  }
}

}  // namespace driver_feature::equivalence
