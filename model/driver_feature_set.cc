#include "model/driver_feature_set.h"

#include "frame/state.h"
#include "model/driver_feature.h"
#include "model/driver_feature_dynamic_group.h"
#include "model/driver_feature_static_group.h"
#include "model/messages.h"
#include "model/vocabulary.h"

#include "Symbols.h"

using driver_feature::Level;
using driver_feature::logComposed;

namespace {

// The first of `groups` whose text property `attribute` holds `wanted`, or
// null. Required: a group that has no such property is compared with what the
// candidate before it has left in `text`.
template <class Group>
CoreFeature* findGroup(const std::vector<Group*>& groups, const std::string& attribute,
                       const std::string& wanted, std::string& text) {
  // By position: the platform's look-up of the name may add groups.
  for (std::size_t i = 0; i < groups.size(); ++i) {
    Group* group = groups[i];
    group->getFeatureProperty(attribute, text);
    if (text == wanted) return group;
  }
  return nullptr;
}

template <class Group>
Group* groupAt(const std::vector<Group*>& groups, int index) {
  const auto position = static_cast<std::size_t>(index);  // Negative: beyond every list.
  return position < groups.size() ? groups[position] : nullptr;
}

template <class Group>
int append(std::vector<Group*>& groups, Group* group) {
  if (group == nullptr) return 0;
  groups.push_back(group);
  return 1;
}

// The pair of properties that a default travels between.
template <class Value>
void restoreDefault(DriverFeature& feature, const char* from, const char* to) {
  Value value{};
  if constexpr (std::is_same_v<Value, std::string>) {
    feature.getFeatureProperty(std::string(from), value);
  } else {
    feature.getFeatureProperty(std::string(from), &value);
  }
  feature.setFeaturePropertyWithConstraintControl(std::string(to), value, true);
}

}  // namespace

int DriverFeatureSet::fetchNumberOfFeatures() {
  return static_cast<int>(features_.size());
}

DriverFeature* DriverFeatureSet::fetchFeatureByIndex(int index) {
  if (index < 0 || static_cast<std::size_t>(index) >= features_.size()) return nullptr;
  return featureAt(index)->second;
}

DriverFeatureSet::Features::const_iterator DriverFeatureSet::featureAt(int index) {
  const bool isNearerToStart = lastFetchedIndex_ - index > index;
  if (lastFetchedIndex_ < 0 || isNearerToStart) {
    lastFetched_ = features_.begin();
    lastFetchedIndex_ = 0;
  }
  for (; lastFetchedIndex_ < index; ++lastFetchedIndex_) ++lastFetched_;
  for (; lastFetchedIndex_ > index; --lastFetchedIndex_) --lastFetched_;
  return lastFetched_;
}

CoreFeature* DriverFeatureSet::FindFeatureInFeatureList(const std::string& name) {
  if (DriverFeature* feature = index_.find(features_, name)) return feature;
  std::string text;
  if (CoreFeature* group = findGroup(staticGroups_, "Name", name, text)) return group;
  if (CoreFeature* group = findGroup(dynamicGroups_, "Name", name, text)) return group;
  logComposed(Level::kWarning, "FindFeatureInFeatureList() - Did not find feature \"{}\".", name);
  return nullptr;
}

CoreFeature* DriverFeatureSet::FindFeatureInFeatureList(const std::string& attribute,
                                                        const std::string& value) {
  std::string text;
  for (int i = 0; i < fetchNumberOfFeatures(); ++i) {
    DriverFeature* feature = fetchFeatureByIndex(i);
    if (feature == nullptr) continue;
    feature->getFeatureProperty(attribute, text);
    if (text == value) return feature;
  }
  // Required: groups are compared with the attribute's name, not the value.
  if (CoreFeature* group = findGroup(staticGroups_, attribute, attribute, text)) return group;
  if (CoreFeature* group = findGroup(dynamicGroups_, attribute, attribute, text)) return group;
  logComposed(Level::kInformation,
              "FindFeatureInFeatureList() - Couldn't find feature with attribute \"{}\".", value);
  return nullptr;
}

// Required: hosts may call it, and it has never made anything.
DriverFeatureOption* DriverFeatureSet::CreateOptionForFeature(const std::string& /*featureName*/,
                                                              const std::string& /*optionName*/,
                                                              int /*number*/) {
  return nullptr;
}

void DriverFeatureSet::restoreDefaultFeatureValues() {
  for (int i = 0; i < fetchNumberOfFeatures(); ++i) {
    DriverFeature* feature = fetchFeatureByIndex(i);
    if (feature == nullptr) continue;
    switch (feature->getFeatureType()) {
      case driver_feature::kTextEntry:
        restoreDefault<std::string>(*feature, "DefaultTextValue", "CurrentTextValue");
        break;
      case driver_feature::kMultiSelect:
      case driver_feature::kIntEntry:
        restoreDefault<int>(*feature, "DefaultIntValue", "CurrentIntValue");
        break;
      case driver_feature::kFloatEntry:
        restoreDefault<float>(*feature, "DefaultFloatValue", "CurrentFloatValue");
        break;
      default:
        break;
    }
  }
  driver_feature::callUpdateCallback();
}

int DriverFeatureSet::addFeatureToFeatureList(const std::string& name, DriverFeature* feature) {
  if (name.empty() || feature == nullptr) return 0;
  const auto [entry, isNew] = features_.insert_or_assign(name, feature);
  if (isNew) index_.add(features_, *entry);
  lastFetchedIndex_ = -1;
  return 1;
}

int DriverFeatureSet::addStaticGroupToFeatureList(DriverFeatureStaticGroup* group) {
  return append(staticGroups_, group);
}

int DriverFeatureSet::addDynamicGroupToFeatureList(DriverFeatureDynamicGroup* group) {
  return append(dynamicGroups_, group);
}

int DriverFeatureSet::fetchNumberOfStaticGroups() const {
  return static_cast<int>(staticGroups_.size());
}

int DriverFeatureSet::fetchNumberOfDynamicGroups() const {
  return static_cast<int>(dynamicGroups_.size());
}

DriverFeatureStaticGroup* DriverFeatureSet::fetchStaticGroupByIndex(int index) {
  return groupAt(staticGroups_, index);
}

DriverFeatureDynamicGroup* DriverFeatureSet::fetchDynamicGroupByIndex(int index) {
  return groupAt(dynamicGroups_, index);
}

void* DriverFeatureSet::fetchCallbackRoutine(const std::string& routineName) {
  return FetchSymbol(routineName.c_str());
}

DriverFeatureSet::Contents DriverFeatureSet::copyContents() const {
  return {features_, staticGroups_, dynamicGroups_};
}

void DriverFeatureSet::swapContents(Contents& contents) noexcept {
  features_.swap(contents.features);
  staticGroups_.swap(contents.staticGroups);
  dynamicGroups_.swap(contents.dynamicGroups);
  index_.clear();
  lastFetchedIndex_ = -1;
}
