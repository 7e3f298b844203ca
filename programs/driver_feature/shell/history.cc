#include "programs/driver_feature/shell/history.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "host/base/output_file.h"
#include "programs/driver_feature/shell/words.h"

namespace driver_feature::cli {

namespace {

namespace fs = std::filesystem;

fs::path absolutePathIn(const char* variable) {
  const char* value = std::getenv(variable);
  const fs::path path = value != nullptr ? value : "";
  return path.is_absolute() ? path : fs::path();
}

}  // namespace

std::string historyFile() {
  fs::path folder = absolutePathIn("XDG_STATE_HOME");
  if (folder.empty()) {
    const fs::path home = absolutePathIn("HOME");
    if (home.empty()) return "";
    folder = home / ".local" / "state";
  }
  return folder / "driver-feature" / "history";
}

bool makeHistoryFile(const std::string& file) {
  fs::path folder;
  for (const fs::path& part : fs::path(file).parent_path()) {
    folder /= part;
    ::mkdir(folder.c_str(), S_IRWXU);
  }
  const int descriptor = ::open(file.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR);
  if (descriptor == -1) return false;
  ::close(descriptor);
  return true;
}

std::vector<std::string> readHistory(const std::string& file, std::size_t most) {
  std::vector<std::string> lines;
  std::ifstream input(file);
  for (std::string line; std::getline(input, line);) lines.push_back(line);
  const std::size_t dropped = lines.size() - std::min(lines.size(), most);
  lines.erase(lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(dropped));
  return lines;
}

void appendHistory(const std::string& file, const std::vector<std::string>& lines,
                   std::size_t most) {
  std::string added;
  for (const std::string& line : lines) added += line + "\n";
  std::ofstream output(file, std::ios::app);
  // One call: what another shell adds does not get in between.
  output << added << std::flush;
  if (!output || readHistory(file, most + 1).size() <= most) return;
  std::string kept;
  for (const std::string& line : readHistory(file, most)) kept += line + "\n";
  host::writeToFile(file, kept);
}

bool isKept(const host::Model& model, const std::string& line) {
  if (line.empty() || line.front() == ' ' || line.front() == '\t') return false;
  Words words;
  // What cannot be split may still hold the value.
  splitWords(line, words);
  return std::none_of(words.begin(), words.end(), [&model](const std::string& word) {
    // A record's values are written NAME=VALUE.
    const auto feature = model.features.find(word.substr(0, word.find('=')));
    return feature != model.features.end() && feature->second.isEncrypted();
  });
}

}  // namespace driver_feature::cli
