#include "host/input_file.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <memory>
#include <utility>

namespace driver_feature {

bool readFile(const std::string& path, std::string& bytes) {
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "rbe"),
                                                             &std::fclose);
  if (!file) return false;
  std::string all;
  std::array<char, 65536> buffer;
  errno = 0;
  while (const std::size_t count = std::fread(buffer.data(), 1, buffer.size(), file.get())) {
    all.append(buffer.data(), count);
  }
  if (std::ferror(file.get()) != 0) return false;
  bytes = std::move(all);
  return true;
}

}  // namespace driver_feature
