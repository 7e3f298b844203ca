// Finds features by their names in a time that does not grow with the set.
#ifndef MODEL_FEATURE_INDEX_H_
#define MODEL_FEATURE_INDEX_H_

#include <cstddef>
#include <map>
#include <string>
#include <vector>

class DriverFeature;

namespace driver_feature {

// Stands beside the set's map, which decides what there is and in which order.
// Lists all of the map or nothing; the map is searched instead until the index
// is made, and when there is no memory for its growth.
class FeatureIndex {
 public:
  using Features = std::map<std::string, DriverFeature*>;

  // The feature of that name, or null. `features` is the map that the index
  // stands beside.
  DriverFeature* find(const Features& features, const std::string& name) const;

  // Lists all entries of the map, in the place of what was listed before.
  // May throw std::bad_alloc, and lists nothing then.
  void make(const Features& features);

  // Lists an entry that the map has just got, if the index has been made.
  // Entries stay where they are, so that a feature filed in the place of
  // another one needs no change here.
  void add(const Features& features, const Features::value_type& entry) noexcept;

  // Forgets all entries.
  void clear() noexcept { slots_.clear(); }

 private:
  struct Slot {
    std::size_t hash;
    const Features::value_type* entry;  // Null: the slot is free.
  };

  void fill(const Features::value_type& entry);

  // A hash table: an entry stands in the first slot that was free from the
  // place of its hash on. A power of two, and at least twice as many as there
  // are entries, or none. One piece of memory: one for each entry would make
  // building a set slower by a thirtieth.
  std::vector<Slot> slots_;
};

}  // namespace driver_feature

#endif  // MODEL_FEATURE_INDEX_H_
