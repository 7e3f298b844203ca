#include "host/base/descriptor.h"

#include <unistd.h>

#include <array>
#include <cerrno>

namespace driver_feature::host {

bool writeAll(int descriptor, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

std::string readAll(int descriptor) {
  std::string bytes;
  std::array<char, 65536> buffer;
  for (;;) {
    const ssize_t count = ::read(descriptor, buffer.data(), buffer.size());
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return bytes;
    bytes.append(buffer.data(), static_cast<std::size_t>(count));
  }
}

}  // namespace driver_feature::host
