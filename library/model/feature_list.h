// Which features and groups there are, and in which order.
#ifndef MODEL_FEATURE_LIST_H_
#define MODEL_FEATURE_LIST_H_

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "model/name_index.h"
#include "model/property_room.h"

class DriverFeature;
class DriverFeatureDynamicGroup;
class DriverFeatureStaticGroup;

namespace driver_feature {

// Holds plain pointers to what the loader has made and deletes none of it. Never
// holds null or a feature without a name. Objects are added; none is removed but
// by rollBack().
class FeatureList {
 public:
  FeatureList() = default;
  FeatureList(const FeatureList&) = delete;
  FeatureList& operator=(const FeatureList&) = delete;

  // Files a feature under `name`, in place of an earlier one of that name. False
  // for an empty name or null, which changes nothing.
  bool addFeature(const std::string& name, DriverFeature* feature);

  // Append a group. False for null.
  bool addStaticGroup(DriverFeatureStaticGroup* group);
  bool addDynamicGroup(DriverFeatureDynamicGroup* group);

  int featureCount() const { return static_cast<int>(features_.size()); }
  int staticGroupCount() const { return static_cast<int>(staticGroups_.size()); }
  int dynamicGroupCount() const { return static_cast<int>(dynamicGroups_.size()); }

  // Features count from 0 in the order of their names, groups in the order of
  // addition. Null when there is no such position.
  DriverFeature* featureAt(int index) {
    const auto position = static_cast<std::size_t>(index);  // Negative: beyond every list.
    if (position >= features_.size()) return nullptr;
    if (sorted_ != features_.size()) sort();
    return byName_[position]->feature;
  }
  // The name under which the feature at that position, which there must be, is
  // filed.
  std::string_view featureNameAt(int index) {
    if (sorted_ != features_.size()) sort();
    return byName_[static_cast<std::size_t>(index)]->name;
  }
  DriverFeatureStaticGroup* staticGroupAt(int index) const;
  DriverFeatureDynamicGroup* dynamicGroupAt(int index) const;

  // The feature filed under that name, or null.
  DriverFeature* findFeature(std::string_view name) const {
    const int position = names_.find(name, nameAt());
    return position >= 0 ? features_[static_cast<std::size_t>(position)]->feature : nullptr;
  }

  // For the properties of the features' options, which are never removed.
  PropertyRoom& room() { return room_; }

  // A state to go back to, for a load that fails. All that was added after it is
  // taken out again, and replaced features are filed again.
  struct Mark {
    std::size_t features;
    std::size_t staticGroups;
    std::size_t dynamicGroups;
    std::size_t replacements;
  };
  Mark mark() const;
  void rollBack(const Mark& mark) noexcept;

 private:
  struct Entry {
    std::string name;
    DriverFeature* feature;
  };
  using Entries = std::vector<std::unique_ptr<Entry>>;
  struct Replacement {
    Entry* entry;
    DriverFeature* before;
  };

  // The name at a position in the order of addition.
  struct NameAt {
    const Entries& features;
    std::string_view operator()(std::size_t position) const { return features[position]->name; }
  };
  NameAt nameAt() const { return {features_}; }
  void sort();

  Entries features_;  // In the order of addition.
  NameIndex names_;
  // The entries in the order of their names, as far as `sorted_`; then those that
  // were added since. Sorting is left to the next look-up by position.
  std::vector<Entry*> byName_;
  std::size_t sorted_ = 0;
  std::vector<Replacement> replacements_;
  std::vector<DriverFeatureStaticGroup*> staticGroups_;
  std::vector<DriverFeatureDynamicGroup*> dynamicGroups_;
  PropertyRoom room_;
};

}  // namespace driver_feature

#endif  // MODEL_FEATURE_LIST_H_
