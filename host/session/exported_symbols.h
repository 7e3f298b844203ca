// The symbols that a loaded library exports.
#ifndef HOST_SESSION_EXPORTED_SYMBOLS_H_
#define HOST_SESSION_EXPORTED_SYMBOLS_H_

#include <link.h>

#include <string>
#include <vector>

namespace driver_feature::host {

// The names of the functions that the library defines, in the order of its
// table. Read from memory: the file may have changed since.
std::vector<std::string> exportedFunctions(const link_map& library);

}  // namespace driver_feature::host

#endif  // HOST_SESSION_EXPORTED_SYMBOLS_H_
