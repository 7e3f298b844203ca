#include "programs/printer/durable_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <string>
#include <utility>

#include "host/base/descriptor.h"

namespace driver_feature::printer {

namespace fs = std::filesystem;

host::Failure notWritten(const fs::path& path, int error) {
  host::Problem problem{host::Problem::Kind::kNotWritten,
                        std::string("cannot be written: ") + std::strerror(error), ""};
  problem.file = path.string();
  return host::Failure(std::move(problem));
}

host::Result<> flush(const fs::path& path) {
  const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (descriptor == -1) return notWritten(path, errno);
  const int error = ::fsync(descriptor) == 0 ? 0 : errno;
  ::close(descriptor);
  // Not every file system can do so with folders.
  if (error != 0 && error != EINVAL) return notWritten(path, error);
  return {};
}

host::Result<> writeFile(const fs::path& path, std::string_view bytes) {
  const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
  if (file == -1) return notWritten(path, errno);
  const bool isWritten = host::writeAll(file, bytes);
  const int error = errno;
  ::close(file);
  if (!isWritten) return notWritten(path, error);
  return {};
}

host::Result<> giveName(const fs::path& from, const fs::path& to) {
  if (::rename(from.c_str(), to.c_str()) != 0) return notWritten(to, errno);
  return {};
}

fs::path newOf(const fs::path& path) {
  return path.string() + ".new";
}

host::Result<> writeDurably(const fs::path& path, std::string_view bytes) {
  if (auto done = writeFile(newOf(path), bytes); !done) return done;
  if (auto done = flush(newOf(path)); !done) return done;
  return giveName(newOf(path), path);
}

}  // namespace driver_feature::printer
