// The choices "Custom" of a PPD file, whose text holds values that the user
// gives.
#ifndef HOST_PPD_CUSTOM_IMPORT_H_
#define HOST_PPD_CUSTOM_IMPORT_H_

#include <string>

#include "host/ppd/import_state.h"

namespace driver_feature {

// Adds what writes the text of the choice. `entry` is that of its option, and
// `selection` tells when it is chosen, as FEATURE=OPTION. Answers the command
// of the option "Custom" itself, empty when something else writes the text.
std::string importCustomChoice(ImportState& state, const ppd_choice_t& choice,
                               const SectionEntry& entry, const std::string& selection);

}  // namespace driver_feature

#endif  // HOST_PPD_CUSTOM_IMPORT_H_
