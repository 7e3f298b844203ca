// What surely mends a finding: a name that is one change away from the only one
// that fits, a missing line end, true and false in other letters.
#ifndef HOST_CHECK_FIXES_H_
#define HOST_CHECK_FIXES_H_

#include <string>
#include <string_view>
#include <vector>

#include "host/check/findings.h"
#include "host/description/element.h"

namespace driver_feature::check {

// Gives each finding that can surely be mended its change of the text. `utf8`
// is the text that the elements were made of; `routines` are the names of
// those that exist.
void addFixes(std::string_view utf8, const host::Element& description,
              const std::vector<std::string>& routines, Findings& findings);

// The text with the changes of the findings. Of changes of the same place the
// first is made.
std::string applyFixes(const std::string& utf8, const Findings& findings);

// The number of findings that applyFixes() mends.
long countFixes(const Findings& findings);

}  // namespace driver_feature::check

#endif  // HOST_CHECK_FIXES_H_
