#include "programs/driver_feature/commands/watch.h"

#include <poll.h>
#include <sys/inotify.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <map>
#include <set>

#include "host/base/child_process.h"
#include "programs/common/console.h"

namespace driver_feature::cli {

namespace {

// An editor may save in several steps, which belong together.
constexpr int kQuietMilliseconds = 50;

// Watches folders, since a file that is replaced is not watched any more.
class Watch {
 public:
  Watch() : descriptor_(::inotify_init1(IN_CLOEXEC)) {}
  ~Watch() {
    if (descriptor_ != -1) ::close(descriptor_);
  }
  Watch(const Watch&) = delete;
  Watch& operator=(const Watch&) = delete;

  host::Result<> add(const std::string& file) {
    const std::filesystem::path path(file);
    const std::filesystem::path folder = path.has_parent_path() ? path.parent_path() : ".";
    const int watched =
        ::inotify_add_watch(descriptor_, folder.c_str(), IN_CLOSE_WRITE | IN_MOVED_TO);
    if (watched == -1) {
      return host::refused("--watch: the folder " + folder.string() +
                           " cannot be watched: " + std::strerror(errno));
    }
    names_[watched].insert(path.filename().string());
    return {};
  }

  // Waits for a change, and until no other follows at once. False on failure.
  bool wait() const {
    while (true) {
      const Batch batch = read();
      if (batch == Batch::kFailed) return false;
      if (batch == Batch::kOfTheFiles) break;
    }
    pollfd waiting{descriptor_, POLLIN, 0};
    while (::poll(&waiting, 1, kQuietMilliseconds) > 0) {
      if (read() == Batch::kFailed) return false;
    }
    return true;
  }

 private:
  enum class Batch { kOfTheFiles, kOfOthers, kFailed };

  Batch read() const {
    alignas(inotify_event) std::array<char, 4096> buffer{};
    const ssize_t count = ::read(descriptor_, buffer.data(), buffer.size());
    if (count < 0) return errno == EINTR ? Batch::kOfOthers : Batch::kFailed;
    bool found = false;
    for (std::size_t at = 0; at < static_cast<std::size_t>(count);) {
      const auto* event = reinterpret_cast<const inotify_event*>(buffer.data() + at);
      // When too much has happened at once, anything may have.
      found = found || (event->mask & IN_Q_OVERFLOW) != 0 || isWatched(*event);
      at += sizeof *event + event->len;
    }
    return found ? Batch::kOfTheFiles : Batch::kOfOthers;
  }

  bool isWatched(const inotify_event& event) const {
    const auto folder = names_.find(event.wd);
    return folder != names_.end() && event.len > 0 && folder->second.contains(event.name);
  }

  int descriptor_;
  std::map<int, std::set<std::string>> names_;  // Of the files, by the folder's watch.
};

host::Result<> runOnce(const std::function<host::Result<int>()>& work) {
  auto child = host::ChildProcess::start(host::ChildStreams::kShared, [&work](int) {
    const host::Result<int> status = work();
    return status ? *status : report(status.error());
  });
  if (!child) return failureOf(child);
  child->wait();
  return {};
}

}  // namespace

host::Result<int> watchFiles(const std::vector<std::string>& files,
                             const std::function<host::Result<int>()>& work) {
  Watch watch;
  for (const std::string& file : files) {
    if (host::Result<> added = watch.add(file); !added) return failureOf(added);
  }
  while (true) {
    if (host::Result<> done = runOnce(work); !done) return failureOf(done);
    if (!watch.wait()) return host::refused("--watch: the files cannot be watched any more");
  }
}

}  // namespace driver_feature::cli
