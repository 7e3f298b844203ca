// Writing a result whole or not at all.
#ifndef HOST_OUTPUT_FILE_H_
#define HOST_OUTPUT_FILE_H_

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace driver_feature {

// Why a result could not be written, with the file's name; nothing for
// success.
using WriteProblem = std::optional<std::string>;

// Writes `bytes` to standard output.
WriteProblem writeToStandardOutput(std::string_view bytes);

// Makes `bytes` the content of a file: they go to a temporary file in the
// same folder, are flushed to the disk, and the temporary file then takes the
// name. On failure the old file is untouched and the temporary one gone; so it
// is when a signal ends the process, wherever the file system lets a file be
// without a name. An
// existing file keeps its permissions, and a symbolic link stays one and is
// followed.
//
// "-" is standard output. What is no regular file (a device, a pipe,
// /dev/stdout) is written to as it is.
WriteProblem writeToFile(const std::string& path, std::string_view bytes);

// One of several results.
struct Result {
  std::string path;  // Empty or "-" for standard output.
  std::string bytes;
};

// Writes the results as writeToFile() does. No file gets its new content
// before all results are on the disk or have gone to where they cannot be
// taken back from: standard output, devices and pipes, in the order given.
// Refused, with nothing written, when two results have the same file.
WriteProblem writeResults(const std::vector<Result>& results);

}  // namespace driver_feature

#endif  // HOST_OUTPUT_FILE_H_
