// "lsp": the language server, for editors.

#include <unistd.h>

#include <array>

#include "programs/driver_feature/commands/commands.h"
#include "programs/driver_feature/lsp/serve.h"

namespace driver_feature::cli {

namespace {

constexpr const char* kFooter =
    "Speaks the language server protocol on standard input and output. Editors show\n"
    "what \"check\" finds while a description is typed, mend what can surely be mended,\n"
    "explain elements and attributes, complete names, and list what the description\n"
    "has. docs/editors.md says how to set up Emacs, Neovim, VS Code and others.\n"
    "\n"
    "Routines are searched for in the program, in the libraries given with --callbacks,\n"
    "and in those that the editor names in its initializationOptions:\n"
    "  {\"callbacks\": [\"/usr/local/lib/liboffice_routines.so\"]}\n"
    "\n"
    "Examples:\n"
    "  driver-feature lsp --callbacks liboffice_routines.so\n"
    "\n"
    "Exit status: 0 the editor has ended the server, 1 it has gone without saying so, or\n"
    "cannot be written to, 2 what comes from it is not the protocol.";

constexpr std::array kRows = {
    ArgumentRow{"--stdio", "", "Use standard input and output, as without it; for editors"},
};

host::Result<int> run(const Arguments& /*arguments*/, const host::SessionRequest& general) {
  return serveLanguage(STDIN_FILENO, STDOUT_FILENO, general);
}

}  // namespace

const CommandRow kLspCommand = {
    "lsp", "Help editors to write feature descriptions", kFooter, kRows, {}, &run};

}  // namespace driver_feature::cli
