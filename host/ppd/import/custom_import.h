// The choices "Custom" of a PPD file, whose text holds values that the user
// gives.
#ifndef HOST_PPD_IMPORT_CUSTOM_IMPORT_H_
#define HOST_PPD_IMPORT_CUSTOM_IMPORT_H_

#include <map>
#include <string>

#include "host/ppd/custom/custom_text.h"
#include "host/ppd/import/import_state.h"

namespace driver_feature::ppd {

// The order dependencies that the file gives to its custom choices:
//   *NonUIOrderDependency: 30 AnySetup *CustomPageSize True
std::map<std::string, WritingPlace> customPlacesOf(ppd_file_t& ppd);

// Adds the element that writes the text of the choice, and a feature for each of
// its values. `entry` is that of its option, and `chosen` names the feature and
// the option by which the user chooses it. Returns the command of that option
// itself, empty when another element writes the text.
std::string importCustomChoice(ImportState& state, const ppd_choice_t& choice,
                               const SectionEntry& entry, const CustomPlan& chosen);

}  // namespace driver_feature::ppd

#endif  // HOST_PPD_IMPORT_CUSTOM_IMPORT_H_
