// The command "queue": writes the PPD of a print queue.
#ifndef HOST_QUEUE_QUEUE_COMMAND_H_
#define HOST_QUEUE_QUEUE_COMMAND_H_

#include "host/command.h"

namespace driver_feature {

Command addQueueCommand(CLI::App& program, const SessionRequest& general);

}  // namespace driver_feature

#endif  // HOST_QUEUE_QUEUE_COMMAND_H_
