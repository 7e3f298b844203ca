// The groups that are being written, from the innermost outwards.
#ifndef OUTPUT_GROUP_TRAIL_H_
#define OUTPUT_GROUP_TRAIL_H_

#include "model/core_feature.h"

namespace driver_feature {

// Marks a group as being written, so that one which contains itself, directly
// or through others, is not entered without end. The same group under two
// parents does not contain itself.
struct GroupTrail {
  const CoreFeature* group;
  const GroupTrail* outer;
};

inline bool isBeingWritten(const CoreFeature& group, const GroupTrail* trail) {
  for (; trail != nullptr; trail = trail->outer) {
    if (trail->group == &group) return true;
  }
  return false;
}

}  // namespace driver_feature

#endif  // OUTPUT_GROUP_TRAIL_H_
