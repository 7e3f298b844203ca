// A file that takes its name only when it is complete.
#ifndef HOST_BASE_TEMPORARY_FILE_H_
#define HOST_BASE_TEMPORARY_FILE_H_

#include <sys/stat.h>

#include <csignal>
#include <filesystem>
#include <string>
#include <string_view>

namespace driver_feature::host {

// Keeps the signals that end the program waiting while a file with a temporary
// name exists, so that none is left over. They arrive when it is destroyed.
class SignalDelay {
 public:
  SignalDelay() = default;
  ~SignalDelay();
  SignalDelay(const SignalDelay&) = delete;
  SignalDelay& operator=(const SignalDelay&) = delete;

  // Does nothing if the signals are already delayed.
  void begin();

  void end();

 private:
  sigset_t before_{};
  bool begun_ = false;
};

// A file that is gone again unless it has been given its final name. It has no
// name at all until then where the file system can do that. Every operation
// returns false and sets errno when it fails.
class TemporaryFile {
 public:
  // Creates it in the folder. `delay` must outlive it.
  TemporaryFile(std::filesystem::path folder, SignalDelay& delay);
  ~TemporaryFile();
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  bool isOpen() const { return descriptor_ != -1; }

  // Writes the bytes and flushes them to the disk.
  bool write(std::string_view bytes) const;

  // Gives it the owner, as far as this user may, and the permissions of a file.
  bool takeOver(const struct stat& old) const;

  bool setMode(mode_t mode) const;

  // Gives it a temporary name, if it has none. rename() does it too, but needs
  // memory for it.
  bool giveName();

  // Puts it in the place of `target`, in the same folder. Takes no memory when
  // it has a temporary name.
  bool rename(const std::filesystem::path& target);

 private:
  std::filesystem::path folder_;
  SignalDelay& delay_;
  std::string name_;  // Empty while the file has none.
  int descriptor_ = -1;
};

}  // namespace driver_feature::host

#endif  // HOST_BASE_TEMPORARY_FILE_H_
