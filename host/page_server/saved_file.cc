#include "host/page_server/saved_file.h"

#include <algorithm>
#include <filesystem>

#include "host/base/input_file.h"
#include "host/base/output_file.h"
#include "host/base/text.h"
#include "host/description/beside_files.h"

namespace driver_feature::page_server {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kLongestName = 100;
constexpr std::string_view kEnding = ".settings";

bool isFileName(const std::string& name) {
  return !name.empty() && name.size() <= kLongestName && host::printable(name) == name &&
         name.find('/') == std::string::npos && name.find('\\') == std::string::npos &&
         !name.starts_with('.');
}

bool isLink(const fs::path& path) {
  std::error_code ignored;
  return fs::is_symlink(fs::symlink_status(path, ignored));
}

}  // namespace

host::Result<std::string> savedFile(const std::string& description, SavedKind kind,
                                    const std::string& name) {
  if (!isFileName(name)) {
    return host::refused(host::inQuotes(name) +
                         " cannot be a file's name; leave out slashes and control characters, "
                         "and do not begin with a dot");
  }
  const fs::path folder = kind == SavedKind::kPreset
                              ? fs::path(host::besideName(description, ".presets"))
                              : fs::path(description).parent_path();
  const fs::path file = folder / (name + std::string(kEnding));
  const bool isLinked = isLink(file) || (kind == SavedKind::kPreset && isLink(folder));
  if (isLinked) {
    return host::refused(file.string() + " is a link, or in one; give another name");
  }
  return file.string();
}

host::Result<SaveEnd> saveText(const std::string& file, const std::string& text, bool replaces) {
  std::error_code ignored;
  if (fs::exists(fs::symlink_status(file, ignored))) {
    const auto before = host::readFile(file);
    if (before && *before == text) return SaveEnd::kSame;
    if (!replaces) return SaveEnd::kOther;
  }
  host::OutputText output{file, text};
  output.makesFolder = true;
  if (auto written = host::writeAllOutputs({output}); !written) return failureOf(written);
  return SaveEnd::kWritten;
}

host::Result<std::string> sourceFile(const std::string& description, const std::string& name) {
  const fs::path path(description);
  const fs::path folder = path.parent_path();
  std::vector<std::string> files = {description, host::rulesFileOf(description)};
  for (const host::NamedFile& file : host::poFilesOf(description)) files.push_back(file.path);
  for (const host::NamedFile& file : host::presetFilesOf(description)) files.push_back(file.path);
  for (const std::string& file : files) {
    const fs::path shown = fs::path(file).lexically_relative(folder.empty() ? "." : folder);
    if (shown.string() == name || file == name) return file;
  }
  return host::refused(host::inQuotes(name) + " is not one of the description's files");
}

}  // namespace driver_feature::page_server
