// The versions of the program and of the feature library.
#ifndef HOST_VERSION_H_
#define HOST_VERSION_H_

#include <string>

namespace driver_feature {

// Prints the program's version and build, and the version of the feature
// library at `library`, or where it is searched when that is empty. Answers
// the program's exit status. A library that is not there is no reason to hide
// the program's version, unless the caller has asked for that library.
int printVersions(const std::string& library);

}  // namespace driver_feature

#endif  // HOST_VERSION_H_
