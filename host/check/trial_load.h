// Tries the library on a description: a real load in a child process, because
// the library ends the process when it refuses one.
#ifndef HOST_CHECK_TRIAL_LOAD_H_
#define HOST_CHECK_TRIAL_LOAD_H_

#include <string>
#include <vector>

#include "host/base/result.h"
#include "host/session/plugin.h"

namespace driver_feature::check {

struct LoadLine {
  int level = 0;
  std::string text;

  bool operator==(const LoadLine&) const = default;
};

struct LoadReport {
  bool loaded = false;
  std::string end;              // How the process ended: "exit status 1", "signal 11".
  std::vector<LoadLine> lines;  // All log lines of the load.
  std::string routine = {};     // What a routine has done to end the process; empty if none has.
};

// Loads the description in a child of this process and waits for its end.
// What the library or a routine prints is dropped. Problem: no child process
// can be made.
host::Result<LoadReport> loadInChild(const host::Plugin& plugin, void* description);

}  // namespace driver_feature::check

#endif  // HOST_CHECK_TRIAL_LOAD_H_
