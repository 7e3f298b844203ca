// What runs in the process of a model worker.
#ifndef PROGRAMS_PRINTER_MODEL_PROCESS_H_
#define PROGRAMS_PRINTER_MODEL_PROCESS_H_

#include <string>
#include <vector>

#include "host/ppd/queue/queue_lines.h"
#include "host/settings/setting.h"

namespace driver_feature::printer {

// Loads the description. Writes a frame "+" and then the capabilities as JSON and
// the PPD, or one frame "-PROBLEM". From then on each frame with settings is
// replied to with one frame: empty, or what is refused. Returns the exit status
// when the other end is closed.
int runModelProcess(int socket, const std::string& name, const ppd::QueueRequest& request);

// Settings as one text for runModelProcess().
std::string packSettings(const std::vector<host::Setting>& settings);
std::vector<host::Setting> unpackSettings(std::string text);

}  // namespace driver_feature::printer

#endif  // PROGRAMS_PRINTER_MODEL_PROCESS_H_
