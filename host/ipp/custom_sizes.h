// Sizes of sheets between limits, as numbers.
#ifndef HOST_IPP_CUSTOM_SIZES_H_
#define HOST_IPP_CUSTOM_SIZES_H_

#include <string>

#include "host/ipp/attribute_table.h"

namespace driver_feature::ipp {

// Notes the features for a width and a height, when the description has both and the
// table's page sizes have a choice for them.
void addCustomSizes(AttributeTable& table, const Capabilities& all);

// Without page sizes: a list with the ticket name "media-width", in hundredths of
// a millimetre, and a number with the name "media-length" are those of a roll.
// Adds a sheet of each width with the usual length. False when there are no such
// features.
bool addRoll(AttributeTable& table, const Capabilities& all);

// A length in hundredths of a millimetre as a value of the feature, within its limits
// although numbers are rounded.
std::string lengthText(const FeatureCapability& feature, double unit, int hundredths);

}  // namespace driver_feature::ipp

#endif  // HOST_IPP_CUSTOM_SIZES_H_
