// The versions of the program and of the feature library.
#ifndef PROGRAMS_DRIVER_FEATURE_VERSION_H_
#define PROGRAMS_DRIVER_FEATURE_VERSION_H_

#include <string>

#include "host/base/result.h"

namespace driver_feature::cli {

// Lines with the program's version and build, and with the version of the
// feature library at `library`, or where it is searched when that is empty. If
// the library is missing, only the program's version is shown, unless the caller
// asked for that library; the problem is then Plugin::load()'s.
host::Result<std::string> versionText(const std::string& library);

// The program's version alone.
std::string programVersion();

}  // namespace driver_feature::cli

#endif  // PROGRAMS_DRIVER_FEATURE_VERSION_H_
