#include "programs/driver_feature/lsp/uri.h"

#include <algorithm>

#include "host/base/text.h"

namespace driver_feature::cli {

namespace {

constexpr std::string_view kFile = "file://";

}  // namespace

std::string pathOf(std::string_view uri) {
  if (host::toLower(std::string(uri.substr(0, kFile.size()))) != kFile) return std::string(uri);
  uri.remove_prefix(kFile.size());
  return host::percentDecoded(
      uri.substr(std::min(uri.find('/'), uri.size())));  // Without the host.
}

}  // namespace driver_feature::cli
