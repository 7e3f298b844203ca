// The names that the choices of some options must have in a PPD, whatever the
// description calls them.
#ifndef HOST_QUEUE_CHOICE_NAMES_H_
#define HOST_QUEUE_CHOICE_NAMES_H_

#include <optional>
#include <string>

#include "host/settings.h"

namespace driver_feature {

// Whether a PPD gives the choices of this option their names: those of Duplex
// are None, DuplexNoTumble, DuplexTumble and SimplexTumble, those of a
// resolution such as 600dpi or 600x300dpi.
bool hasFixedNames(const std::string& feature);

// The PPD's name of an option of such a feature, found by the option's name,
// its "CLOKey" and its name in tickets. Nothing when it has none.
std::optional<std::string> fixedNameOf(const Model& model, const std::string& feature,
                                       const std::string& option);

}  // namespace driver_feature

#endif  // HOST_QUEUE_CHOICE_NAMES_H_
