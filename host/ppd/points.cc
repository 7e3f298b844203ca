#include "host/ppd/points.h"

#include <array>
#include <charconv>
#include <cmath>

namespace driver_feature::ppd {

std::string millimetresText(double points, const std::function<bool(double)>& isExact) {
  const double millimetres = points / kPointsPerMillimetre;
  std::array<char, 400> buffer;
  std::string text;
  for (int decimals = 0; decimals <= 17; ++decimals) {
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), millimetres,
                                   std::chars_format::fixed, decimals);
    text.assign(buffer.data(), end.ptr);
    double read = 0;
    std::from_chars(text.data(), text.data() + text.size(), read);
    if (isExact(read)) break;
  }
  return text.starts_with('-') && text.find_first_not_of("-0.") == std::string::npos ? "0" : text;
}

}  // namespace driver_feature::ppd
