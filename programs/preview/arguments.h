// What the program is asked to do.
#ifndef PROGRAMS_PREVIEW_ARGUMENTS_H_
#define PROGRAMS_PREVIEW_ARGUMENTS_H_

#include <optional>
#include <string>
#include <vector>

#include "host/base/result.h"

namespace driver_feature::preview {

struct Arguments {
  std::string description;
  std::string library;  // Empty for the installed one.
  std::vector<std::string> routines;
  unsigned port = 0;  // 0 for any that is free.
  bool opens = false;
};

// Reads the words of the command line. `arguments` is empty when `text` must be
// printed instead, for --help and --version. Refused when they cannot be
// understood.
struct Line {
  std::optional<Arguments> arguments;
  std::string text;
};
host::Result<Line> readLine(int argc, const char* const* argv);

}  // namespace driver_feature::preview

#endif  // PROGRAMS_PREVIEW_ARGUMENTS_H_
