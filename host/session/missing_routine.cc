#include "host/session/missing_routine.h"

#include <algorithm>
#include <cstdint>
#include <system_error>

#include "AttributeMap.h"
#include "Symbols.h"
#include "XMLParser.h"

#include "host/base/input_file.h"
#include "host/description/xml_element.h"

namespace driver_feature::host {

namespace {

namespace fs = std::filesystem;

// At most this much is read to find a library: a folder may hold all of a
// system's.
constexpr std::uintmax_t kBytesRead = 64U << 20U;

std::vector<fs::path> librariesIn(const fs::path& folder) {
  std::vector<fs::path> libraries;
  std::error_code error;  // A folder that cannot be read has none.
  for (fs::directory_iterator entry(folder.empty() ? "." : folder, error), end;
       !error && entry != end; entry.increment(error)) {
    std::error_code ignored;
    const fs::path name = entry->path().filename();
    if (name.extension() == ".so" && entry->is_regular_file(ignored)) {
      libraries.push_back(folder / name);
    }
  }
  std::sort(libraries.begin(), libraries.end());
  return libraries;
}

}  // namespace

std::string missingUpdateRoutine(void* description) {
  for (void* child = pParserInstance->firstChild(description); child != nullptr;
       child = pParserInstance->nextSibling(child)) {
    if (tagOf(child) != "BaseFeatureInfo") continue;
    AttributeMap attributes;
    pParserInstance->attributes(child, attributes);
    std::string name;
    if (!attributes.loadMapVariable("DefaultCallbackHandler", name, nullptr)) continue;
    if (FetchSymbol(name.c_str()) == nullptr) return name;
  }
  return "";
}

std::string libraryWithRoutine(const std::string& routine, const std::vector<fs::path>& folders) {
  // A library keeps the names of its routines as texts that end in NUL.
  const std::string text = '\0' + routine + '\0';
  std::uintmax_t read = 0;
  for (const fs::path& folder : folders) {
    for (const fs::path& library : librariesIn(folder)) {
      std::error_code error;
      const std::uintmax_t size = fs::file_size(library, error);
      if (error || size > kBytesRead - read) continue;
      read += size;
      const Result<std::string> bytes = readFile(library);
      if (bytes && bytes->find(text) != std::string::npos) return library;
    }
  }
  return "LIB.so";
}

}  // namespace driver_feature::host
