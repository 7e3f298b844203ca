// The lines that are kept from one use of the shell to the next.
#ifndef PROGRAMS_DRIVER_FEATURE_SHELL_HISTORY_H_
#define PROGRAMS_DRIVER_FEATURE_SHELL_HISTORY_H_

#include <cstddef>
#include <string>
#include <vector>

#include "host/settings/setting.h"

namespace driver_feature::cli {

// The file of the history: $XDG_STATE_HOME/driver-feature/history, or
// .local/state/driver-feature/history in the home folder. Empty when there is
// no such place. A relative path in XDG_STATE_HOME does not count.
std::string historyFile();

// Makes the file and its folders if they are missing, for their owner only.
// False when the file cannot be written.
bool makeHistoryFile(const std::string& file);

// The last lines of the file, at most `most`. Empty when it cannot be read.
std::vector<std::string> readHistory(const std::string& file, std::size_t most);

// Adds lines to an existing file, then drops its first lines so that `most` are
// left. Does nothing when the file cannot be written.
void appendHistory(const std::string& file, const std::vector<std::string>& lines,
                   std::size_t most);

// False for a line that must not be kept: an empty one, one that begins with
// a blank, and one that may hold the value of an encrypted feature.
bool isKept(const host::Model& model, const std::string& line);

}  // namespace driver_feature::cli

#endif  // PROGRAMS_DRIVER_FEATURE_SHELL_HISTORY_H_
