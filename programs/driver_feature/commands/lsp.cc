// "lsp": the language server, for editors.

#include <unistd.h>

#include <array>

#include "programs/driver_feature/commands/commands.h"
#include "programs/driver_feature/lsp/serve.h"

namespace driver_feature::cli {

namespace {

constexpr const char* kFooter =
    "Speaks the language server protocol on standard input and output. Editors show\n"
    "what \"check\" finds while a description is typed, offer safe fixes, explain\n"
    "elements and attributes, complete names, and show an outline of the description.\n"
    "docs/editors.md says how to set up Emacs, Neovim, VS Code and others.\n"
    "\n"
    "Routines are searched for in the program, in the libraries given with --callbacks,\n"
    "and in those that the editor names in its initializationOptions:\n"
    "  {\"callbacks\": [\"/usr/local/lib/liboffice_routines.so\"]}\n"
    "\n"
    "Examples:\n"
    "  driver-feature lsp --callbacks liboffice_routines.so\n"
    "\n"
    "Exit status: 0 the editor has ended the server, 1 the connection was lost, 2 the\n"
    "input is not the protocol.";

constexpr std::array kRows = {
    ArgumentRow{"--stdio", "", "Use standard input and output; the default"},
};

host::Result<int> run(const Arguments& /*arguments*/, const host::SessionRequest& general) {
  return serveLanguage(STDIN_FILENO, STDOUT_FILENO, general);
}

}  // namespace

const CommandRow kLspCommand = {"lsp", "Run the language server for editors", kFooter, kRows, {},
                                &run};

}  // namespace driver_feature::cli
