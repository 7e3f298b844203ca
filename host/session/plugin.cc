#include "host/session/plugin.h"

#include <dlfcn.h>

#include <filesystem>
#include <string_view>

#include "model/core_feature_set.h"

#include "host/session/routine_look_up.h"

namespace driver_feature::host {

namespace {

namespace fs = std::filesystem;

constexpr const char* kFileName = "libDriverFeature.so";
constexpr std::string_view kInterfaceVersion = "v1.0";

// The loader searches for a name without a slash.
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

Failure notLoaded(std::string reason) {
  return fail(Problem::Kind::kNotLoaded, std::move(reason));
}

}  // namespace

Result<Plugin> Plugin::load(const std::string& path) {
  const std::string file = path.empty() ? findLibrary() : asPath(path);
  // Loaded globally, so that a library of routines may call the exported
  // functions.
  void* library = ::dlopen(file.c_str(), RTLD_NOW | RTLD_GLOBAL);
  if (library == nullptr) {
    return notLoaded("the feature library cannot be loaded: " + loaderError() +
                     "; name it with --library PATH");
  }
  Plugin plugin(library, file);
  if (Result<> bound = plugin.bind(); !bound) return failureOf(bound);
  return plugin;
}

CoreFeatureSet& Plugin::features() const {
  return *static_cast<CoreFeatureSet*>(getFeatures_());
}

void* Plugin::find(const std::string& symbol) const {
  return ::dlsym(library_, symbol.c_str());
}

template <class Pointer>
Result<> Plugin::bindSymbol(const std::string& symbol, Pointer& pointer) const {
  pointer = reinterpret_cast<Pointer>(find(symbol));
  if (pointer != nullptr) return {};
  return notLoaded(path_ + ": is not a feature library, because it does not export " + symbol +
                   "; name another one with --library PATH");
}

Result<> Plugin::bindText(const std::string& symbol, const char*& text) const {
  const char* const* record = nullptr;
  return bindSymbol(symbol, record).map([&] { text = *record != nullptr ? *record : ""; });
}

Result<> Plugin::bindRecord() {
  const char* handlerName = nullptr;
  return bindText("_KirvoSOVersion", version_)
      .and_then([&] { return bindText("_KirvoSODisplayName", displayName_); })
      .and_then([&] { return bindText("_KirvoNDTagHandlerFunction", handlerName); })
      .and_then([&]() -> Result<> {
        if (version_ == kInterfaceVersion) return bindSymbol(handlerName, handler_);
        return notLoaded(path_ + ": has version \"" + version_ +
                         "\" of the plug-in interface, not \"" + std::string(kInterfaceVersion) +
                         "\"; name another library with --library PATH");
      });
}

Result<> Plugin::bind() {
  return bindRecord()
      .and_then([&] { return bindSymbol("GetMasterFeatureList", getFeatures_); })
      .and_then([&] { return bindSymbol("SetFeatureCreationCompleteFlag", completeCreation_); })
      .and_then(
          [&] { return bindSymbol("_Z30setDriverFeatureUpdateCallbackPFbvE", setUpdateCallback_); })
      .and_then([&] { return bindSymbol("SaveCurrentFeatureValues", save_); })
      .and_then([&] { return bindSymbol("RestoreOriginalFeatureValues", restore_); });
}

Result<> loadRoutines(const std::string& path) {
  if (openRoutines(asPath(path)) != nullptr) return {};
  return notLoaded("the library of routines cannot be loaded: " + loaderError() +
                   "; check the path given with --callbacks");
}

}  // namespace driver_feature::host
