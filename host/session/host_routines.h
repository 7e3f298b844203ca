// Routines of the program that a feature description may name if it has none of
// its own:
//
//   <BaseFeatureInfo DefaultCallbackHandler="DriverFeatureHostUpdate"
//                    LoadVORNCallbackHandler="DriverFeatureHostLoad"/>
#ifndef HOST_SESSION_HOST_ROUTINES_H_
#define HOST_SESSION_HOST_ROUTINES_H_

#include <functional>
#include <string>

#include "frame/exports.h"

#include "host/base/result.h"
#include "host/session/log.h"

extern "C" {

// Update callback. Counts its calls and returns true. The program registers
// it before it loads a description, too, so that there is always one.
DRIVER_FEATURE_EXPORT bool DriverFeatureHostUpdate();

// Load routine. Each child of `element`, whatever its tag, is one setting: its
// attributes "Name" and "Value" are a feature and the text of its new value,
// checked as a setting of the command line is. A refused one is reported, and
// the others are still set. Returns the number of refused settings, 0 for
// success. `mode` (1 for installable options, 0 for a job ticket) makes no
// difference. Before a description is loaded, every setting is refused.
DRIVER_FEATURE_EXPORT int DriverFeatureHostLoad(void* element, int mode);

}  // extern "C"

namespace driver_feature::host {

// The number of calls of DriverFeatureHostUpdate so far.
long updateCount();

// What DriverFeatureHostLoad does from now on.
struct LoadTarget {
  // Sets a feature; empty while no description is loaded.
  std::function<Result<>(const std::string& name, const std::string& value)> set;
  LineSink report;  // Receives the refusals.
};
void setLoadTarget(LoadTarget target);

}  // namespace driver_feature::host

#endif  // HOST_SESSION_HOST_ROUTINES_H_
