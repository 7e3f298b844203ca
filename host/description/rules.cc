#include "host/description/rules.h"

#include <algorithm>
#include <charconv>
#include <system_error>

namespace driver_feature::host {

bool isTrueOf(const Condition& condition, const std::string& value) {
  using Kind = Condition::Kind;
  if (condition.kind == Kind::kIs || condition.kind == Kind::kIsNot) {
    const bool isNamed = std::find(condition.choices.begin(), condition.choices.end(), value) !=
                         condition.choices.end();
    return isNamed == (condition.kind == Kind::kIs);
  }
  double number = 0;
  const auto read = std::from_chars(value.data(), value.data() + value.size(), number);
  if (read.ec != std::errc()) return false;
  return condition.kind == Kind::kAbove ? number > condition.number : number < condition.number;
}

}  // namespace driver_feature::host
