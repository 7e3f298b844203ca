// The commands of the program.
#ifndef PROGRAMS_DRIVER_FEATURE_COMMANDS_COMMANDS_H_
#define PROGRAMS_DRIVER_FEATURE_COMMANDS_COMMANDS_H_

#include "programs/driver_feature/arguments.h"

namespace driver_feature::cli {

extern const CommandRow kCheckCommand;
extern const CommandRow kShowCommand;
extern const CommandRow kEmitCommand;
extern const CommandRow kDumpCommand;
extern const CommandRow kTryCommand;
extern const CommandRow kResolveCommand;
extern const CommandRow kDiffCommand;
extern const CommandRow kNewCommand;
extern const CommandRow kTestCommand;
extern const CommandRow kImportCommand;
extern const CommandRow kQueueCommand;
extern const CommandRow kShellCommand;
extern const CommandRow kPreviewCommand;
extern const CommandRow kLspCommand;
extern const CommandRow kHelpCommand;

}  // namespace driver_feature::cli

#endif  // PROGRAMS_DRIVER_FEATURE_COMMANDS_COMMANDS_H_
