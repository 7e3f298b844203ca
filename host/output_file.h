// Writing a result whole or not at all.
#ifndef HOST_OUTPUT_FILE_H_
#define HOST_OUTPUT_FILE_H_

#include <optional>
#include <string>
#include <string_view>

namespace driver_feature {

// Why a result could not be written, with the file's name; nothing for
// success.
using WriteProblem = std::optional<std::string>;

// Writes `bytes` to standard output.
WriteProblem writeToStandardOutput(std::string_view bytes);

// Makes `bytes` the content of a file: they go to a temporary file in the
// same folder, are flushed to the disk, and the temporary file then takes the
// name. On failure the old file is untouched and the temporary one gone. An
// existing file keeps its permissions, and a symbolic link stays one and is
// followed.
//
// "-" is standard output. What is no regular file (a device, a pipe,
// /dev/stdout) is written to as it is.
WriteProblem writeToFile(const std::string& path, std::string_view bytes);

}  // namespace driver_feature

#endif  // HOST_OUTPUT_FILE_H_
