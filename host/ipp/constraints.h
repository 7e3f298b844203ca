// Rules in IPP: combinations of attributes that a printer refuses, and one
// resolution for each.
#ifndef HOST_IPP_CONSTRAINTS_H_
#define HOST_IPP_CONSTRAINTS_H_

#include <cups/ipp.h>

#include <cstddef>

#include "host/ipp/attribute_table.h"

namespace driver_feature::ipp {

// Adds job-constraints-supported and job-resolvers-supported, and a default by
// which libcups finds them. A rule with a condition that jobs cannot express is
// left out, unless the hardware decides that condition: a rule that the present
// hardware rules out never applies.
//
// Clients fetch all of them each time they ask for the printer, so there is a limit.
// Returns how many rules, the last ones, are left out because of it.
std::size_t addConstraints(ipp_t* printer, const AttributeTable& table, const Capabilities& all);

}  // namespace driver_feature::ipp

#endif  // HOST_IPP_CONSTRAINTS_H_
