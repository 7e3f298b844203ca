#include "frame/driver_feature_set.h"

#include <iostream>
#include <type_traits>

#include "diagnostics/dump.h"
#include "model/driver_feature.h"
#include "model/driver_feature_dynamic_group.h"
#include "model/driver_feature_static_group.h"
#include "model/messages.h"
#include "model/notification.h"
#include "model/vocabulary.h"
#include "output/serialization.h"

#include "Symbols.h"

using driver_feature::Level;
using driver_feature::logComposed;
using driver_feature::nameText;
using driver_feature::Property;

namespace {

enum PDLType : int { kTypePJL = 0, kTypePostScript = 1, kTypeTicket = 2 };

// Whether the group's text property `attribute` holds `wanted`. Required: a group
// that has no such property is compared with what the candidate before it has
// left in `text`.
bool holds(CoreFeature& group, const std::string& attribute, const std::string& wanted,
           std::string& text) {
  group.getFeatureProperty(attribute, text);
  return text == wanted;
}

// Copies a default value into the current one.
template <class Value>
void restoreDefault(DriverFeature& feature, Property from, Property to) {
  Value value{};
  if constexpr (std::is_same_v<Value, std::string>) {
    feature.getFeatureProperty(nameText(from), value);
  } else {
    feature.getFeatureProperty(nameText(from), &value);
  }
  feature.setFeaturePropertyWithConstraintControl(nameText(to), value, true);
}

}  // namespace

int DriverFeatureSet::fetchNumberOfFeatures() {
  return list_.featureCount();
}

DriverFeature* DriverFeatureSet::fetchFeatureByIndex(int index) {
  return list_.featureAt(index);
}

CoreFeature* DriverFeatureSet::FindFeatureInFeatureList(const std::string& name) {
  if (DriverFeature* feature = list_.findFeature(name)) return feature;
  return findGroup(name);
}

// The group of that name, or null. Nothing when the groups have to be asked, since
// one is of a host's class or the platform does not know the property.
std::optional<CoreFeature*> DriverFeatureSet::findOwnGroup(const std::string& name) {
  if (list_.staticGroupCount() == 0 && list_.dynamicGroupCount() == 0) return nullptr;
  if (driver_feature::findProperty("Name") != Property::kName) return std::nullopt;
  const auto staticPosition = staticGroupNames_.find(
      name, list_.staticGroupCount(),
      [this](int position) { return driver_feature::nameOfOwn(list_.staticGroupAt(position)); });
  const auto dynamicPosition = dynamicGroupNames_.find(
      name, list_.dynamicGroupCount(),
      [this](int position) { return driver_feature::nameOfOwn(list_.dynamicGroupAt(position)); });
  if (!staticPosition || !dynamicPosition) return std::nullopt;
  CoreFeature* group = list_.staticGroupAt(*staticPosition);
  return group != nullptr ? group : list_.dynamicGroupAt(*dynamicPosition);
}

CoreFeature* DriverFeatureSet::findGroup(const std::string& name) {
  if (const auto group = findOwnGroup(name)) {
    if (*group != nullptr) return *group;
  } else {
    std::string text;
    if (CoreFeature* asked = findStaticGroup("Name", name, text)) return asked;
    if (CoreFeature* asked = findDynamicGroup("Name", name, text)) return asked;
  }
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
  if (CoreFeature* group = findStaticGroup(attribute, attribute, text)) return group;
  if (CoreFeature* group = findDynamicGroup(attribute, attribute, text)) return group;
  logComposed(Level::kInformation,
              "FindFeatureInFeatureList() - Couldn't find feature with attribute \"{}\".", value);
  return nullptr;
}

// Groups are walked by position: the platform's look-up of a name may add some.

CoreFeature* DriverFeatureSet::findStaticGroup(const std::string& attribute,
                                               const std::string& wanted, std::string& text) {
  for (int i = 0; i < list_.staticGroupCount(); ++i) {
    DriverFeatureStaticGroup* group = list_.staticGroupAt(i);
    if (holds(*group, attribute, wanted, text)) return group;
  }
  return nullptr;
}

CoreFeature* DriverFeatureSet::findDynamicGroup(const std::string& attribute,
                                                const std::string& wanted, std::string& text) {
  for (int i = 0; i < list_.dynamicGroupCount(); ++i) {
    DriverFeatureDynamicGroup* group = list_.dynamicGroupAt(i);
    if (holds(*group, attribute, wanted, text)) return group;
  }
  return nullptr;
}

// Required: hosts may call it, and it has never made anything.
DriverFeatureOption* DriverFeatureSet::CreateOptionForFeature(const std::string& /*featureName*/,
                                                              const std::string& /*optionName*/,
                                                              int /*number*/) {
  return nullptr;
}

// A routine that throws leaves no half of a job that could be taken for a whole
// one.
void DriverFeatureSet::serialize(std::string& output, int pdlType, bool includeInstOpt,
                                 const char* ticketArgument1, const char* ticketArgument2) try {
  const driver_feature::OutputSource source{*this, list_, this};
  switch (pdlType) {
    case kTypePJL:
      return writeText(source, driver_feature::kPJL, output);
    case kTypePostScript:
      return writeText(source, driver_feature::kPostScript, output);
    case kTypeTicket:
      return writeTicket(source, includeInstOpt, ticketArgument1, ticketArgument2, output);
    default:
      driver_feature::logFixed(Level::kMisuse, "serialize() - Invalid PDL type");
  }
} catch (...) {
  output.clear();
  throw;
}

void DriverFeatureSet::dumpFeatureListValues() {
  std::cout << driver_feature::dumpOf(*this, list_) << std::flush;
}

void DriverFeatureSet::restoreDefaultFeatureValues() {
  for (int i = 0; i < fetchNumberOfFeatures(); ++i) {
    DriverFeature* feature = fetchFeatureByIndex(i);
    if (feature == nullptr) continue;
    switch (feature->getFeatureType()) {
      case driver_feature::kTextEntry:
        restoreDefault<std::string>(*feature, Property::kDefaultTextValue,
                                    Property::kCurrentTextValue);
        break;
      case driver_feature::kMultiSelect:
      case driver_feature::kIntEntry:
        restoreDefault<int>(*feature, Property::kDefaultIntValue, Property::kCurrentIntValue);
        break;
      case driver_feature::kFloatEntry:
        restoreDefault<float>(*feature, Property::kDefaultFloatValue, Property::kCurrentFloatValue);
        break;
      default:
        break;
    }
  }
  driver_feature::callUpdateCallback();
}

int DriverFeatureSet::addFeatureToFeatureList(const std::string& name, DriverFeature* feature) {
  return list_.addFeature(name, feature) ? 1 : 0;
}

int DriverFeatureSet::addStaticGroupToFeatureList(DriverFeatureStaticGroup* group) {
  return list_.addStaticGroup(group) ? 1 : 0;
}

int DriverFeatureSet::addDynamicGroupToFeatureList(DriverFeatureDynamicGroup* group) {
  return list_.addDynamicGroup(group) ? 1 : 0;
}

DriverFeatureStaticGroup* DriverFeatureSet::fetchStaticGroupByIndex(int index) {
  return list_.staticGroupAt(index);
}

DriverFeatureDynamicGroup* DriverFeatureSet::fetchDynamicGroupByIndex(int index) {
  return list_.dynamicGroupAt(index);
}

void* DriverFeatureSet::fetchCallbackRoutine(const std::string& routineName) {
  return FetchSymbol(routineName.c_str());
}
