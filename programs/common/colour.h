// Whether to print in colour.
#ifndef PROGRAMS_COMMON_COLOUR_H_
#define PROGRAMS_COMMON_COLOUR_H_

#include <string>

#include "host/base/result.h"

namespace driver_feature::cli {

// Whether standard output is a terminal with colours, and the environment does
// not turn them off (NO_COLOR).
bool terminalWantsColour();

// "always", "never", or "auto": as terminalWantsColour() says. Refused for other
// words.
host::Result<bool> wantsColour(const std::string& when);

}  // namespace driver_feature::cli

#endif  // PROGRAMS_COMMON_COLOUR_H_
