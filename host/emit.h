// Printer-ready output of a session.
#ifndef HOST_EMIT_H_
#define HOST_EMIT_H_

#include <optional>
#include <string>
#include <vector>

#include "host/changes.h"
#include "host/session.h"

namespace driver_feature {

// The library's codes of its output forms.
enum class OutputForm : int { kPjl = 0, kPostScript = 1, kTicket = 2 };

// The form that "ps", "pjl" or "ticket" names; nothing for any other name.
std::optional<OutputForm> formNamed(const std::string& name);

// The names of all forms.
std::vector<std::string> formNames();

// One output: its form, and the file that receives it.
struct FormRequest {
  OutputForm form = OutputForm::kPostScript;
  std::string file;  // Empty for what EmitRequest::file says.
};

struct EmitRequest {
  std::vector<FormRequest> forms;
  bool installableOptions = false;  // The ticket may use the names of installable options.
  std::string ticketArgument1;      // Handed on to the ticket writer.
  std::string ticketArgument2;
  std::string file;  // Of the one form that has no file of its own; empty for standard output.
};

// Opens the session, makes the changes and writes the outputs. Answers the
// program's exit status. Nothing is written unless every change was made and
// every output was produced.
int emit(const SessionRequest& sessionRequest, const Changes& changes, const EmitRequest& request);

}  // namespace driver_feature

#endif  // HOST_EMIT_H_
