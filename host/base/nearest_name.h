// The name that a user who misspelt one most likely meant.
#ifndef HOST_BASE_NEAREST_NAME_H_
#define HOST_BASE_NEAREST_NAME_H_

#include <optional>
#include <string>
#include <vector>

namespace driver_feature::host {

// The name of `names` that takes the fewest insertions, removals,
// replacements and swaps of neighbours to get from `wanted`, counting a change
// of case as less than a whole one; the first of several as near. Nothing when
// every name is further away than a third of the wanted name's length (but one
// change is always near enough for a name of two or more characters).
std::optional<std::string> nearestName(const std::string& wanted,
                                       const std::vector<std::string>& names);

// The name that was surely meant: the only one that is one change away, when
// that change leaves all digits as they are and the wanted name has at least
// four characters. Short names and numbers are too easily another one's.
std::optional<std::string> surelyMeant(const std::string& wanted,
                                       const std::vector<std::string>& names);

}  // namespace driver_feature::host

#endif  // HOST_BASE_NEAREST_NAME_H_
