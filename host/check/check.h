// Checks one description by all rules and the library.
#ifndef HOST_CHECK_CHECK_H_
#define HOST_CHECK_CHECK_H_

#include <string>

#include "host/check/report.h"
#include "host/session/plugin.h"

namespace driver_feature::check {

// Whether output routines are tried: a real output is written in a child process.
enum class Trial : unsigned char { kLoad, kLoadAndOutputs };

// Checks a file, and the files beside it. Routines that it names are looked up
// among those of the process as it is now. A missing text in `language` is an
// error, unless `language` is empty. Problem: no child process can be made for
// the load.
host::Result<FileReport> checkFile(const std::string& path, const host::Plugin& plugin,
                                   Trial trial = Trial::kLoadAndOutputs,
                                   const std::string& language = "");

// The same for a text that has been read from `path`.
host::Result<FileReport> checkText(const std::string& path, std::string text,
                                   const host::Plugin& plugin, Trial trial = Trial::kLoadAndOutputs,
                                   const std::string& language = "");

}  // namespace driver_feature::check

#endif  // HOST_CHECK_CHECK_H_
