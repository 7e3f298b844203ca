#include "programs/common/colour.h"

#include <unistd.h>

#include <cstdlib>
#include <string_view>

namespace driver_feature::cli {

namespace {

std::string_view environment(const char* name) {
  const char* value = std::getenv(name);
  return value != nullptr ? value : "";
}

}  // namespace

bool terminalWantsColour() {
  const std::string_view terminal = environment("TERM");
  return ::isatty(STDOUT_FILENO) == 1 && environment("NO_COLOR").empty() && !terminal.empty() &&
         terminal != "dumb";
}

host::Result<bool> wantsColour(const std::string& when) {
  if (when == "always") return true;
  if (when == "never") return false;
  if (when != "auto") {
    return host::refused("--color: \"" + when + "\" is unknown; give auto, always or never");
  }
  return terminalWantsColour();
}

}  // namespace driver_feature::cli
