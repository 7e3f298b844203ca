#include "host/page_server/query.h"

#include <algorithm>

#include "host/base/text.h"

namespace driver_feature::page_server {

std::string queryValue(std::string_view query, std::string_view name) {
  while (!query.empty()) {
    const std::string_view part = query.substr(0, query.find('&'));
    query.remove_prefix(std::min(part.size() + 1, query.size()));
    const std::size_t equals = std::min(part.find('='), part.size());
    if (part.substr(0, equals) != name) continue;
    return host::percentDecoded(part.substr(std::min(equals + 1, part.size())),
                                host::PlusSign::kBlank);
  }
  return "";
}

}  // namespace driver_feature::page_server
