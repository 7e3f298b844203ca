#include "host/base/temporary_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <utility>

#include "host/base/descriptor.h"

namespace driver_feature::host {

SignalDelay::~SignalDelay() {
  end();
}

void SignalDelay::end() {
  if (begun_) ::sigprocmask(SIG_SETMASK, &before_, nullptr);
  begun_ = false;
}

void SignalDelay::begin() {
  if (begun_) return;
  sigset_t ending;
  ::sigemptyset(&ending);
  for (const int signal : {SIGHUP, SIGINT, SIGQUIT, SIGTERM}) ::sigaddset(&ending, signal);
  begun_ = ::sigprocmask(SIG_BLOCK, &ending, &before_) == 0;
}

TemporaryFile::TemporaryFile(std::filesystem::path folder, SignalDelay& delay)
    : folder_(std::move(folder)), delay_(delay) {
  // The name is given through /proc later.
  if (::access("/proc/self/fd", X_OK) == 0) {
    descriptor_ = ::open(folder_.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0600);
  }
  if (descriptor_ != -1) return;
  delay_.begin();
  name_ = (folder_ / ".driver-feature-XXXXXX").string();
  descriptor_ = ::mkostemp(name_.data(), O_CLOEXEC);
  if (descriptor_ == -1) name_.clear();
}

TemporaryFile::~TemporaryFile() {
  if (descriptor_ != -1) ::close(descriptor_);
  if (!name_.empty()) ::unlink(name_.c_str());
}

bool TemporaryFile::write(std::string_view bytes) const {
  return writeAll(descriptor_, bytes) && ::fsync(descriptor_) == 0;
}

bool TemporaryFile::takeOver(const struct stat& old) const {
  // The owner can be kept by the superuser only, and is worth a try.
  const bool owned = ::fchown(descriptor_, old.st_uid, old.st_gid) == 0;
  // Without the owner the set-user bit would be another user's.
  return ::fchmod(descriptor_, old.st_mode & (owned ? 07777U : 0777U)) == 0;
}

bool TemporaryFile::setMode(mode_t mode) const {
  return ::fchmod(descriptor_, mode) == 0;
}

bool TemporaryFile::rename(const std::filesystem::path& target) {
  if (!giveName() || ::rename(name_.c_str(), target.c_str()) != 0) return false;
  name_.clear();
  return true;
}

// A temporary name is needed because a link cannot take the place of a file.
bool TemporaryFile::giveName() {
  delay_.begin();
  if (!name_.empty()) return true;
  const std::string self = "/proc/self/fd/" + std::to_string(descriptor_);
  const std::string stem = ".driver-feature-" + std::to_string(::getpid()) + "-";
  constexpr int kAttempts = 100;
  for (int i = 0; i < kAttempts; ++i) {
    std::string name = (folder_ / (stem + std::to_string(i))).string();
    if (::linkat(AT_FDCWD, self.c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) == 0) {
      name_ = std::move(name);
      return true;
    }
    if (errno != EEXIST) return false;
  }
  return false;
}

}  // namespace driver_feature::host
