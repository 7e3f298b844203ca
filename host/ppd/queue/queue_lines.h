// The lines of a print queue's PPD that say what driver-feature-filter is to
// do.
#ifndef HOST_PPD_QUEUE_QUEUE_LINES_H_
#define HOST_PPD_QUEUE_QUEUE_LINES_H_

#include <cups/ppd.h>

#include <string>
#include <string_view>
#include <vector>

#include "host/base/result.h"

namespace driver_feature::ppd {

// What a queue is to do, with absolute paths.
struct QueueRequest {
  std::string description;
  std::string library;                // Empty for the installed one.
  std::vector<std::string> routines;  // Libraries of routines.
  bool defaultForRefused = false;     // Print with the default instead of failing.
  bool resolves = false;              // Change what rules forbid together instead of failing.
};

// The lines, without line ends. Refused when a PPD cannot hold a path.
host::Result<std::vector<std::string>> queueLines(const QueueRequest& request);

// The lines that keep libcups' handling of media as it is with the printer's
// PPD, when the queue's gets a filter that the printer's does not have. With a
// filter libcups writes the page size wherever a tray is chosen, without one it
// does not; but not where the PPD has a rule about it.
std::vector<std::string> mediaLines(ppd_file_t& ppd);

struct QueueText {
  std::string text;
  std::vector<int> origins;  // Of each line: which one of the printer's PPD it is, or 0.
};

// The text of a PPD with the lines after its first statement, and without the
// statements that name other filters or another description. Line ends stay as
// they are.
QueueText withQueueLines(std::string_view ppd, const std::vector<std::string>& lines);

}  // namespace driver_feature::ppd

#endif  // HOST_PPD_QUEUE_QUEUE_LINES_H_
