// A set of host identifiers: options and features keep those of the constraints
// that hold them back.
#ifndef MODEL_CONSTRAINT_SET_H_
#define MODEL_CONSTRAINT_SET_H_

#include <memory>
#include <set>

namespace driver_feature {

// The rules of such a set: no negative identifiers, and a result that says
// whether the set has changed. Dynamic groups keep the indices of their selected
// records by the same rules.

// False when `id` is negative or already in the set.
inline bool insertIdentifier(std::set<long>& identifiers, long id) {
  return id >= 0 && identifiers.insert(id).second;
}

// False when `id` is not in the set.
inline bool eraseIdentifier(std::set<long>& identifiers, long id) {
  return identifiers.erase(id) == 1;
}

// Takes memory from the first identifier on, which most objects never get.
class ConstraintSet {
 public:
  bool isEmpty() const { return identifiers_ == nullptr || identifiers_->empty(); }
  bool insert(long id) { return id >= 0 && insertIdentifier(identifiers(), id); }
  bool erase(long id) { return identifiers_ != nullptr && eraseIdentifier(*identifiers_, id); }

  // The set itself, which stays at its place.
  std::set<long>& identifiers() {
    if (identifiers_ == nullptr) identifiers_ = std::make_unique<std::set<long>>();
    return *identifiers_;
  }

 private:
  std::unique_ptr<std::set<long>> identifiers_;
};

}  // namespace driver_feature

#endif  // MODEL_CONSTRAINT_SET_H_
