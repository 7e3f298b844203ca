#include "programs/driver_feature/version.h"

#include "host/session/plugin.h"

namespace driver_feature::cli {

namespace {

#if defined(__clang__)
constexpr const char* kCompiler = "Clang " __clang_version__;
#else
constexpr const char* kCompiler = "GCC " __VERSION__;
#endif

// The program's, which need not be the machine's.
#if defined(__x86_64__)
constexpr const char* kArchitecture = "x86_64";
#elif defined(__i386__)
constexpr const char* kArchitecture = "i386";
#elif defined(__aarch64__)
constexpr const char* kArchitecture = "aarch64";
#else
constexpr const char* kArchitecture = "other architecture";
#endif

std::string buildText() {
  std::string compiler = kCompiler;
  compiler.erase(compiler.find_last_not_of(' ') + 1);
  return std::string(DRIVER_FEATURE_BUILD) + ", " + compiler + ", " + kArchitecture;
}

}  // namespace

host::Result<std::string> versionText(const std::string& library) {
  std::string text = "driver-feature " DRIVER_FEATURE_VERSION " (" + buildText() + ")\n";
  host::Result<host::Plugin> plugin = host::Plugin::load(library);
  if (!plugin && !library.empty()) return failureOf(plugin);
  if (plugin) {
    text += std::string(plugin->displayName()) + " " + plugin->version() + " (" + plugin->path() +
            ")\n";
  }
  return text;
}

std::string programVersion() {
  return DRIVER_FEATURE_VERSION;
}

}  // namespace driver_feature::cli
