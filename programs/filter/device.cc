#include "programs/filter/device.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>

#include "programs/filter/cancellation.h"

namespace driver_feature::filter {

namespace {

constexpr std::size_t kEnough = 65536;
constexpr int kPatience = 5000;  // Milliseconds.

bool isFile(int descriptor) {
  struct stat status {};
  return ::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
}

}  // namespace

Device::Device(int descriptor) : descriptor_(descriptor), mayBlock_(!isFile(descriptor)) {}

void Device::put(std::string_view bytes) {
  waiting_ += bytes;
  if (waiting_.size() >= kEnough) flush();
}

void Device::flush() {
  writeOut(waiting_, false);
  waiting_.clear();
}

void Device::putLast(std::string_view bytes) {
  flush();
  writeOut(bytes, true);
}

void Device::writeOut(std::string_view bytes, bool isLast) {
  while (!bytes.empty() && error_ == 0) {
    if (!isLast && isCancelled()) return;
    // A pipe that can be written to takes this many bytes without blocking, so
    // that a cancelled job is noticed.
    const std::string_view part = mayBlock_ ? bytes.substr(0, PIPE_BUF) : bytes;
    if (mayBlock_ && isLast && isCancelled()) {
      if (!waitToWrite(descriptor_, kPatience)) return;
    } else if (mayBlock_ && !waitToWrite(descriptor_)) {
      continue;
    }
    const ssize_t written = ::write(descriptor_, part.data(), part.size());
    if (written >= 0) {
      hasBegun_ = hasBegun_ || written > 0;
      bytes.remove_prefix(static_cast<std::size_t>(written));
    } else if (errno != EINTR && errno != EAGAIN) {
      error_ = errno;
    }
  }
}

}  // namespace driver_feature::filter
