// The command "import": makes feature descriptions of PPD files.
#ifndef HOST_PPD_IMPORT_COMMAND_H_
#define HOST_PPD_IMPORT_COMMAND_H_

#include "host/command.h"

namespace driver_feature {

Command addImportCommand(CLI::App& program, const SessionRequest& general);

}  // namespace driver_feature

#endif  // HOST_PPD_IMPORT_COMMAND_H_
