#ifndef HOST_BASE_DECIMAL_H_
#define HOST_BASE_DECIMAL_H_

#include <charconv>
#include <string_view>

namespace driver_feature::host {

// The number that the text begins with, which has a point in every locale; 0 if it begins
// with none, and if the number is out of range.
template <typename Number = double>
Number decimal(std::string_view text) {
  Number number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

}  // namespace driver_feature::host

#endif  // HOST_BASE_DECIMAL_H_
