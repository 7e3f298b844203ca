#include "programs/filter/kept_file.h"

#include <fcntl.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>

namespace driver_feature::filter {

std::string temporaryFolder() {
  const char* folder = std::getenv("TMPDIR");
  return folder != nullptr && *folder != '\0' ? folder : "/tmp";
}

int makeNamedFile(std::string& name) {
  name = temporaryFolder() + "/driver-feature-XXXXXX";
  const int descriptor = ::mkostemp(name.data(), O_CLOEXEC);
  if (descriptor == -1) name.clear();
  return descriptor;
}

int makeNamelessFile() {
  std::string name;
  const int descriptor = makeNamedFile(name);
  if (descriptor != -1) ::unlink(name.c_str());
  return descriptor;
}

bool hasRoomFor(std::uint64_t bytes) {
  struct statvfs status {};
  if (::statvfs(temporaryFolder().c_str(), &status) != 0) return true;
  return static_cast<std::uint64_t>(status.f_bavail) * status.f_frsize > bytes;
}

}  // namespace driver_feature::filter
