// Runs the language server on two descriptors.
#ifndef PROGRAMS_DRIVER_FEATURE_LSP_SERVE_H_
#define PROGRAMS_DRIVER_FEATURE_LSP_SERVE_H_

#include "host/base/result.h"
#include "host/session/session.h"

namespace driver_feature::cli {

// Reads messages from `input` and writes to `output`, until the client ends the
// server or closes one of them. A text is checked when no message waits to be
// read, and again when a file beside it changes; a check whose text changes
// meanwhile is given up. Returns the exit status
// that the protocol asks for. Problems: what comes is not the protocol; it cannot
// be written.
host::Result<int> serveLanguage(int input, int output, const host::SessionRequest& general);

}  // namespace driver_feature::cli

#endif  // PROGRAMS_DRIVER_FEATURE_LSP_SERVE_H_
