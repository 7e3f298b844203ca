// Names of files, for a word that is being written.
#ifndef PROGRAMS_DRIVER_FEATURE_SHELL_FILE_NAMES_H_
#define PROGRAMS_DRIVER_FEATURE_SHELL_FILE_NAMES_H_

#include <string>
#include <vector>

namespace driver_feature::cli {

// The files whose paths begin with `word`, written as there, in byte order; a
// folder's ends with a slash. Empty when the folder cannot be read.
std::vector<std::string> filesThatBeginWith(const std::string& word);

// The last part of such a path.
std::string lastPart(const std::string& path);

}  // namespace driver_feature::cli

#endif  // PROGRAMS_DRIVER_FEATURE_SHELL_FILE_NAMES_H_
