// The choices of a PPD's options, and the names that those of some options must
// have, whatever the description calls them.
#ifndef HOST_PPD_QUEUE_CHOICE_NAMES_H_
#define HOST_PPD_QUEUE_CHOICE_NAMES_H_

#include <string>
#include <vector>

#include "host/settings/setting.h"

namespace driver_feature::ppd {

// Why the second one of two names is left out.
inline constexpr const char* kSameNameInPpd =
    "another one has this name, and a PPD does not distinguish capital from small letters";

// Why a choice Custom is left out.
inline constexpr const char* kNameOfOwnValues = "a PPD has this name for values of the user's own";

// A choice of a PPD's option.
struct NamedChoice {
  std::string name;    // In the PPD.
  std::string option;  // In the description.
};

bool hasName(const std::vector<NamedChoice>& choices, const std::string& name);

// Whether a PPD gives the choices of this option their names: those of Duplex
// are None, DuplexNoTumble, DuplexTumble and SimplexTumble, those of a
// resolution such as 600dpi or 600x300dpi.
bool hasFixedNames(const std::string& feature);

// The visible options of a list that a PPD can have as choices. The others are
// added to the losses, as NAME=OPTION and the reason. Options of a feature with
// fixed names get these, found by the option's name, its "CLOKey" and its name
// in tickets.
std::vector<NamedChoice> namedChoices(const host::Model& model, const std::string& name,
                                      const host::FeatureView& feature,
                                      std::vector<std::string>& losses);

}  // namespace driver_feature::ppd

#endif  // HOST_PPD_QUEUE_CHOICE_NAMES_H_
