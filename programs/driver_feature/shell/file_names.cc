#include "programs/driver_feature/shell/file_names.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace driver_feature::cli {

namespace fs = std::filesystem;

std::vector<std::string> filesThatBeginWith(const std::string& word) {
  const std::string folder = word.substr(0, word.rfind('/') + 1);
  std::vector<std::string> paths;
  std::error_code error;
  fs::directory_iterator entry(folder.empty() ? "." : folder, error);
  for (const fs::directory_iterator end; !error && entry != end; entry.increment(error)) {
    const std::string path = folder + entry->path().filename().string();
    if (!path.starts_with(word)) continue;
    std::error_code unknown;
    paths.push_back(entry->is_directory(unknown) ? path + "/" : path);
  }
  std::sort(paths.begin(), paths.end());
  return paths;
}

std::string lastPart(const std::string& path) {
  if (path.size() < 2) return path;
  const std::size_t slash = path.rfind('/', path.size() - 2);
  return slash == std::string::npos ? path : path.substr(slash + 1);
}

}  // namespace driver_feature::cli
