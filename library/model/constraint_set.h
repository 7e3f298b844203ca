// The rules of a set of host identifiers: no negative ones, and a result that
// says whether the set has changed. Options and features keep the identifiers
// of the constraints that hold them back, dynamic groups the indices of their
// selected records.
#ifndef MODEL_CONSTRAINT_SET_H_
#define MODEL_CONSTRAINT_SET_H_

#include <set>

namespace driver_feature {

// False when `id` is negative or already in the set.
inline bool insertIdentifier(std::set<long>& identifiers, long id) {
  return id >= 0 && identifiers.insert(id).second;
}

// False when `id` is not in the set.
inline bool eraseIdentifier(std::set<long>& identifiers, long id) {
  return identifiers.erase(id) == 1;
}

}  // namespace driver_feature

#endif  // MODEL_CONSTRAINT_SET_H_
