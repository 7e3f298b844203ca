// Rules as IPP has them: combinations of attributes that a printer refuses, and one
// way out of each.
#ifndef HOST_IPP_CONSTRAINTS_H_
#define HOST_IPP_CONSTRAINTS_H_

#include <cups/ipp.h>

#include "host/ipp/attribute_table.h"

namespace driver_feature::ipp {

// Adds job-constraints-supported and job-resolvers-supported, and a default by which
// libcups finds them. A rule with a condition
// that is no matter of a job's attributes is left out, unless hardware decides it: a
// rule whose hardware is there never holds.
void addConstraints(ipp_t* printer, const AttributeTable& table, const Capabilities& all);

}  // namespace driver_feature::ipp

#endif  // HOST_IPP_CONSTRAINTS_H_
