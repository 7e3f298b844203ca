#include "model/feature_list.h"

#include <algorithm>
#include <utility>

#include "model/own_names.h"

namespace driver_feature {

namespace {

constexpr std::size_t kFew = 16;

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

// Without memory, nothing is added.
bool FeatureList::addFeature(const std::string& name, DriverFeature* feature) {
  if (name.empty() || feature == nullptr) return false;
  const int position = names_.find(name, nameAt());
  if (position >= 0) {
    Entry& entry = *features_[static_cast<std::size_t>(position)];
    replacements_.push_back({&entry, entry.feature});
    entry.feature = feature;
    return true;
  }
  auto entry = std::make_unique<Entry>(Entry{name, feature});
  names_.reserve(features_.size() + 1);
  if (byName_.size() == byName_.capacity()) byName_.reserve(2 * byName_.size() + kFew);
  features_.push_back(std::move(entry));
  byName_.push_back(features_.back().get());
  names_.add(nameAt());
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

void FeatureList::sort() {
  const auto precedes = [](const Entry* left, const Entry* right) {
    return left->name < right->name;
  };
  const auto added = byName_.begin() + static_cast<std::ptrdiff_t>(sorted_);
  std::sort(added, byName_.end(), precedes);
  std::inplace_merge(byName_.begin(), added, byName_.end(), precedes);
  sorted_ = byName_.size();
}

FeatureList::Mark FeatureList::mark() const {
  return {features_.size(), staticGroups_.size(), dynamicGroups_.size(), replacements_.size()};
}

void FeatureList::rollBack(const Mark& mark) noexcept {
  while (replacements_.size() > mark.replacements) {
    replacements_.back().entry->feature = replacements_.back().before;
    replacements_.pop_back();
  }
  while (features_.size() > mark.features) features_.pop_back();
  staticGroups_.resize(mark.staticGroups);
  dynamicGroups_.resize(mark.dynamicGroups);
  byName_.clear();
  for (const auto& entry : features_) byName_.push_back(entry.get());
  sorted_ = 0;
  names_.clear();
  for (std::size_t i = 0; i < features_.size(); ++i) names_.add(nameAt());
  noteNameChange();
}

}  // namespace driver_feature
