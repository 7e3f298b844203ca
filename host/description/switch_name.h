// Features that are choices of one thing of which people make several: of
// "Staple", "Staple.Left" and "Staple.Right" are switches.
#ifndef HOST_DESCRIPTION_SWITCH_NAME_H_
#define HOST_DESCRIPTION_SWITCH_NAME_H_

#include <optional>
#include <string>
#include <vector>

namespace driver_feature::host {

inline constexpr const char* kSwitchedOff = "False";
inline constexpr const char* kSwitchedOn = "True";

struct SwitchName {
  std::string thing;   // "Staple"; the key of its text.
  std::string choice;  // "Left".
};

// Nothing for the name of a feature that is no switch: without a dot, or with other
// options than the two.
std::optional<SwitchName> switchNameOf(const std::string& feature,
                                       const std::vector<std::string>& options);

}  // namespace driver_feature::host

#endif  // HOST_DESCRIPTION_SWITCH_NAME_H_
