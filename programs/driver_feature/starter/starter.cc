#include "programs/driver_feature/starter/starter.h"

#include <fcntl.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <system_error>

#include "host/base/output_file.h"
#include "host/base/temporary_file.h"
#include "host/base/text.h"
#include "programs/driver_feature/starter/starter_texts.h"

namespace driver_feature::cli {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kPlaceholder = "@NAME@";

bool isLetter(char character) {
  return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}

// The name becomes that of files and of a library.
bool isName(const std::string& name) {
  constexpr std::size_t kLongest = 64;
  return !name.empty() && name.size() <= kLongest && isLetter(name.front()) &&
         std::ranges::all_of(name, [](char character) {
           return isLetter(character) || (character >= '0' && character <= '9') ||
                  character == '-' || character == '_';
         });
}

std::string withName(std::string_view text, const std::string& name) {
  std::string result(text);
  for (std::size_t at = 0; (at = result.find(kPlaceholder, at)) != std::string::npos;) {
    result.replace(at, kPlaceholder.size(), name);
    at += name.size();
  }
  return result;
}

host::Failure notMade(const std::string& folder) {
  return host::fail(host::Problem::Kind::kNotWritten,
                    folder + ": cannot be made: " + std::strerror(errno));
}

// A folder that is gone again unless it has been given its name.
class TemporaryFolder {
 public:
  explicit TemporaryFolder(const std::string& target) : path_(target + ".XXXXXX") {
    isMade_ = ::mkdtemp(path_.data()) != nullptr;
  }
  ~TemporaryFolder() {
    std::error_code error;
    if (isMade_) fs::remove_all(path_, error);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  bool isMade() const { return isMade_; }
  fs::path path() const { return path_; }

  // False, with errno set, when there is something of that name.
  bool rename(const std::string& target) {
    // mkdtemp() lets only the owner in.
    std::error_code error;
    fs::permissions(path_, fs::status(fs::path(path_) / "cases", error).permissions(), error);
    isMade_ = ::renameat2(AT_FDCWD, path_.c_str(), AT_FDCWD, target.c_str(), RENAME_NOREPLACE) != 0;
    // Some file systems cannot look and rename at once.
    if (isMade_ && errno == EINVAL) isMade_ = ::rename(path_.c_str(), target.c_str()) != 0;
    return !isMade_;
  }

 private:
  std::string path_;
  bool isMade_;
};

host::Result<> writeInto(const fs::path& folder, const std::vector<StarterFile>& files) {
  std::vector<host::OutputText> outputs;
  for (const StarterFile& file : files) {
    const fs::path path = folder / file.path;
    std::error_code error;
    fs::create_directories(path.parent_path(), error);
    if (error) {
      errno = error.value();
      return notMade(path.parent_path().string());
    }
    outputs.push_back({path.string(), file.text});
  }
  return writeAllOutputs(outputs);
}

}  // namespace

host::Result<std::vector<StarterFile>> starterFiles(const std::string& name) {
  if (!isName(name)) {
    return host::refused(host::inQuotes(name) +
                         " cannot be the name of a driver; give a letter, followed by letters, "
                         "digits, \"-\" and \"_\", 64 at most");
  }
  std::vector<StarterFile> files = {{name + ".xml", withName(kStarterDescription, name)}};
  for (const StarterText& file : starterTexts()) {
    files.push_back({std::string(file.path), withName(file.text, name)});
  }
  return files;
}

host::Result<> writeFolder(const std::string& folder, const std::vector<StarterFile>& files) {
  const std::string target =
      fs::path(folder).has_filename() ? folder : fs::path(folder).parent_path().string();
  const auto exists = [&] {
    return host::refused(target + ": exists already; give another folder with --folder");
  };
  std::error_code error;
  if (fs::exists(fs::symlink_status(target, error))) return exists();
  host::SignalDelay delay;
  delay.begin();
  TemporaryFolder temporary(target);
  if (!temporary.isMade()) return notMade(target);
  if (host::Result<> written = writeInto(temporary.path(), files); !written) return written;
  if (temporary.rename(target)) return {};
  if (errno == EEXIST) return exists();
  return notMade(target);
}

}  // namespace driver_feature::cli
