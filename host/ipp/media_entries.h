// The names of media sizes.
#ifndef HOST_IPP_MEDIA_ENTRIES_H_
#define HOST_IPP_MEDIA_ENTRIES_H_

#include <string>

#include "host/ipp/attribute_table.h"

namespace driver_feature::ipp {

// Sizes are the same when they differ by half a millimetre at most.
bool isSameLength(int one, int other);

// Adds the choices of the feature that have a size. One with a standard size has
// its name, such as iso_a4_210x297mm; others, and a second one of the same size,
// are named after the choice, such as om_a4-fullbleed_210x297mm.
void addMediaEntries(AttributeTable& table, const FeatureCapability& sizes);

// Adds standard sizes, which do not set a feature.
void addStandardSizes(AttributeTable& table);

// "custom_NAME_210x297mm" and the like, in hundredths of a millimetre.
std::string sizeName(const std::string& prefix, const std::string& name, int width, int height);

}  // namespace driver_feature::ipp

#endif  // HOST_IPP_MEDIA_ENTRIES_H_
