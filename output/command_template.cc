#include "output/command_template.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "output/conversion.h"

namespace driver_feature {

namespace {

template <class Value>
bool format(std::string_view rest, const Value& value, std::string& output) {
  std::string text;
  bool converted = false;
  while (!rest.empty()) {
    const std::size_t literal = std::min(rest.find('%'), rest.size());
    text.append(rest.substr(0, literal));
    rest.remove_prefix(literal);
    if (rest.empty()) break;
    rest.remove_prefix(1);
    if (rest.starts_with('%')) {
      text.push_back('%');
      rest.remove_prefix(1);
      continue;
    }
    const auto conversion = takeConversion(rest);
    if (!conversion || converted) return false;
    const auto piece = convert(*conversion, value);
    if (!piece) return false;
    text.append(*piece);
    converted = true;
  }
  output = std::move(text);
  return true;
}

}  // namespace

bool formatCommand(std::string_view commandTemplate, std::string_view value, std::string& output) {
  return format(commandTemplate, value, output);
}

bool formatCommand(std::string_view commandTemplate, int value, std::string& output) {
  return format(commandTemplate, value, output);
}

bool formatCommand(std::string_view commandTemplate, double value, std::string& output) {
  return format(commandTemplate, value, output);
}

}  // namespace driver_feature
