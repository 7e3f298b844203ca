#include "host/page_server/random_name.h"

#include <sys/random.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <string_view>

namespace driver_feature::page_server {

host::Result<std::string> randomName() {
  // 32 of them, so that each takes five bits of a byte.
  constexpr std::string_view kCharacters = "0123456789abcdefghijklmnopqrstuv";
  std::array<unsigned char, 32> bytes{};
  ssize_t count = -1;
  do {
    count = ::getrandom(bytes.data(), bytes.size(), 0);
  } while (count < 0 && errno == EINTR);
  if (count != static_cast<ssize_t>(bytes.size())) {
    return host::fail(host::Problem::Kind::kNotLoaded,
                      std::string("the system has no random numbers: ") + std::strerror(errno));
  }
  std::string name;
  for (const unsigned char byte : bytes) name += kCharacters[byte & 31];
  return name;
}

}  // namespace driver_feature::page_server
