#include "host/output_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>

namespace driver_feature {

namespace {

namespace fs = std::filesystem;

// Composes the problem from errno, which a later call would overwrite.
std::string problemOf(const std::string& file, const std::string& action) {
  return file + ": " + action + ": " + std::strerror(errno);
}

bool writeAll(int descriptor, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

mode_t modeOfNewFile() {
  const mode_t mask = ::umask(0);
  ::umask(mask);
  return 0666U & ~mask;
}

// A file that is removed again unless it has been given its final name.
class TemporaryFile {
 public:
  explicit TemporaryFile(const fs::path& folder)
      : path_((folder / ".driver-feature-XXXXXX").string()),
        descriptor_(::mkostemp(path_.data(), O_CLOEXEC)) {}
  ~TemporaryFile() {
    if (descriptor_ == -1) return;
    ::close(descriptor_);
    if (!path_.empty()) ::unlink(path_.c_str());
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  bool isOpen() const { return descriptor_ != -1; }

  bool write(std::string_view bytes) const {
    return writeAll(descriptor_, bytes) && ::fsync(descriptor_) == 0;
  }

  // The owner can be kept by the superuser only, and is worth a try.
  bool takeOver(const struct stat& old) const {
    const bool owned = ::fchown(descriptor_, old.st_uid, old.st_gid) == 0;
    // Without the owner the set-user bit would be another user's.
    return ::fchmod(descriptor_, old.st_mode & (owned ? 07777U : 0777U)) == 0;
  }

  bool setMode(mode_t mode) const { return ::fchmod(descriptor_, mode) == 0; }

  bool rename(const fs::path& target) {
    if (::rename(path_.c_str(), target.c_str()) != 0) return false;
    path_.clear();
    return true;
  }

 private:
  std::string path_;
  int descriptor_;
};

// A file name is durable once its folder is. Not every file system can do
// that, and the bytes are safe already.
void flushFolder(const fs::path& folder) {
  const int descriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor == -1) return;
  ::fsync(descriptor);
  ::close(descriptor);
}

WriteProblem writeDirectly(const std::string& path, std::string_view bytes) {
  // Appending: behind /dev/stdout there may be a file that holds something.
  const int descriptor = ::open(path.c_str(), O_WRONLY | O_APPEND | O_CLOEXEC);
  if (descriptor == -1) return problemOf(path, "cannot be opened");
  const bool written = writeAll(descriptor, bytes);
  WriteProblem problem;
  if (!written) problem = problemOf(path, "cannot be written");
  if (::close(descriptor) != 0 && !problem) problem = problemOf(path, "cannot be written");
  return problem;
}

WriteProblem replaceFile(const std::string& path, const fs::path& target, const struct stat* old,
                         std::string_view bytes) {
  const fs::path folder = target.has_parent_path() ? target.parent_path() : fs::path(".");
  TemporaryFile file(folder);
  if (!file.isOpen()) return problemOf(path, "a temporary file beside it cannot be created");
  const bool prepared = old != nullptr ? file.takeOver(*old) : file.setMode(modeOfNewFile());
  if (!prepared || !file.write(bytes)) return problemOf(path, "cannot be written");
  if (!file.rename(target)) return problemOf(path, "cannot be replaced");
  flushFolder(folder);
  return std::nullopt;
}

bool isProcessFile(const fs::path& path) {
  return path.string().starts_with("/proc/");
}

// What a chain of symbolic links ends at, whether it exists or not. The links
// to the open files of a process are left as they are.
fs::path followLinks(fs::path path) {
  constexpr int kLongestChain = 40;
  std::error_code error;
  for (int i = 0; i < kLongestChain && fs::is_symlink(path, error); ++i) {
    const fs::path folder = fs::canonical(path.parent_path() / ".", error);
    if (isProcessFile(folder / path.filename())) return folder / path.filename();
    path = folder / fs::read_symlink(path, error);
  }
  return path;
}

}  // namespace

WriteProblem writeToStandardOutput(std::string_view bytes) {
  if (writeAll(STDOUT_FILENO, bytes)) return std::nullopt;
  return problemOf("standard output", "cannot be written");
}

WriteProblem writeToFile(const std::string& path, std::string_view bytes) {
  if (path == "-") return writeToStandardOutput(bytes);
  struct stat old {};
  if (::stat(path.c_str(), &old) != 0) {
    if (errno != ENOENT) return problemOf(path, "cannot be opened");
    return replaceFile(path, followLinks(path), nullptr, bytes);
  }
  const fs::path target = followLinks(path);
  if (!S_ISREG(old.st_mode) || isProcessFile(target)) {
    return writeDirectly(path, bytes);
  }
  // Replacing the file would get around its write protection.
  if (::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) != 0) {
    return problemOf(path, "cannot be opened");
  }
  return replaceFile(path, target, &old, bytes);
}

}  // namespace driver_feature
