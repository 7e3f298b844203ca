// The options of a PPD file as features.
#ifndef HOST_PPD_IMPORT_OPTION_IMPORT_H_
#define HOST_PPD_IMPORT_OPTION_IMPORT_H_

#include "host/ppd/import/import_state.h"

namespace driver_feature::ppd {

// The selected option of a feature when no choice of the PPD's option is
// marked.
inline constexpr const char* kNotSet = "not set";

// Adds a feature for every option of the file, and one per choice of those
// that take several.
void importOptions(ImportState& state);

}  // namespace driver_feature::ppd

#endif  // HOST_PPD_IMPORT_OPTION_IMPORT_H_
