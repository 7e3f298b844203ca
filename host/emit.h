// Printer-ready output of a session.
#ifndef HOST_EMIT_H_
#define HOST_EMIT_H_

#include <string>

#include "host/changes.h"
#include "host/session.h"

namespace driver_feature {

// The library's codes of its output forms.
enum class OutputForm : int { kPjl = 0, kPostScript = 1, kTicket = 2 };

struct EmitRequest {
  OutputForm form = OutputForm::kPostScript;
  bool installableOptions = false;  // The ticket may use the names of installable options.
  std::string ticketArgument1;      // Handed on to the ticket writer.
  std::string ticketArgument2;
  std::string file;  // Empty for standard output.
};

// Opens the session, makes the changes and writes the output. Answers the
// program's exit status. Nothing is written unless every change was made.
int emit(const SessionRequest& sessionRequest, const Changes& changes, const EmitRequest& request);

}  // namespace driver_feature

#endif  // HOST_EMIT_H_
