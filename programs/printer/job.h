// A job, as the printer knows it and the spool keeps it.
#ifndef PROGRAMS_PRINTER_JOB_H_
#define PROGRAMS_PRINTER_JOB_H_

#include <cups/ipp.h>

#include <cstdint>
#include <string>
#include <vector>

#include "host/settings/setting.h"

namespace driver_feature::printer {

struct Job {
  int number = 0;
  std::string printer;
  std::string name;
  std::string user;
  std::string format;  // The document's type, such as application/pdf.
  ipp_jstate_t state = IPP_JSTATE_PENDING;
  std::string reason = "none";  // A keyword of job-state-reasons.
  std::string message;          // For people.
  bool isIncoming = false;      // It waits for its document.
  bool isCancelled = false;     // While it prints: it ends soon.
  int tries = 0;                // How often it was begun, by this server.
  std::int64_t created = 0;     // Seconds since 1970; 0: not yet.
  std::int64_t begun = 0;
  std::int64_t ended = 0;
  std::uint64_t bytes = 0;  // Of the document.
  int copies = 1;
  int width = 0;  // Of the paper, in points; 0 when it is not known.
  int height = 0;
  int sheets = 0;                      // Pages that have been printed.
  std::vector<host::Setting> options;  // For driver-feature-filter.

  bool isOver() const { return state >= IPP_JSTATE_CANCELED; }
};

}  // namespace driver_feature::printer

#endif  // PROGRAMS_PRINTER_JOB_H_
