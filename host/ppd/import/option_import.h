// The options of a PPD file as features.
#ifndef HOST_PPD_IMPORT_OPTION_IMPORT_H_
#define HOST_PPD_IMPORT_OPTION_IMPORT_H_

#include <string>

#include "host/ppd/import/import_state.h"

namespace driver_feature::ppd {

// The selected option of a feature when no choice of the PPD's option is
// marked.
inline constexpr const char* kNotSet = "not set";

// Whether the option's feature can have that one selected: libcups may mark no
// choice of the option.
bool canBeUnset(ppd_file_t& ppd, const ppd_option_t& option);

// The name of the feature that an option of several choices becomes for one of
// them.
std::string choiceFeatureName(const ppd_option_t& option, const ppd_choice_t& choice);

// Adds a feature for every option of the file, and one per choice of those
// that take several.
void importOptions(ImportState& state);

}  // namespace driver_feature::ppd

#endif  // HOST_PPD_IMPORT_OPTION_IMPORT_H_
