#include "host/base/input_file.h"

#include <sys/stat.h>

#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <memory>
#include <utility>

namespace driver_feature::host {

namespace {

Failure unreadable(const std::string& path) {
  return Failure(Problem{Problem::Kind::kUnreadable,
                         std::string("cannot be read: ") + std::strerror(errno), "", "", path});
}

}  // namespace

Result<std::string> readFile(const std::string& path) {
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "rbe"),
                                                             &std::fclose);
  if (!file) return unreadable(path);
  std::string bytes;
  struct stat status {};
  if (::fstat(::fileno(file.get()), &status) == 0 && S_ISREG(status.st_mode)) {
    bytes.reserve(static_cast<std::size_t>(status.st_size));
  }
  std::array<char, 65536> buffer;
  errno = 0;
  while (const std::size_t count = std::fread(buffer.data(), 1, buffer.size(), file.get())) {
    bytes.append(buffer.data(), count);
  }
  if (std::ferror(file.get()) != 0) return unreadable(path);
  return bytes;
}

}  // namespace driver_feature::host
