#include "host/base/output_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>
#include <optional>
#include <utility>

#include "host/base/descriptor.h"
#include "host/base/temporary_file.h"

namespace driver_feature::host {

namespace {

namespace fs = std::filesystem;

// Composes the problem from errno, which a later call would overwrite.
Failure problemOf(const std::string& file, const std::string& action) {
  return fail(Problem::Kind::kNotWritten, file + ": " + action + ": " + std::strerror(errno));
}

mode_t modeOfNewFile() {
  const mode_t mask = ::umask(0);
  ::umask(mask);
  return 0666U & ~mask;
}

// A file name is durable once its folder is. Not every file system can do
// that, and the bytes are safe already.
void flushFolder(const fs::path& folder) {
  const int descriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor == -1) return;
  ::fsync(descriptor);
  ::close(descriptor);
}

Result<> writeDirectly(const std::string& path, std::string_view bytes) {
  // Appends, because /dev/stdout may be a file that already holds something.
  const int descriptor = ::open(path.c_str(), O_WRONLY | O_APPEND | O_CLOEXEC);
  if (descriptor == -1) return problemOf(path, "cannot be opened");
  Result<> result;
  if (!writeAll(descriptor, bytes)) result = problemOf(path, "cannot be written");
  if (::close(descriptor) != 0 && result) result = problemOf(path, "cannot be written");
  return result;
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

// One output on its way to its file.
class Delivery {
 public:
  Delivery(const std::string& path, std::string_view bytes, bool isPrivate)
      : path_(path.empty() ? "-" : path), bytes_(bytes), isPrivate_(isPrivate) {}

  // Finds out where the output goes.
  Result<> locate() {
    if (path_ == "-") return {};
    struct stat old {};
    if (::stat(path_.c_str(), &old) != 0) {
      if (errno != ENOENT) return problemOf(path_, "cannot be opened");
      target_ = followLinks(path_);
      return {};
    }
    const fs::path target = followLinks(path_);
    if (!S_ISREG(old.st_mode) || isProcessFile(target)) return {};
    // Replacing the file would bypass its write protection.
    if (::faccessat(AT_FDCWD, path_.c_str(), W_OK, AT_EACCESS) != 0) {
      return problemOf(path_, "cannot be opened");
    }
    target_ = target;
    old_ = old;
    return {};
  }

  const std::string& path() const { return path_; }
  bool isFile() const { return !target_.empty(); }

  bool hasSameFileAs(const Delivery& other) const {
    if (target_.empty() || other.target_.empty()) return false;
    std::error_code error;
    return fs::weakly_canonical(folder(), error) / target_.filename() ==
           fs::weakly_canonical(other.folder(), error) / other.target_.filename();
  }

  // Brings the bytes of a file to the disk.
  Result<> stage(SignalDelay& delay) {
    if (target_.empty()) return {};
    file_ = std::make_unique<TemporaryFile>(folder(), delay);
    if (!file_->isOpen()) {
      return problemOf(path_, "a temporary file beside it cannot be created");
    }
    bool prepared = old_ ? file_->takeOver(*old_) : file_->setMode(modeOfNewFile());
    if (isPrivate_) prepared = prepared && file_->setMode(0600);
    if (prepared && file_->write(bytes_)) return {};
    return problemOf(path_, "cannot be written");
  }

  // Writes to something other than a regular file.
  Result<> send() const {
    if (!target_.empty()) return {};
    return path_ == "-" ? writeToStandardOutput(bytes_) : writeDirectly(path_, bytes_);
  }

  // Allocates all the memory that finish() and settle() need.
  Result<> prepare() {
    if (target_.empty()) return {};
    folder_ = folder();
    if (!file_->giveName()) return problemOf(path_, "cannot be replaced");
    return {};
  }

  // Makes the bytes the content of the file.
  Result<> finish() {
    if (target_.empty() || file_->rename(target_)) return {};
    return problemOf(path_, "cannot be replaced");
  }

  // Brings the file's name to the disk.
  void settle() const {
    if (!target_.empty()) flushFolder(folder_);
  }

 private:
  fs::path folder() const {
    return target_.has_parent_path() ? target_.parent_path() : fs::path(".");
  }

  std::string path_;
  std::string_view bytes_;
  bool isPrivate_;
  fs::path target_;  // Of a file; empty for anything else.
  fs::path folder_;  // Of the file, once prepared.
  std::optional<struct stat> old_;
  std::unique_ptr<TemporaryFile> file_;
};

Result<> locateAll(std::vector<Delivery>& deliveries) {
  for (auto delivery = deliveries.begin(); delivery != deliveries.end(); ++delivery) {
    if (Result<> done = delivery->locate(); !done) return done;
    const bool again = std::any_of(deliveries.begin(), delivery, [&](const Delivery& other) {
      return other.hasSameFileAs(*delivery);
    });
    if (again)
      return fail(Problem::Kind::kNotWritten,
                  delivery->path() + ": is given for two outputs; give each its own file");
  }
  return {};
}

Result<> deliverAll(std::vector<Delivery> deliveries, SignalDelay& delay) {
  if (Result<> done = locateAll(deliveries); !done) return done;
  for (Delivery& delivery : deliveries) {
    if (Result<> done = delivery.stage(delay); !done) return done;
  }
  for (const Delivery& delivery : deliveries) {
    // Nobody may read a pipe, and then only a signal ends the waiting.
    if (!delivery.isFile()) delay.end();
    if (Result<> done = delivery.send(); !done) return done;
  }
  // Once the first file has changed, no more memory is needed.
  for (Delivery& delivery : deliveries) {
    if (Result<> done = delivery.prepare(); !done) return done;
  }
  for (Delivery& delivery : deliveries) {
    if (Result<> done = delivery.finish(); !done) return done;
  }
  for (const Delivery& delivery : deliveries) delivery.settle();
  return {};
}

}  // namespace

Result<> writeToStandardOutput(std::string_view bytes) {
  if (writeAll(STDOUT_FILENO, bytes)) return {};
  return problemOf("standard output", "cannot be written");
}

Result<> writeToFile(const std::string& path, std::string_view bytes) {
  SignalDelay delay;
  std::vector<Delivery> deliveries;
  deliveries.emplace_back(path, bytes, false);
  return deliverAll(std::move(deliveries), delay);
}

namespace {

Result<> makeFolderOf(const std::string& path) {
  const std::filesystem::path folder = std::filesystem::path(path).parent_path();
  std::error_code error;
  std::filesystem::create_directory(folder, error);
  if (!error || folder.empty()) return {};
  return Failure(Problem{Problem::Kind::kNotWritten,
                         "the folder cannot be made: " + error.message(), "", "", folder.string()});
}

}  // namespace

Result<> writeAllOutputs(const std::vector<OutputText>& outputs) {
  for (const OutputText& output : outputs) {
    if (!output.makesFolder) continue;
    if (Result<> made = makeFolderOf(output.path); !made) return made;
  }
  SignalDelay delay;
  std::vector<Delivery> deliveries;
  deliveries.reserve(outputs.size());
  for (const OutputText& output : outputs)
    deliveries.emplace_back(output.path, output.bytes, output.isPrivate);
  return deliverAll(std::move(deliveries), delay);
}

}  // namespace driver_feature::host
