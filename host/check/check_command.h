// driver-feature check: finds all faults of feature descriptions.
#ifndef HOST_CHECK_CHECK_COMMAND_H_
#define HOST_CHECK_CHECK_COMMAND_H_

#include "host/command.h"

namespace driver_feature {

// Adds the command "check". It takes the library and the libraries of
// routines from `general`; a detail of kErrors leaves the warnings out.
//
// Its status is 0 when nothing is wrong, 1 after errors (or warnings, when
// they are to count) and when the library cannot be used, and 2 when a file
// is no feature description.
Command addCheckCommand(CLI::App& program, const SessionRequest& general);

}  // namespace driver_feature

#endif  // HOST_CHECK_CHECK_COMMAND_H_
