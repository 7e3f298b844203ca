// What runs in the process of a model worker.
#ifndef PROGRAMS_PRINTER_MODEL_PROCESS_H_
#define PROGRAMS_PRINTER_MODEL_PROCESS_H_

#include <string>

#include "host/ppd/queue/queue_lines.h"
#include "programs/printer/hardware.h"

namespace driver_feature::printer {

// Loads the description. Writes a frame "+" and then the capabilities as JSON and
// the PPD, or one frame "-PROBLEM". From then on each frame with settings is
// replied to with one frame that has the verdict. Returns the exit status when the
// other end is closed.
int runModelProcess(int socket, const std::string& name, const ppd::QueueRequest& request,
                    const Hardware& hardware);

}  // namespace driver_feature::printer

#endif  // PROGRAMS_PRINTER_MODEL_PROCESS_H_
