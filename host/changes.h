// What the command line changes before a command does its work.
#ifndef HOST_CHANGES_H_
#define HOST_CHANGES_H_

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "host/output_file.h"
#include "host/records.h"
#include "host/session.h"

namespace driver_feature {

struct Changes {
  std::vector<std::string> settings;    // NAME=VALUE, made in this order.
  std::vector<RecordsRequest> records;  // Made after the settings.
  std::vector<std::string> files = {};  // Settings files, set before all else.
  std::string saveFile = {};            // Receives the settings afterwards; empty for none.
  bool allowControlCharacters = false;  // Even where they can end the command.
};

// Makes the changes and releases the log lines that they and the load have
// caused. False after a line on standard error about the first change that is
// refused, which is then the only line (a settings file has one line for each
// of its refused lines); the changes before it have been made.
bool makeChanges(Session& session, const Changes& changes);

// Opens the session and makes the changes. Null when one of both fails, after
// a line on standard error; `status` is then the program's exit status.
std::unique_ptr<Session> openChanged(const SessionRequest& request, const Changes& changes,
                                     int& status);

// The settings file that the changes ask for; empty when they ask for none.
std::vector<Result> saveResults(const Session& session, const Changes& changes);

// Opens the session, makes the changes, and lets `work` compose its results,
// all with standard output diverted. Then writes the results, the settings
// file to save among them: all or, as far as they are files, none. `work` and
// this operation answer the program's exit status.
using Work = std::function<int(Session& session, std::vector<Result>& results)>;
int workOnDescription(const SessionRequest& request, const Changes& changes, const Work& work);

// Writes the results. Answers the exit status, after a line on standard error
// when they cannot be written.
int deliver(const std::vector<Result>& results);

}  // namespace driver_feature

#endif  // HOST_CHANGES_H_
