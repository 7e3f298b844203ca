// Names of files in the protocol.
#ifndef PROGRAMS_DRIVER_FEATURE_LSP_URI_H_
#define PROGRAMS_DRIVER_FEATURE_LSP_URI_H_

#include <string>
#include <string_view>

namespace driver_feature::cli {

// The path of a "file" URI; any other name as it is.
std::string pathOf(std::string_view uri);

}  // namespace driver_feature::cli

#endif  // PROGRAMS_DRIVER_FEATURE_LSP_URI_H_
