// Writing outputs whole or not at all. The problem of everything here is
// kNotWritten, with the file's name.
#ifndef HOST_BASE_OUTPUT_FILE_H_
#define HOST_BASE_OUTPUT_FILE_H_

#include <string>
#include <string_view>
#include <vector>

#include "host/base/result.h"

namespace driver_feature::host {

// Writes `bytes` to standard output.
Result<> writeToStandardOutput(std::string_view bytes);

// Makes `bytes` the content of a file: they go to a temporary file in the
// same folder, are flushed to the disk, and the temporary file then takes the
// name. On failure, the old file is untouched and the temporary one is gone.
// The same is true when a signal ends the process, if the file system allows
// files without a name. An existing file keeps its permissions, and a symbolic
// link stays one and is followed.
//
// "-" is standard output. Anything but a regular file (a device, a pipe,
// /dev/stdout) is written to directly.
Result<> writeToFile(const std::string& path, std::string_view bytes);

// One of several outputs.
struct OutputText {
  std::string path;  // Empty or "-" for standard output.
  std::string bytes;
  bool isPrivate = false;    // Whether only its owner may read and write the file.
  bool makesFolder = false;  // Whether to make the file's folder if there is none.
};

// Writes the outputs as writeToFile() does. No file gets its new content
// before all outputs are on the disk or have been written to a place from which
// they cannot be taken back: standard output, devices and pipes, in the order
// given. Refused, with nothing written, when two outputs have the same file.
Result<> writeAllOutputs(const std::vector<OutputText>& outputs);

}  // namespace driver_feature::host

#endif  // HOST_BASE_OUTPUT_FILE_H_
