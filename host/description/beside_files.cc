#include "host/description/beside_files.h"

#include <algorithm>
#include <filesystem>
#include <utility>

namespace driver_feature::host {

namespace {

using Path = std::filesystem::path;

FilePattern poPattern(const std::string& description) {
  const Path stem = besideName(description, ".");
  const Path folder = stem.parent_path();
  return {folder.empty() ? "." : folder.string(), stem.filename().string(), ".po"};
}

FilePattern presetPattern(const std::string& description) {
  return {besideName(description, ".presets"), "", ".settings"};
}

std::vector<NamedFile> filesOf(const FilePattern& pattern) {
  std::vector<NamedFile> files;
  std::error_code error;
  for (std::filesystem::directory_iterator entry(pattern.folder, error), last;
       !error && entry != last; entry.increment(error)) {
    const std::string file = entry->path().filename().string();
    if (!pattern.fits(file)) continue;
    const std::size_t length = file.size() - pattern.begin.size() - pattern.end.size();
    files.push_back({entry->path().string(), file.substr(pattern.begin.size(), length)});
  }
  std::sort(files.begin(), files.end(),
            [](const NamedFile& a, const NamedFile& b) { return Path(a.path) < Path(b.path); });
  return files;
}

}  // namespace

std::string besideName(const std::string& description, const std::string& ending) {
  return Path(description).replace_extension().string() + ending;
}

std::string rulesFileOf(const std::string& description) {
  return besideName(description, ".rules.xml");
}

std::vector<NamedFile> poFilesOf(const std::string& description) {
  std::vector<NamedFile> files = filesOf(poPattern(description));
  // As the description is spelled: without "./".
  const Path folder = Path(description).parent_path();
  for (NamedFile& file : files) file.path = (folder / Path(file.path).filename()).string();
  return files;
}

std::vector<NamedFile> presetFilesOf(const std::string& description) {
  return filesOf(presetPattern(description));
}

Result<> watchBeside(const std::string& description, FileWatch& watch) {
  if (Result<> added = watch.addFile(rulesFileOf(description)); !added) return added;
  if (Result<> added = watch.addFiles(poPattern(description)); !added) return added;
  return watch.addFiles(presetPattern(description));
}

}  // namespace driver_feature::host
