#include "host/page_server/query.h"

#include <algorithm>
#include <charconv>

namespace driver_feature::page_server {

std::string decoded(std::string_view text) {
  std::string bytes;
  for (std::size_t i = 0; i < text.size(); ++i) {
    unsigned char byte = 0;
    const char* const digits = text.data() + i + 1;
    if (text[i] == '%' && i + 2 < text.size() &&
        std::from_chars(digits, digits + 2, byte, 16).ptr == digits + 2) {
      bytes += static_cast<char>(byte);
      i += 2;
    } else {
      bytes += text[i] == '+' ? ' ' : text[i];
    }
  }
  return bytes;
}

std::string queryValue(std::string_view query, std::string_view name) {
  while (!query.empty()) {
    const std::string_view part = query.substr(0, query.find('&'));
    query.remove_prefix(std::min(part.size() + 1, query.size()));
    const std::size_t equals = std::min(part.find('='), part.size());
    if (part.substr(0, equals) != name) continue;
    return decoded(part.substr(std::min(equals + 1, part.size())));
  }
  return "";
}

}  // namespace driver_feature::page_server
