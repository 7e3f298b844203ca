// Safe fixes of findings: a name that is one change away from the only one that
// fits, a missing line end, true and false in other letters.
#ifndef HOST_CHECK_FIXES_H_
#define HOST_CHECK_FIXES_H_

#include <string>
#include <string_view>
#include <vector>

#include "host/check/findings.h"
#include "host/description/element.h"

namespace driver_feature::check {

// Gives each finding that has a safe fix its change of the text. `utf8` is the
// text of the elements; `routines` are the names of those that exist.
void addFixes(std::string_view utf8, const host::Element& description,
              const std::vector<std::string>& routines, Findings& findings);

// The text with the changes of the findings. Of several changes at the same
// place, only the first is made.
std::string applyFixes(const std::string& utf8, const Findings& findings);

// The number of findings that applyFixes() fixes.
long countFixes(const Findings& findings);

}  // namespace driver_feature::check

#endif  // HOST_CHECK_FIXES_H_
