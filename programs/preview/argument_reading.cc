// The only source of the program that knows the library which reads command lines.

#include <unistd.h>

#include <CLI/CLI.hpp>
#include <cerrno>
#include <cstring>
#include <filesystem>

#include "programs/common/parsed_words.h"
#include "programs/preview/arguments.h"

namespace driver_feature::preview {

namespace {

namespace fs = std::filesystem;

constexpr const char* kFooter =
    "Prints the address of the page, which can be reached from this machine only and\n"
    "cannot be guessed. The page follows the description, and the files beside it,\n"
    "whenever they are saved. Ctrl-C ends the program.\n"
    "\n"
    "Examples:\n"
    "  driver-feature-preview --open office.xml\n"
    "  driver-feature-preview --callbacks liboffice_routines.so --port 8080 office.xml\n"
    "\n"
    "Exit status: 0 after SIGTERM or SIGINT, 1 the page cannot be shown, 2 wrong usage\n"
    "or a file that cannot be read.";

struct Words {
  std::vector<std::string> callbacks;
  std::string library, description;
  unsigned port = 0;
  bool opens = false;
  bool opensNot = false;
};

void addOptions(CLI::App& app, Words& words) {
  app.add_option("--port", words.port, "Serve the page on this port; by default a free one")
      ->check(CLI::Range(0, 65535))
      ->type_name("NUMBER");
  app.add_option("--library", words.library, "The feature library to load")->type_name("PATH");
  app.add_option("--callbacks", words.callbacks,
                 "Load a library of routines that the description names. May be repeated")
      ->type_name("LIB.so")
      ->allow_extra_args(false);
  CLI::Option* open = app.add_flag("--open", words.opens, "Show the page in the browser");
  app.add_flag("--no-open", words.opensNot, "Only print its address; the default")->excludes(open);
  app.add_option("DESC", words.description, "The feature description, an XML file")
      ->type_name("FILE");
}

host::Result<Arguments> argumentsOf(const Words& words) {
  const std::string& file = words.description;
  if (file.empty()) {
    return host::refused(
        "a feature description is needed; driver-feature-preview --help explains the usage");
  }
  if (file == "-") {
    return host::refused("standard input (\"-\") cannot be followed; give a file");
  }
  std::error_code ignored;
  if (fs::is_directory(file, ignored)) {
    return host::refused(file + ": is a folder; give a feature description, an XML file");
  }
  if (::access(file.c_str(), R_OK) != 0) {
    return host::refused(file + ": cannot be read: " + std::strerror(errno));
  }
  Arguments arguments;
  arguments.description = file;
  arguments.library = words.library;
  arguments.routines = words.callbacks;
  arguments.port = words.port;
  arguments.opens = words.opens;
  return arguments;
}

}  // namespace

host::Result<Line> readLine(int argc, const char* const* argv) {
  Words words;
  CLI::App app("Show a feature description as a print dialog, with its output",
               "driver-feature-preview");
  app.footer(kFooter);
  addOptions(app, words);
  auto text = cli::parseWords(app, argc, argv);
  if (!text) return failureOf(text);
  if (*text) return Line{std::nullopt, std::move(**text)};
  auto arguments = argumentsOf(words);
  if (!arguments) return failureOf(arguments);
  return Line{std::move(*arguments), ""};
}

}  // namespace driver_feature::preview
