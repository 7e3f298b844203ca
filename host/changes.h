// What the command line changes before a command does its work.
#ifndef HOST_CHANGES_H_
#define HOST_CHANGES_H_

#include <string>
#include <vector>

#include "host/records.h"
#include "host/session.h"

namespace driver_feature {

struct Changes {
  std::vector<std::string> settings;    // NAME=VALUE, made in this order.
  std::vector<RecordsRequest> records;  // Made after the settings.
};

// Makes the changes and releases the log lines that they and the load have
// caused. False after a line on standard error about the first change that is
// refused, which is then the only line; the changes before it have been made.
bool makeChanges(Session& session, const Changes& changes);

}  // namespace driver_feature

#endif  // HOST_CHANGES_H_
