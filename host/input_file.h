// Reading a file whole.
#ifndef HOST_INPUT_FILE_H_
#define HOST_INPUT_FILE_H_

#include <string>

namespace driver_feature {

// Stores the file's bytes. False when it cannot be read, with errno set and
// `bytes` left alone.
bool readFile(const std::string& path, std::string& bytes);

}  // namespace driver_feature

#endif  // HOST_INPUT_FILE_H_
