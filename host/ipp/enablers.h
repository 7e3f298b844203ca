// Which choices make features available that are not available by default.
#ifndef HOST_IPP_ENABLERS_H_
#define HOST_IPP_ENABLERS_H_

#include "host/ipp/capabilities.h"

namespace driver_feature::ipp {

// Notes for each unavailable feature the first choice of another one that makes
// it available, such as "Custom" of the page size for a page width. The choices
// are tried, because only the description's routines know; afterwards the model
// is unchanged.
void addEnablers(Capabilities& all, const host::Model& model);

}  // namespace driver_feature::ipp

#endif  // HOST_IPP_ENABLERS_H_
