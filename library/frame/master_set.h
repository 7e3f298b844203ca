// The master set as the library's own rooms use it.
#ifndef FRAME_MASTER_SET_H_
#define FRAME_MASTER_SET_H_

#include "frame/driver_feature_set.h"
#include "frame/exports.h"

namespace driver_feature {

// Makes the set on the first call.
inline DriverFeatureSet& masterSet() {
  auto* set = static_cast<CoreFeatureSet*>(GetMasterFeatureList());
  return *static_cast<DriverFeatureSet*>(set);
}

}  // namespace driver_feature

#endif  // FRAME_MASTER_SET_H_
