// Reading the PPD of a queue back before it counts as written.
#ifndef HOST_PPD_QUEUE_READ_BACK_H_
#define HOST_PPD_QUEUE_READ_BACK_H_

#include <cups/ppd.h>

#include <optional>
#include <string>
#include <vector>

namespace driver_feature::ppd {

// Why libcups could not use a PPD.
struct UnusablePpd {
  std::string reason;
  int line = 0;  // Of the text; 0 when no line is to blame.
};

// Reads the text as the scheduler and its filters will. It must be readable,
// hold the queue's lines with their values, and have no other filters than
// those; and when it was made of a printer's PPD, the same options with the
// same choices and commands. Nothing when all that is so.
std::optional<UnusablePpd> readBack(const std::string& text, const std::vector<std::string>& lines,
                                    const ppd_file_t* printer);

}  // namespace driver_feature::ppd

#endif  // HOST_PPD_QUEUE_READ_BACK_H_
