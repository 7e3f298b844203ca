#include "host/version.h"

#include "host/console.h"
#include "host/output_file.h"
#include "host/plugin.h"

namespace driver_feature {

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

int printVersions(const std::string& library) {
  std::string text = "driver-feature " DRIVER_FEATURE_VERSION " (" + buildText() + ")\n";
  std::string problem;
  const auto plugin = Plugin::load(library, problem);
  if (plugin) {
    text += std::string(plugin->displayName()) + " " + plugin->version() + " (" + plugin->path() +
            ")\n";
  } else if (!library.empty()) {
    complain(problem);
    return kFailure;
  }
  const WriteProblem writeProblem = writeToStandardOutput(text);
  if (!writeProblem) return kSuccess;
  complain(*writeProblem);
  return kFailure;
}

}  // namespace driver_feature
