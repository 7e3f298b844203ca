// Whole texts through file descriptors.
#ifndef HOST_BASE_DESCRIPTOR_H_
#define HOST_BASE_DESCRIPTOR_H_

#include <string>
#include <string_view>

namespace driver_feature::host {

// Writes all bytes. False, with errno set, when that fails.
bool writeAll(int descriptor, std::string_view bytes);

// Everything up to the end of the file or pipe, or up to an error.
std::string readAll(int descriptor);

}  // namespace driver_feature::host

#endif  // HOST_BASE_DESCRIPTOR_H_
