// "preview": the page of a description, which a program of its own shows.

#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <string>
#include <vector>

#include "programs/driver_feature/change_arguments.h"
#include "programs/driver_feature/commands/commands.h"

namespace driver_feature::cli {

namespace {

constexpr const char* kFooter =
    "The page shows the description as a print dialog, and beside it the output:\n"
    "PostScript, PJL, the job ticket, the log and a sample page. It changes with each\n"
    "click, and whenever the description or a file beside it is saved. Its address is\n"
    "printed, and can be reached from this machine only. Ctrl-C ends it.\n"
    "\n"
    "The program driver-feature-preview does the work. It is searched for beside this\n"
    "one, and then in PATH.\n"
    "\n"
    "Examples:\n"
    "  driver-feature preview --open office.xml\n"
    "  driver-feature preview office.xml --callbacks liboffice_routines.so --port 8080\n"
    "\n"
    "Exit status: 0 after Ctrl-C, 1 the page cannot be shown, 2 wrong usage or a file\n"
    "that cannot be read.";

constexpr std::array kRows = {
    kDescriptionRow,
    ArgumentRow{"--port", "N", "Serve the page on this port; by default a free one"},
    ArgumentRow{"--open", "", "Show the page in the browser"},
    ArgumentRow{"--no-open", "", "Only print its address; the default", kOptional, "--open"},
};

constexpr const char* kProgram = "driver-feature-preview";

// Returns only when there is no such program.
void become(const std::string& program, std::vector<std::string> words) {
  std::vector<char*> pointers;
  pointers.reserve(words.size() + 1);
  for (std::string& word : words) pointers.push_back(word.data());
  pointers.push_back(nullptr);
  ::execvp(program.c_str(), pointers.data());
}

std::vector<std::string> wordsOf(const Arguments& arguments, const host::SessionRequest& general) {
  std::vector<std::string> words = {kProgram};
  if (!general.library.empty()) words.insert(words.end(), {"--library", general.library});
  for (const std::string& library : general.routines) {
    words.insert(words.end(), {"--callbacks", library});
  }
  if (arguments.has("--port")) words.insert(words.end(), {"--port", arguments.text("--port")});
  if (arguments.has("--open")) words.emplace_back("--open");
  words.insert(words.end(), {"--", arguments.text("DESC")});
  return words;
}

host::Result<int> run(const Arguments& arguments, const host::SessionRequest& general) {
  const std::vector<std::string> words = wordsOf(arguments, general);
  std::error_code ignored;
  const auto self = std::filesystem::read_symlink("/proc/self/exe", ignored);
  become(self.parent_path() / kProgram, words);
  if (errno == ENOENT) become(kProgram, words);
  const std::string reason = errno == ENOENT ? "is not installed" : std::strerror(errno);
  return host::fail(host::Problem::Kind::kNotLoaded,
                    std::string("the program ") + kProgram + ", which shows the page, cannot be " +
                        "started: " + reason + "; install driver-feature as a whole");
}

}  // namespace

const CommandRow kPreviewCommand = {
    "preview", "Show a description as a print dialog in the browser, with its output",
    kFooter,   kRows,
    {},        &run};

}  // namespace driver_feature::cli
