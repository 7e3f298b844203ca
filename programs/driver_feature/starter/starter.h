// The files that a driver begins with.
#ifndef PROGRAMS_DRIVER_FEATURE_STARTER_STARTER_H_
#define PROGRAMS_DRIVER_FEATURE_STARTER_STARTER_H_

#include <string>
#include <vector>

#include "host/base/result.h"

namespace driver_feature::cli {

struct StarterFile {
  std::string path;  // In the driver's folder.
  std::string text;
};

// The files of a driver of that name: a description, a library of routines, cases
// with their expected outputs, and a README.md that says how to go on. Refused
// unless the name is a letter followed by letters, digits, "-" and "_".
host::Result<std::vector<StarterFile>> starterFiles(const std::string& name);

// Makes the folder with the files in it, whole or not at all. Refused when there
// is something of that name. Problem: kNotWritten.
host::Result<> writeFolder(const std::string& folder, const std::vector<StarterFile>& files);

}  // namespace driver_feature::cli

#endif  // PROGRAMS_DRIVER_FEATURE_STARTER_STARTER_H_
