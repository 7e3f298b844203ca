#include "programs/driver_feature/lsp/uri.h"

#include <algorithm>
#include <charconv>

#include "host/base/text.h"

namespace driver_feature::cli {

namespace {

constexpr std::string_view kFile = "file://";

std::string decoded(std::string_view text) {
  std::string bytes;
  while (!text.empty()) {
    unsigned byte = 0;
    const char* const digits = text.data() + 1;
    const bool isEscape = text.size() > 2 && text.front() == '%' &&
                          std::from_chars(digits, digits + 2, byte, 16).ptr == digits + 2;
    bytes += isEscape ? static_cast<char>(byte) : text.front();
    text.remove_prefix(isEscape ? 3 : 1);
  }
  return bytes;
}

}  // namespace

std::string pathOf(std::string_view uri) {
  if (host::toLower(std::string(uri.substr(0, kFile.size()))) != kFile) return std::string(uri);
  uri.remove_prefix(kFile.size());
  return decoded(uri.substr(std::min(uri.find('/'), uri.size())));  // Without the host.
}

}  // namespace driver_feature::cli
