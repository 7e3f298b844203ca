#include "model/feature_list.h"

#include <cstddef>
#include <new>

namespace driver_feature {

namespace {

template <class Group>
Group* groupAt(const std::vector<Group*>& groups, int index) {
  const auto position = static_cast<std::size_t>(index);  // Negative: beyond every list.
  return position < groups.size() ? groups[position] : nullptr;
}

template <class Group>
bool append(std::vector<Group*>& groups, Group* group) {
  if (group == nullptr) return false;
  groups.push_back(group);
  return true;
}

}  // namespace

bool FeatureList::addFeature(const std::string& name, DriverFeature* feature) {
  if (name.empty() || feature == nullptr) return false;
  const auto [entry, isNew] = features_.insert_or_assign(name, feature);
  if (isNew && !index_.empty()) index(*entry);
  forgetPositions();
  return true;
}

bool FeatureList::addStaticGroup(DriverFeatureStaticGroup* group) {
  return append(staticGroups_, group);
}

bool FeatureList::addDynamicGroup(DriverFeatureDynamicGroup* group) {
  return append(dynamicGroups_, group);
}

DriverFeatureStaticGroup* FeatureList::staticGroupAt(int index) const {
  return groupAt(staticGroups_, index);
}

DriverFeatureDynamicGroup* FeatureList::dynamicGroupAt(int index) const {
  return groupAt(dynamicGroups_, index);
}

DriverFeature* FeatureList::searchFeatures(const std::string& name) const {
  const auto found = features_.find(name);
  return found != features_.end() ? found->second : nullptr;
}

void FeatureList::indexNames() {
  // Made aside: there must be all of it or none.
  Index index;
  index.reserve(features_.size());
  for (const auto& entry : features_) index.emplace(entry.first, &entry);
  index_.swap(index);
}

// Without memory for the entry the index is dropped, and the map is searched
// instead.
void FeatureList::index(const Features::value_type& entry) try {
  index_.emplace(entry.first, &entry);
} catch (const std::bad_alloc&) {
  index_.clear();
}

FeatureList::Contents FeatureList::copyContents() const {
  return {features_, staticGroups_, dynamicGroups_};
}

void FeatureList::swapContents(Contents& contents) noexcept {
  features_.swap(contents.features);
  staticGroups_.swap(contents.staticGroups);
  dynamicGroups_.swap(contents.dynamicGroups);
  index_.clear();
  forgetPositions();
}

}  // namespace driver_feature
