// Names of attributes that mean something in IPP.
#ifndef HOST_IPP_TAKEN_NAMES_H_
#define HOST_IPP_TAKEN_NAMES_H_

#include <string>

#include "host/ipp/attribute_table.h"

namespace driver_feature::ipp {

// Whether a description may use the name for an attribute with this syntax: it is a
// keyword, and has no other meaning in IPP.
bool isFreeAttributeName(const std::string& name, Syntax syntax);

}  // namespace driver_feature::ipp

#endif  // HOST_IPP_TAKEN_NAMES_H_
