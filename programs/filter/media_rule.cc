#include "programs/filter/media_rule.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string_view>
#include <vector>

#include "host/base/text.h"

namespace driver_feature::filter {

namespace {

constexpr std::string_view kCustom = "Custom.";

bool takeLength(std::string_view& text) {
  float number = 0;
  const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
  if (read.ec != std::errc() || !std::isfinite(number) || number <= 0) return false;
  text.remove_prefix(static_cast<std::size_t>(read.ptr - text.data()));
  return true;
}

// Whether it is WIDTHxLENGTH with a unit that libcups knows, or none for
// points.
bool isSize(std::string_view text) {
  constexpr std::array<std::string_view, 7> kUnits = {"", "cm", "ft", "in", "m", "mm", "pt"};
  if (!takeLength(text) || !text.starts_with('x')) return false;
  text.remove_prefix(1);
  return takeLength(text) && std::find(kUnits.begin(), kUnits.end(), text) != kUnits.end();
}

}  // namespace

bool isCustom(const std::string& value) {
  return value.starts_with(kCustom) || value.starts_with('{') || value == "Custom";
}

host::Result<> checkCustomSize(const std::string& value) {
  if (!value.starts_with(kCustom) || isSize(value.substr(kCustom.size()))) return {};
  return host::refused(
      "\"" + value +
      "\" is not a size; give one such as Custom.200x300 in points or Custom.10x20cm");
}

host::Result<> checkMedia(ppd::QueuePpd& ppd, const std::string& value) {
  if (!ppd.keywordOf("PageSize")) return {};
  for (std::string_view rest = value; !rest.empty();) {
    const std::string part(rest.substr(0, rest.find(',')));
    rest.remove_prefix(std::min(part.size() + 1, rest.size()));
    if (host::Result<> size = checkCustomSize(part); !size) return size;
    if (ppd.understands({"media", part})) continue;
    return host::refused("there is no size, tray or type \"" + part + "\"; choose one of " +
                         host::join(ppd.choicesOf("PageSize"), ", "));
  }
  return {};
}

host::Result<> checkSides(ppd::QueuePpd& ppd, const host::Setting& option) {
  if (option.name != "sides" || ppd.understands(option)) return {};
  std::vector<std::string> known;
  for (const char* value : {"one-sided", "two-sided-long-edge", "two-sided-short-edge"}) {
    if (ppd.understands({option.name, value})) known.emplace_back(value);
  }
  // A printer without a choice prints on one side in any case.
  if (known.empty() || option.value == "one-sided") return {};
  return host::refused("there is no choice \"" + option.value + "\"; choose one of " +
                       host::join(known, ", "));
}

}  // namespace driver_feature::filter
