// Texts for libcups, which reads PPDs from files only.
#ifndef HOST_PPD_QUEUE_NAMELESS_FILE_H_
#define HOST_PPD_QUEUE_NAMELESS_FILE_H_

#include <string>

namespace driver_feature::ppd {

// The text in a file without a name, which libcups then closes; -1 and errno
// when there is no room for it.
int fileWith(const std::string& text);

}  // namespace driver_feature::ppd

#endif  // HOST_PPD_QUEUE_NAMELESS_FILE_H_
