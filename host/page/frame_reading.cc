#include "host/page/frame_reading.h"

#include <unistd.h>

#include <array>
#include <cerrno>

#include "host/base/frames.h"

namespace driver_feature::page {

std::optional<std::string> nextFrame(int socket, std::string& arrived) {
  for (;;) {
    bool isMalformed = false;
    if (auto text = host::takeFrame(arrived, isMalformed)) return text;
    if (isMalformed) return std::nullopt;
    std::array<char, 65536> buffer;
    const ssize_t count = ::read(socket, buffer.data(), buffer.size());
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return std::nullopt;
    arrived.append(buffer.data(), static_cast<std::size_t>(count));
  }
}

}  // namespace driver_feature::page
