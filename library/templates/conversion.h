// One conversion of a command template, and the texts it makes of values.
#ifndef TEMPLATES_CONVERSION_H_
#define TEMPLATES_CONVERSION_H_

#include <optional>
#include <string>
#include <string_view>

namespace driver_feature {

inline constexpr int kHighestFieldSize = 4096;  // Of a width or a precision.

struct Conversion {
  bool leftAligned = false;    // -
  bool plusSign = false;       // +
  bool blankSign = false;      // blank
  bool alternateForm = false;  // #
  bool zeroPadded = false;     // 0
  int width = 0;
  std::optional<int> precision;
  std::string_view length;  // "", "h", "hh", "l", "ll", "j", "z", "t" or "L"
  char letter = 0;
};

// Removes a conversion without its per cent sign from the front of `text`.
// Nothing if there is none or a width or precision is too large. Letters are
// not checked here.
std::optional<Conversion> takeConversion(std::string_view& text);

// The value as the conversion shows it; nothing when its letter or length
// letters do not fit the value.
std::optional<std::string> convert(const Conversion& conversion, std::string_view value);
std::optional<std::string> convert(const Conversion& conversion, int value);
std::optional<std::string> convert(const Conversion& conversion, double value);

}  // namespace driver_feature

#endif  // TEMPLATES_CONVERSION_H_
