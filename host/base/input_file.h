// Reading a file whole.
#ifndef HOST_BASE_INPUT_FILE_H_
#define HOST_BASE_INPUT_FILE_H_

#include <string>

#include "host/base/result.h"

namespace driver_feature::host {

// The file's bytes. Problem: kUnreadable, "cannot be read: REASON" with the
// file's name.
Result<std::string> readFile(const std::string& path);

}  // namespace driver_feature::host

#endif  // HOST_BASE_INPUT_FILE_H_
