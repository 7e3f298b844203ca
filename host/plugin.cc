#include "host/plugin.h"

#include <dlfcn.h>

#include <filesystem>
#include <string_view>

#include "model/core_feature_set.h"

namespace driver_feature {

namespace {

namespace fs = std::filesystem;

constexpr const char* kFileName = "libDriverFeature.so";
constexpr std::string_view kInterfaceVersion = "v1.0";

// The loader takes a name without a slash for one that it has to search.
std::string asPath(const std::string& path) {
  return path.find('/') == std::string::npos ? "./" + path : path;
}

std::string findLibrary() {
  std::error_code error;
  const fs::path program = fs::read_symlink("/proc/self/exe", error);
  if (!error) {
    const fs::path folder = program.parent_path();
    for (const char* place : {"../lib", "../" DRIVER_FEATURE_LIBRARY_FOLDER, ".",
                              "../../../" DRIVER_FEATURE_LIBRARY_FOLDER}) {
      const fs::path candidate = (folder / place / kFileName).lexically_normal();
      if (fs::exists(candidate, error)) return candidate;
    }
  }
  return kFileName;
}

std::string loaderError() {
  const char* text = ::dlerror();
  return text != nullptr ? text : "unknown error";
}

}  // namespace

std::unique_ptr<Plugin> Plugin::load(const std::string& path, std::string& problem) {
  const std::string file = path.empty() ? findLibrary() : asPath(path);
  // Globally, so that a library of routines may call the exported functions.
  void* library = ::dlopen(file.c_str(), RTLD_NOW | RTLD_GLOBAL);
  if (library == nullptr) {
    problem =
        "the feature library cannot be loaded: " + loaderError() + "; name it with --library PATH";
    return nullptr;
  }
  std::unique_ptr<Plugin> plugin(new Plugin(library, file));
  if (!plugin->bind(problem)) return nullptr;
  return plugin;
}

CoreFeatureSet& Plugin::features() const {
  return *static_cast<CoreFeatureSet*>(getFeatures_());
}

void* Plugin::find(const std::string& symbol) const {
  return ::dlsym(library_, symbol.c_str());
}

template <class Pointer>
bool Plugin::bindSymbol(const std::string& symbol, Pointer& pointer, std::string& problem) const {
  pointer = reinterpret_cast<Pointer>(find(symbol));
  if (pointer != nullptr) return true;
  problem = path_ + ": is not a feature library, because it does not export " + symbol +
            "; name another one with --library PATH";
  return false;
}

bool Plugin::bindText(const std::string& symbol, const char*& text, std::string& problem) const {
  const char* const* record = nullptr;
  if (!bindSymbol(symbol, record, problem)) return false;
  text = *record != nullptr ? *record : "";
  return true;
}

bool Plugin::bindRecord(std::string& problem) {
  const char* handlerName = nullptr;
  if (!bindText("_KirvoSOVersion", version_, problem) ||
      !bindText("_KirvoSODisplayName", displayName_, problem) ||
      !bindText("_KirvoNDTagHandlerFunction", handlerName, problem)) {
    return false;
  }
  if (version_ != kInterfaceVersion) {
    problem = path_ + ": speaks version \"" + version_ + "\" of the plug-in interface, not \"" +
              std::string(kInterfaceVersion) + "\"; name another library with --library PATH";
    return false;
  }
  return bindSymbol(handlerName, handler_, problem);
}

bool Plugin::bind(std::string& problem) {
  return bindRecord(problem) && bindSymbol("GetMasterFeatureList", getFeatures_, problem) &&
         bindSymbol("SetFeatureCreationCompleteFlag", completeCreation_, problem) &&
         bindSymbol("_Z30setDriverFeatureUpdateCallbackPFbvE", setUpdateCallback_, problem) &&
         bindSymbol("SaveCurrentFeatureValues", save_, problem) &&
         bindSymbol("RestoreOriginalFeatureValues", restore_, problem);
}

bool loadRoutines(const std::string& path, std::string& problem) {
  if (::dlopen(asPath(path).c_str(), RTLD_NOW | RTLD_GLOBAL) != nullptr) return true;
  problem = "the library of routines cannot be loaded: " + loaderError() +
            "; check the path given with --callbacks";
  return false;
}

}  // namespace driver_feature
