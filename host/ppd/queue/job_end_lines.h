// The line of a print queue's PPD that says how its jobs end.
#ifndef HOST_PPD_QUEUE_JOB_END_LINES_H_
#define HOST_PPD_QUEUE_JOB_END_LINES_H_

#include <cups/ppd.h>

#include <string>
#include <vector>

namespace driver_feature::ppd {

// A line for a queue of the printer's PPD, when libcups ends a job of the
// printer with an end of file (Ctrl-D): when the PPD has neither an end in
// job-control language nor a filter. The queue's PPD has a filter, so that
// nobody could see it there. The PPD of a queue keeps its line.
std::vector<std::string> jobEndLines(ppd_file_t& ppd);

}  // namespace driver_feature::ppd

#endif  // HOST_PPD_QUEUE_JOB_END_LINES_H_
