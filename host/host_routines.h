// Routines of the program that a feature description may name, for
// descriptions that bring none of their own:
//
//   <BaseFeatureInfo DefaultCallbackHandler="DriverFeatureHostUpdate"
//                    LoadVORNCallbackHandler="DriverFeatureHostLoad"/>
#ifndef HOST_HOST_ROUTINES_H_
#define HOST_HOST_ROUTINES_H_

#include "frame/exports.h"
#include "host/settings.h"

extern "C" {

// Update callback. Counts its calls and answers true. The program registers
// it before it loads a description, too, so that one is always there.
DRIVER_FEATURE_EXPORT bool DriverFeatureHostUpdate();

// Load routine. Each child of `element`, whatever its tag, is one setting: its
// attributes "Name" and "Value" are a feature and the text of its new value,
// checked as a setting of the command line is. A refused one is reported on
// standard error and the others are set all the same. Answers the number of
// refused settings, 0 for success. `mode` (1 for installable options, 0 for a
// job ticket) makes no difference. Before a description is loaded, every
// setting is refused.
DRIVER_FEATURE_EXPORT int DriverFeatureHostLoad(void* element, int mode);

}  // extern "C"

namespace driver_feature {

// The number of calls of DriverFeatureHostUpdate so far.
long updateCount();

// The features that DriverFeatureHostLoad sets from now on; null for none.
// The model must outlive its use.
void setLoadTarget(const Model* model);

}  // namespace driver_feature

#endif  // HOST_HOST_ROUTINES_H_
