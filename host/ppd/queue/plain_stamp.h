// The stamp with which the filter reads the PPD of a queue without libcups.
#ifndef HOST_PPD_QUEUE_PLAIN_STAMP_H_
#define HOST_PPD_QUEUE_PLAIN_STAMP_H_

#include <string>

namespace driver_feature::ppd {

// The line, without its end, that belongs into the text of a queue's PPD. Empty
// where jobs need libcups: where it reads the text in another way than
// PlainQueuePpd does, marks other choices, or makes something of the PPD that
// PlainQueuePpd does not know of.
std::string plainStampLine(const std::string& text);

}  // namespace driver_feature::ppd

#endif  // HOST_PPD_QUEUE_PLAIN_STAMP_H_
