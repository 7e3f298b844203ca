#include "host/description/switch_name.h"

#include <algorithm>

namespace driver_feature::host {

std::optional<SwitchName> switchNameOf(const std::string& feature,
                                       const std::vector<std::string>& options) {
  const std::size_t dot = feature.find('.');
  if (dot == std::string::npos || dot == 0 || dot + 1 == feature.size()) return std::nullopt;
  const std::vector<std::string> both = {kSwitchedOff, kSwitchedOn};
  if (!std::is_permutation(options.begin(), options.end(), both.begin(), both.end())) {
    return std::nullopt;
  }
  return SwitchName{feature.substr(0, dot), feature.substr(dot + 1)};
}

}  // namespace driver_feature::host
