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

// Makes the changes. False after a line on standard error about the first one
// that is refused; the ones before it have been made.
bool makeChanges(const Session& session, const Changes& changes);

}  // namespace driver_feature

#endif  // HOST_CHANGES_H_
