#include "programs/driver_feature/cases/case_folder.h"

#include <algorithm>
#include <filesystem>
#include <string_view>
#include <system_error>

#include "host/base/input_file.h"
#include "host/base/text.h"

namespace driver_feature::cli {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kLineBlanks = " \t\r";

host::Failure wrongLine(const std::string& file, int line, const std::string& text) {
  return host::Failure(
      host::Problem{host::Problem::Kind::kMalformed, text, "", "", file, {line, 0}});
}

host::Result<> takeLine(CaseFolder& folder, std::string_view line, int number) {
  const std::string file = folder.pathOf(kDriverFile);
  line = host::trimmed(line, kLineBlanks);
  if (line.empty() || line.front() == '#') return {};
  const std::size_t equals = line.find('=');
  const std::string key(host::trimmed(line.substr(0, equals), kLineBlanks));
  const std::string value(
      equals == std::string_view::npos ? "" : host::trimmed(line.substr(equals + 1), kLineBlanks));
  if (key != "Description" && key != "Routines") {
    return wrongLine(file, number,
                     "there is no setting " + host::inQuotes(key) +
                         "; write Description=FILE or Routines=LIBRARY.so");
  }
  if (value.empty()) return wrongLine(file, number, key + " has no value; name a file");
  if (key == "Routines") {
    folder.routines.push_back(folder.pathOf(value));
  } else if (folder.description.empty()) {
    folder.description = value;
  } else {
    return wrongLine(file, number,
                     "Description is given again; make a folder for each description");
  }
  return {};
}

host::Result<> readDriver(CaseFolder& folder) {
  const std::string file = folder.pathOf(kDriverFile);
  auto text = host::readFile(file);
  if (!text) {
    text.error().remedy =
        "write it, with the line \"Description=FILE\" and a line \"Routines=LIBRARY.so\" for each "
        "library of routines";
    return failureOf(text);
  }
  std::string_view rest = *text;
  for (int number = 1; !rest.empty(); ++number) {
    const std::size_t end = std::min(rest.find('\n'), rest.size());
    if (host::Result<> taken = takeLine(folder, rest.substr(0, end), number); !taken) return taken;
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  if (!folder.description.empty()) return {};
  return wrongLine(file, 0, "names no description; write the line \"Description=FILE\"");
}

bool isOutput(const std::string& extension) {
  return std::ranges::any_of(
      kCaseOutputs, [&](const char* kind) { return extension == "." + std::string(kind); });
}

host::Result<> listFiles(CaseFolder& folder) {
  std::error_code error;
  std::vector<fs::path> outputs;
  for (fs::directory_iterator entry(folder.path, error), end; !error && entry != end;
       entry.increment(error)) {
    const fs::path& file = entry->path();
    if (file.extension() == ".conf") folder.names.push_back(file.stem().string());
    if (isOutput(file.extension().string())) outputs.push_back(file);
  }
  if (error) {
    return host::fail(
        host::Problem::Kind::kUnreadable,
        folder.path + ": cannot be read: " + error.message() + "; give a folder of cases");
  }
  std::ranges::sort(folder.names);
  for (const fs::path& file : outputs) {
    if (std::ranges::binary_search(folder.names, file.stem().string())) continue;
    folder.strays.push_back(file.filename().string());
  }
  std::ranges::sort(folder.strays);
  return {};
}

}  // namespace

std::string CaseFolder::pathOf(const std::string& file) const {
  return (fs::path(path) / file).string();
}

host::Result<CaseFolder> readCaseFolder(const std::string& path) {
  CaseFolder folder;
  folder.path = path;
  if (host::Result<> listed = listFiles(folder); !listed) return failureOf(listed);
  if (host::Result<> read = readDriver(folder); !read) return failureOf(read);
  if (!folder.names.empty()) return folder;
  return host::refused(path +
                       ": has no case; write the settings of one to NAME.conf, as --save does");
}

host::Result<ExpectedOutputs> readExpected(const CaseFolder& folder, const std::string& name) {
  ExpectedOutputs outputs;
  for (std::size_t i = 0; i < outputs.size(); ++i) {
    const std::string file = folder.pathOf(name + "." + kCaseOutputs[i]);
    std::error_code error;
    if (!fs::exists(file, error) && !error) continue;
    auto bytes = host::readFile(file);
    if (!bytes) return failureOf(bytes);
    outputs[i] = std::move(*bytes);
  }
  return outputs;
}

}  // namespace driver_feature::cli
