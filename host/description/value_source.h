// Where in the text a byte of an attribute's value is written.
#ifndef HOST_DESCRIPTION_VALUE_SOURCE_H_
#define HOST_DESCRIPTION_VALUE_SOURCE_H_

#include <cstddef>

#include "host/description/element.h"

namespace driver_feature::host {

// The position of the character, or of the reference, that gives the byte at
// `offset` of the value. The attribute's own position when that is unknown.
Position placeIn(const Attribute& attribute, std::size_t offset);

}  // namespace driver_feature::host

#endif  // HOST_DESCRIPTION_VALUE_SOURCE_H_
