// Files that hold a part of a job while the filter works.
#ifndef PROGRAMS_FILTER_KEPT_FILE_H_
#define PROGRAMS_FILTER_KEPT_FILE_H_

#include <cstdint>
#include <string>

namespace driver_feature::filter {

// The folder for them: the scheduler's TMPDIR, else /tmp.
std::string temporaryFolder();

// Opens a new file that only this user can read. `name` gets its name. Returns
// -1, with errno set, when that fails; `name` is then empty.
int makeNamedFile(std::string& name);

// The same without a name: the file is gone when it is closed.
int makeNamelessFile();

// Whether the folder has room for so many bytes.
bool hasRoomFor(std::uint64_t bytes);

}  // namespace driver_feature::filter

#endif  // PROGRAMS_FILTER_KEPT_FILE_H_
