// Files that stay when the machine stops: what a program writes gets to the disk
// some time later, unless it asks for it.
#ifndef PROGRAMS_PRINTER_DURABLE_FILE_H_
#define PROGRAMS_PRINTER_DURABLE_FILE_H_

#include <filesystem>
#include <string_view>

#include "host/base/result.h"

namespace driver_feature::printer {

// The problem kNotWritten, with the reason of a system call.
host::Failure notWritten(const std::filesystem::path& path, int error);

// Makes the bytes the content of a file, for this user only. Not on the disk yet.
host::Result<> writeFile(const std::filesystem::path& path, std::string_view bytes);

// Brings a file or a folder to the disk. Names in a folder get there with the folder.
host::Result<> flush(const std::filesystem::path& path);

// A file that has this name already is replaced.
host::Result<> giveName(const std::filesystem::path& from, const std::filesystem::path& to);

// The name for what becomes the file when it is on the disk.
std::filesystem::path newOf(const std::filesystem::path& path);

// Makes the bytes the content of a file, on the disk. Its name is there with the
// folder's next flush(); before that, the name may be that of the former content.
host::Result<> writeDurably(const std::filesystem::path& path, std::string_view bytes);

}  // namespace driver_feature::printer

#endif  // PROGRAMS_PRINTER_DURABLE_FILE_H_
