#include "host/base/frames.h"

#include <unistd.h>

#include <array>
#include <cerrno>
#include <charconv>

namespace driver_feature::host {

namespace {

constexpr std::size_t kMostDigits = 10;

}  // namespace

std::string frame(std::string_view text) {
  return std::to_string(text.size()) + ":" + std::string(text);
}

std::optional<std::string> takeFrame(std::string& arrived, bool& isMalformed) {
  const std::size_t colon = arrived.substr(0, kMostDigits + 1).find(':');
  if (colon == std::string::npos) {
    isMalformed = arrived.size() > kMostDigits;
    return std::nullopt;
  }
  std::size_t size = 0;
  const char* const end = arrived.data() + colon;
  const auto read = std::from_chars(arrived.data(), end, size);
  isMalformed = read.ec != std::errc() || read.ptr != end;
  if (isMalformed || arrived.size() - colon - 1 < size) return std::nullopt;
  std::string text = arrived.substr(colon + 1, size);
  arrived.erase(0, colon + 1 + size);
  return text;
}

std::optional<std::string> nextFrame(int socket, std::string& arrived) {
  for (;;) {
    bool isMalformed = false;
    if (auto text = takeFrame(arrived, isMalformed)) return text;
    if (isMalformed) return std::nullopt;
    std::array<char, 65536> buffer;
    const ssize_t count = ::read(socket, buffer.data(), buffer.size());
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return std::nullopt;
    arrived.append(buffer.data(), static_cast<std::size_t>(count));
  }
}

}  // namespace driver_feature::host
