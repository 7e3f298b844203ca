// The process of a live page: it has loaded a description, and replies to requests
// about it, as JSON texts.
#ifndef HOST_PAGE_PAGE_PROCESS_H_
#define HOST_PAGE_PAGE_PROCESS_H_

#include <string>
#include <vector>

#include "host/session/log.h"

namespace driver_feature::page {

struct PageRequest {
  std::string description;            // The file.
  std::string library;                // The feature library; empty to search it.
  std::vector<std::string> routines;  // Libraries of routines that the description names.
  std::string mode = "preview";       // Or "printer": replies say it, and refusals leave out
                                      // what only a command line can do.
  long serial = 0;                    // Of the first state.
  long revision = 0;                  // Of the description.
  host::LineSink report = [](const std::string&) {};  // Receives lines for people.
};

// Loads the description and writes one frame, {"loaded":true} or
// {"loaded":false,"text":"..."}. From then on each frame is a request and is replied
// to with one frame. Returns the exit status when the other end is closed. A
// description that the feature library cannot build, or a routine that crashes,
// ends the process; there is nothing to tidy up then.
int runPageProcess(int socket, const PageRequest& request);

}  // namespace driver_feature::page

#endif  // HOST_PAGE_PAGE_PROCESS_H_
