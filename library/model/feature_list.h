// Which features and groups there are, and in which order.
#ifndef MODEL_FEATURE_LIST_H_
#define MODEL_FEATURE_LIST_H_

#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

class DriverFeature;
class DriverFeatureDynamicGroup;
class DriverFeatureStaticGroup;

namespace driver_feature {

// Holds plain pointers to what the loader has made and deletes none of it. Never
// holds null or a feature without a name. Objects are added; none is removed but
// by swapContents().
class FeatureList {
 public:
  using Features = std::map<std::string, DriverFeature*>;

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
    if (index < 0 || index >= featureCount()) return nullptr;
    moveTo(index);
    return lastFetched_->second;
  }
  DriverFeatureStaticGroup* staticGroupAt(int index) const;
  DriverFeatureDynamicGroup* dynamicGroupAt(int index) const;

  // The feature filed under that name, or null.
  DriverFeature* findFeature(const std::string& name) const {
    if (index_.empty()) return searchFeatures(name);
    const auto found = index_.find(name);
    return found != index_.end() ? found->second->second : nullptr;
  }

  // Makes features be found in a time that hardly grows with their number, also
  // those that are added later. For the end of a load: memory is asked for here,
  // and not at a look-up.
  void indexNames();

  // What is listed, for taking back a load that has failed.
  struct Contents {
    Features features;
    std::vector<DriverFeatureStaticGroup*> staticGroups;
    std::vector<DriverFeatureDynamicGroup*> dynamicGroups;
  };
  Contents copyContents() const;
  void swapContents(Contents& contents) noexcept;

 private:
  DriverFeature* searchFeatures(const std::string& name) const;
  void index(const Features::value_type& entry);
  void moveTo(int index);
  void forgetPositions() noexcept { lastFetchedIndex_ = -1; }

  Features features_;
  std::vector<DriverFeatureStaticGroup*> staticGroups_;
  std::vector<DriverFeatureDynamicGroup*> dynamicGroups_;

  // The entries of features_ by name: all of them, or none. Entries keep their
  // places in the map, so that a feature filed in the place of another one needs
  // no change here.
  using Index = std::unordered_map<std::string_view, const Features::value_type*>;
  Index index_;

  // The entry that was last fetched by its position, so that a walk over all
  // positions takes one step for each instead of starting anew. -1: there is
  // none since the list has grown.
  Features::const_iterator lastFetched_;
  int lastFetchedIndex_ = -1;
};

inline void FeatureList::moveTo(int index) {
  const bool isNearerToStart = lastFetchedIndex_ - index > index;
  if (lastFetchedIndex_ < 0 || isNearerToStart) {
    lastFetched_ = features_.begin();
    lastFetchedIndex_ = 0;
  }
  for (; lastFetchedIndex_ < index; ++lastFetchedIndex_) ++lastFetched_;
  for (; lastFetchedIndex_ > index; --lastFetchedIndex_) --lastFetched_;
}

}  // namespace driver_feature

#endif  // MODEL_FEATURE_LIST_H_
