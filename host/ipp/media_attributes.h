// media-col, in both directions.
#ifndef HOST_IPP_MEDIA_ATTRIBUTES_H_
#define HOST_IPP_MEDIA_ATTRIBUTES_H_

#include <cups/ipp.h>

#include <string>
#include <vector>

#include "host/ipp/attribute_table.h"

namespace driver_feature::ipp {

// Adds everything about media to the printer group, and the names "media" and
// "media-col".
void addMediaAttributes(ipp_t* printer, const AttributeTable& table,
                        std::vector<std::string>& names);

// A media-col with a size and its margins; null when the settings choose no size and
// no member. The caller owns it.
ipp_t* mediaColOf(const AttributeTable& table, const std::vector<host::Setting>& settings);

// A collection with a media-size.
void addMediaSize(ipp_t* target, int width, int height);

}  // namespace driver_feature::ipp

#endif  // HOST_IPP_MEDIA_ATTRIBUTES_H_
