// Records of a dynamic group from a JSON file: an array of objects, each with
// the names of the group's members and their values.
//
//   [ {"FirstPage": 1, "LastPage": 2, "Media": "Plain"},
//     {"FirstPage": 7, "LastPage": 7, "Media": "Heavy"} ]
#ifndef HOST_SETTINGS_RECORDS_H_
#define HOST_SETTINGS_RECORDS_H_

#include <string>

#include "host/settings/setting.h"
#include "model/core_feature_set.h"

namespace driver_feature::host {

struct RecordsRequest {
  std::string group;
  std::string file;
};

// Reads the file, checks every value of every record as a setting of its
// member is checked, and then adds the records in the order of the file; the
// description's sort routine may put them into another. When anything is
// refused, no record is added, unless the library refuses one that has passed
// the checks; there is a problem for each refused member, with the line of the
// file. Records are counted from 0.
Result<> addRecords(CoreFeatureSet& set, const Model& model, const RecordsRequest& request);

// Why records for a name that is not a dynamic group's are refused.
std::string refuseDynamicGroup(const Model& model, const std::string& name);

}  // namespace driver_feature::host

#endif  // HOST_SETTINGS_RECORDS_H_
