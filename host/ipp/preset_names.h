// The names of presets.
#ifndef HOST_IPP_PRESET_NAMES_H_
#define HOST_IPP_PRESET_NAMES_H_

#include "host/ipp/attribute_table.h"

namespace driver_feature::ipp {

// Adds the presets with keywords that differ from each other and from finishings
// in more than case and hyphens: queues of CUPS turn them into names of PPDs,
// which have no hyphens. The finishings must be there already.
void addPresetEntries(AttributeTable& table, const Capabilities& all);

}  // namespace driver_feature::ipp

#endif  // HOST_IPP_PRESET_NAMES_H_
