// The PPD that the jobs of a printer are printed with.
#ifndef PROGRAMS_PRINTER_QUEUE_TEXT_H_
#define PROGRAMS_PRINTER_QUEUE_TEXT_H_

#include <string>

#include "host/base/result.h"
#include "host/ppd/queue/queue_lines.h"
#include "host/session/session.h"

namespace driver_feature::printer {

// The PPD of a queue for driver-feature-filter, made of the description. Refused
// when a PPD cannot hold a path, or libcups cannot use the PPD.
host::Result<std::string> queueText(const host::Session& session, const std::string& name,
                                    const ppd::QueueRequest& request);

}  // namespace driver_feature::printer

#endif  // PROGRAMS_PRINTER_QUEUE_TEXT_H_
