#include "host/shell/history.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>

#include "host/shell/words.h"

namespace driver_feature {

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

bool isKept(const Model& model, const std::string& line) {
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

}  // namespace driver_feature
