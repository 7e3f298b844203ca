// Comments by which an author allows what the check reports:
//
//   <!-- driver-feature: allow DF303: the first tray is always there -->
//   <Feature FeatureType="MultiSelect" Name="Tray">
//
// allows the code in the next element and all that is inside it. Several codes
// are separated by commas.
#ifndef HOST_CHECK_ALLOWANCES_H_
#define HOST_CHECK_ALLOWANCES_H_

#include <string>
#include <string_view>
#include <vector>

#include "host/check/findings.h"

namespace driver_feature::check {

struct AllowedFinding {
  Finding finding;
  std::string reason;
};

// Takes the findings that comments of the text allow out of `findings` and
// returns them. Adds a finding for each comment that allows nothing, gives no
// reason or cannot be understood. `file` is the text's file as findings name it.
std::vector<AllowedFinding> takeAllowed(std::string_view utf8, Findings& findings,
                                        const std::string& file = "");

}  // namespace driver_feature::check

#endif  // HOST_CHECK_ALLOWANCES_H_
