// The lines of a print queue's PPD that tell the filter driver-feature-filter
// what to do.
#ifndef HOST_QUEUE_QUEUE_LINES_H_
#define HOST_QUEUE_QUEUE_LINES_H_

#include <string>
#include <string_view>
#include <vector>

namespace driver_feature {

// What a queue is to do, with absolute paths.
struct QueueRequest {
  std::string description;
  std::string library;                // Empty for the installed one.
  std::vector<std::string> routines;  // Libraries of routines.
  bool defaultForRefused = false;     // Print with the default instead of failing.
};

// The lines, without line ends. `problem` says why they cannot be written;
// otherwise it is left alone.
std::vector<std::string> queueLines(const QueueRequest& request, std::string& problem);

// The text of a PPD with the lines behind its first one, and without the lines
// that name other filters or another description. Line ends stay as they are.
std::string withQueueLines(std::string_view ppd, const std::vector<std::string>& lines);

}  // namespace driver_feature

#endif  // HOST_QUEUE_QUEUE_LINES_H_
