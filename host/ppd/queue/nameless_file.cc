#include "host/ppd/queue/nameless_file.h"

#include <unistd.h>

#include <cstdio>
#include <memory>

namespace driver_feature::ppd {

int fileWith(const std::string& text) {
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::tmpfile(), &std::fclose);
  if (!file || std::fwrite(text.data(), 1, text.size(), file.get()) != text.size()) return -1;
  if (std::fflush(file.get()) != 0 || std::fseek(file.get(), 0, SEEK_SET) != 0) return -1;
  return ::dup(::fileno(file.get()));
}

}  // namespace driver_feature::ppd
