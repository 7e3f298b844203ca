// What runs in the process of a job.
#ifndef PROGRAMS_PRINTER_JOB_PROCESS_H_
#define PROGRAMS_PRINTER_JOB_PROCESS_H_

#include <string>

#include "programs/printer/job.h"

namespace driver_feature::printer {

struct PrintOrder {
  Job job;
  std::string document;  // The file.
  std::string queue;     // The PPD.
  std::string device;    // The URI.
  std::string filter;    // The program driver-feature-filter.
};

// Converts the document, runs the filter and sends its output to the device.
// Messages go to standard error, as lines of a scheduler's filter: "ERROR: TEXT",
// "PAGE: NUMBER COPIES", "STATE: +REASON". Returns the exit status: 0 when the
// device has all of it, kTryAgain when something else has ended one of its processes.
//
// A document that cannot be converted whole is not printed in part.
inline constexpr int kTryAgain = 75;
int runJobProcess(const PrintOrder& order);

// The options as a filter gets them: "PageSize=A4 Title='a b'".
std::string optionText(const std::vector<host::Setting>& options);

}  // namespace driver_feature::printer

#endif  // PROGRAMS_PRINTER_JOB_PROCESS_H_
