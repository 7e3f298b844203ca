#include "programs/driver_feature/commands/import_plan.h"

#include <strings.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <string_view>
#include <system_error>

namespace driver_feature::cli {

namespace {

namespace fs = std::filesystem;

bool hasEnding(std::string_view name, std::string_view ending) {
  return name.size() > ending.size() &&
         strncasecmp(name.data() + name.size() - ending.size(), ending.data(), ending.size()) == 0;
}

// The name without the endings of a PPD file.
std::string stemOf(std::string name) {
  for (const std::string_view ending : {".gz", ".ppd"}) {
    if (hasEnding(name, ending)) name.resize(name.size() - ending.size());
  }
  return name;
}

class Planner {
 public:
  explicit Planner(std::string folder) : folder_(std::move(folder)) {}

  // `place` is the file's folder as seen from the folder that is searched.
  void addFile(const fs::path& file, const fs::path& place) {
    fs::path output = folder_.empty() ? file.parent_path() : fs::path(folder_) / place;
    output /= stemOf(file.filename().string()) + ".xml";
    const auto [known, isNew] = files_.emplace(output.string(), file.string());
    if (isNew) {
      plan_.jobs.push_back({file.string(), output.string()});
    } else {
      plan_.problems.push_back(file.string() + ": its description would replace that of " +
                               known->second + ", " + known->first + "; import it on its own");
    }
  }

  void addFolder(const fs::path& folder, const fs::path& place) {
    std::error_code error;
    std::vector<fs::directory_entry> entries;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
      entries.push_back(*entry);
    }
    if (error) plan_.problems.push_back(folder.string() + ": cannot be read: " + error.message());
    std::sort(entries.begin(), entries.end());
    for (const fs::directory_entry& entry : entries) {
      const std::string name = entry.path().filename().string();
      if (entry.is_directory(error) && !entry.is_symlink(error)) {
        addFolder(entry.path(), place / name);
      } else if (hasEnding(name, ".ppd") || hasEnding(name, ".ppd.gz")) {
        addFile(entry.path(), place);
      }
    }
  }

  ImportPlan take() { return std::move(plan_); }

 private:
  std::string folder_;
  ImportPlan plan_;
  std::map<std::string, std::string> files_;  // Of each description.
};

}  // namespace

ImportPlan planFiles(const std::vector<std::string>& files, const std::string& folder) {
  Planner planner(folder);
  for (const std::string& file : files) planner.addFile(file, "");
  return planner.take();
}

ImportPlan planFolder(const std::string& source, const std::string& folder) {
  Planner planner(folder);
  planner.addFolder(source, "");
  return planner.take();
}

}  // namespace driver_feature::cli
