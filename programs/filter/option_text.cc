#include "programs/filter/option_text.h"

#include <cups/cups.h>

#include <cstddef>

namespace driver_feature::filter {

std::vector<host::Setting> parseOptions(const std::string& text) {
  cups_option_t* parsed = nullptr;
  const int count = cupsParseOptions(text.c_str(), 0, &parsed);
  std::vector<host::Setting> options;
  options.reserve(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) options.push_back({parsed[i].name, parsed[i].value});
  cupsFreeOptions(count, parsed);
  return options;
}

}  // namespace driver_feature::filter
