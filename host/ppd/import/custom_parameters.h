// The parameters of custom choices as features.
#ifndef HOST_PPD_IMPORT_CUSTOM_PARAMETERS_H_
#define HOST_PPD_IMPORT_CUSTOM_PARAMETERS_H_

#include <vector>

#include "host/ppd/custom/custom_text.h"
#include "host/ppd/import/import_state.h"

namespace driver_feature::ppd {

// What the values of a text are, and the features that hold them.
struct CustomParameters {
  std::vector<CustomValue> values;
  std::vector<ImportedElement> features;
};

// The parameters of an option's custom choice, by their numbers. Notes the
// parts that a feature cannot hold.
CustomParameters parametersOf(ImportState& state, const ppd_option_t& option, bool forPjl);

// The five values of a custom page size: width and height, which the user
// gives, and the offsets and orientation that libcups always writes.
CustomParameters pageSizeParameters(ImportState& state, const ppd_option_t& option);

// Notes the parameters of a custom choice that libcups writes without values.
void noteUnusedParameters(ImportState& state, const ppd_option_t& option);

}  // namespace driver_feature::ppd

#endif  // HOST_PPD_IMPORT_CUSTOM_PARAMETERS_H_
