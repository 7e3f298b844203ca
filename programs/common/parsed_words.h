// How the programs with few arguments read their command line. In a header, so that
// no further source takes the time that CLI11 needs to compile.
#ifndef PROGRAMS_COMMON_PARSED_WORDS_H_
#define PROGRAMS_COMMON_PARSED_WORDS_H_

#include <CLI/CLI.hpp>
#include <algorithm>
#include <optional>
#include <string>

#include "host/base/result.h"

namespace driver_feature::cli {

// Adds --version to the options of `app`, whose name is the program's, and has it
// read the words. Returns the text to print instead of working, for --help and
// --version; nothing when there is work to do. Refused: words that `app` does not
// understand.
inline host::Result<std::optional<std::string>> parseWords(CLI::App& app, int argc,
                                                           const char* const* argv) {
  bool isVersion = false;
  app.add_flag("--version", isVersion, "Show the version");
  try {
    app.parse(argc, argv);
  } catch (const CLI::CallForHelp&) {
    return app.help();
  } catch (const CLI::ParseError& error) {
    std::string reason = error.what();
    std::replace(reason.begin(), reason.end(), '\n', ' ');
    return host::refused(reason + "; " + app.get_name() + " --help explains the usage");
  }
  if (isVersion) return app.get_name() + " " DRIVER_FEATURE_VERSION "\n";
  return std::nullopt;
}

}  // namespace driver_feature::cli

#endif  // PROGRAMS_COMMON_PARSED_WORDS_H_
