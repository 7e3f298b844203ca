#include "host/base/file_watch.h"

#include <poll.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <filesystem>

namespace driver_feature::host {

namespace {

using Clock = std::chrono::steady_clock;

// Changes that follow each other as quickly belong together.
constexpr std::chrono::milliseconds kQuiet{50};

constexpr unsigned kEvents = IN_CLOSE_WRITE | IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO;

std::string folderOf(const std::filesystem::path& path) {
  return path.has_parent_path() ? path.parent_path().string() : ".";
}

Failure notWatched(const std::string& folder) {
  return refused("the folder " + folder + " cannot be watched: " + std::strerror(errno));
}

// What has been created is written and closed after that, unless it is a link, a
// folder, or a file that has got its name only now.
bool isWhole(const std::filesystem::path& path, unsigned mask) {
  struct stat status {};
  if ((mask & IN_CREATE) == 0 || ::lstat(path.c_str(), &status) != 0) return true;
  return !S_ISREG(status.st_mode) || status.st_size > 0;
}

}  // namespace

bool FilePattern::fits(std::string_view name) const {
  return name.size() > begin.size() + end.size() && name.starts_with(begin) && name.ends_with(end);
}

FileWatch::FileWatch() : descriptor_(::inotify_init1(IN_CLOEXEC | IN_NONBLOCK)) {}

FileWatch::~FileWatch() {
  if (descriptor_ != -1) ::close(descriptor_);
}

Result<> FileWatch::addFile(const std::string& path) {
  const std::string folder = folderOf(path);
  if (addFolder(folder) == -1) return notWatched(folder);
  watched_.push_back({{folder, std::filesystem::path(path).filename().string(), ""}, true});
  files_.insert(path);
  addTarget(path);
  return {};
}

// Where an editor writes through a link, only the other folder notices.
void FileWatch::addTarget(const std::string& link) {
  std::error_code error;
  if (!std::filesystem::is_symlink(link, error)) return;
  const std::filesystem::path target = std::filesystem::weakly_canonical(link, error);
  if (error || !targets_.insert(target.string()).second) return;
  const std::string folder = folderOf(target);
  if (addFolder(folder) != -1) watched_.push_back({{folder, target.filename().string(), ""}, true});
}

Result<> FileWatch::addFiles(const FilePattern& pattern) {
  const std::string parent = folderOf(pattern.folder);
  if (addFolder(parent) == -1) return notWatched(parent);
  addFolder(pattern.folder);
  watched_.push_back({pattern, false});
  return {};
}

int FileWatch::addFolder(const std::string& folder) {
  const int watch = ::inotify_add_watch(descriptor_, folder.c_str(), kEvents | IN_ONLYDIR);
  if (watch != -1) folders_[watch].insert(folder);
  return watch;
}

void FileWatch::addAllFolders() {
  for (const Watched& watched : watched_) addFolder(watched.pattern.folder);
}

bool FileWatch::takeChanges() {
  bool isChanged = false;
  alignas(inotify_event) std::array<char, 4096> buffer{};
  while (true) {
    const ssize_t count = ::read(descriptor_, buffer.data(), buffer.size());
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) break;
    for (std::size_t at = 0; at < static_cast<std::size_t>(count);) {
      const auto* event = reinterpret_cast<const inotify_event*>(buffer.data() + at);
      const bool isLost = (event->mask & IN_Q_OVERFLOW) != 0;  // Anything may have happened.
      if (isLost) addAllFolders();
      const std::string name = event->len > 0 ? event->name : "";
      isChanged = isAboutWatched(event->wd, event->mask, name) || isLost || isChanged;
      at += sizeof *event + event->len;
    }
  }
  if (isChanged) {
    for (const std::string& file : files_) addTarget(file);
  }
  return isChanged;
}

bool FileWatch::isAboutWatched(int folder, unsigned mask, const std::string& name) {
  const auto found = folders_.find(folder);
  if (found == folders_.end()) return false;
  if ((mask & IN_IGNORED) != 0) {
    folders_.erase(found);
    return false;
  }
  bool isAbout = false;
  const std::set<std::string> spellings = found->second;
  for (const Watched& watched : watched_) {
    const std::filesystem::path place(watched.pattern.folder);
    if (spellings.contains(place.string())) {
      isAbout = isAbout || (watched.fits(name) && isWhole(place / name, mask));
    }
    if (place.filename() == name && spellings.contains(folderOf(place))) {
      addFolder(place.string());  // Another one may have this name now.
      isAbout = true;
    }
  }
  return isAbout;
}

bool FileWatch::wait() {
  pollfd waiting{descriptor_, POLLIN, 0};
  bool isChanged = false;
  Clock::time_point quietFrom{};
  while (true) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(quietFrom - Clock::now());
    if (isChanged && left.count() <= 0) return true;
    const int ready = ::poll(&waiting, 1, isChanged ? static_cast<int>(left.count()) : -1);
    if (ready < 0 && errno != EINTR) return false;
    if (ready <= 0 || !takeChanges()) continue;
    isChanged = true;
    quietFrom = Clock::now() + kQuiet;
  }
}

}  // namespace driver_feature::host
