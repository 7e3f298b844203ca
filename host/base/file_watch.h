// Notices when files change, also those that do not exist yet.
//
//   FileWatch watch;
//   Result<> added = watch.addFile("office.xml");
//   ...
//   while (watch.wait()) readAgain();
//
// An event loop waits for descriptor() instead, and calls takeChanges().
#ifndef HOST_BASE_FILE_WATCH_H_
#define HOST_BASE_FILE_WATCH_H_

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "host/base/result.h"

namespace driver_feature::host {

// The files of a folder whose names are `begin`, at least one character, and
// `end`.
struct FilePattern {
  std::string folder;  // "." for the current one.
  std::string begin;
  std::string end;

  bool fits(std::string_view name) const;
};

// Watches folders, since a file that is replaced by another one of its name would
// not be watched any more.
class FileWatch {
 public:
  FileWatch();
  ~FileWatch();
  FileWatch(const FileWatch&) = delete;
  FileWatch& operator=(const FileWatch&) = delete;

  // Watches a file, or all those that fit; if a file is a link, also the file that it
  // leads to. The folder of a pattern may be created later, but its parent must exist.
  // Problem: that folder cannot be watched.
  Result<> addFile(const std::string& path);
  Result<> addFiles(const FilePattern& pattern);

  // Becomes readable when something has happened in one of the folders.
  int descriptor() const { return descriptor_; }

  // Takes what has happened, and does not wait for more. Returns whether a file
  // that is watched has been written, has come or has gone.
  bool takeChanges();

  // Waits for such a change, and until no other one follows at once: an editor may
  // save in several steps, which belong together. False when that fails.
  bool wait();

 private:
  struct Watched {
    FilePattern pattern;
    bool isOneFile;  // Whose name is the beginning.

    bool fits(std::string_view name) const {
      return isOneFile ? name == pattern.begin : pattern.fits(name);
    }
  };

  int addFolder(const std::string& folder);  // -1, with errno set, on failure.
  void addAllFolders();
  void addTarget(const std::string& link);
  bool isAboutWatched(int folder, unsigned mask, const std::string& name);

  int descriptor_;
  std::vector<Watched> watched_;
  std::set<std::string> files_;                   // As they were added,
  std::set<std::string> targets_;                 // and what those that are links have led to.
  std::map<int, std::set<std::string>> folders_;  // The spellings of each watched one.
};

}  // namespace driver_feature::host

#endif  // HOST_BASE_FILE_WATCH_H_
