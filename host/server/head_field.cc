#include "host/server/head_field.h"

#include <algorithm>

#include "host/base/text.h"

namespace driver_feature::host {

std::string headField(std::string_view head, std::string_view name) {
  std::string values;
  while (!head.empty()) {
    const std::string_view line = head.substr(0, head.find('\n'));
    head.remove_prefix(std::min(line.size() + 1, head.size()));
    const std::size_t colon = line.find(':');
    if (colon == std::string_view::npos) continue;
    if (toLower(std::string(line.substr(0, colon))) != name) continue;
    if (!values.empty()) values += ", ";
    values += trimmed(line.substr(colon + 1), " \t\r");
  }
  return values;
}

}  // namespace driver_feature::host
