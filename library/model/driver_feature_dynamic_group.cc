// Properties, selection and template of a dynamic group.

#include "model/driver_feature_dynamic_group.h"

#include "model/constraint_set.h"
#include "model/messages.h"
#include "model/notification.h"
#include "model/own_names.h"
#include "model/property_table.h"

using driver_feature::Access;
using driver_feature::Kept;
using driver_feature::Level;
using driver_feature::logComposed;
using driver_feature::logFixed;
using driver_feature::Property;
using driver_feature::PropertyRow;
using driver_feature::PropertyTable;
using driver_feature::storeValue;
using driver_feature::valueOf;

// Required: the two commands and the sort routine's name can be set and not
// read back.
struct DriverFeatureDynamicGroup::Properties {
  using Name = Property;
  using G = DriverFeatureDynamicGroup;
  static constexpr Kept<G, std::string> kText{&G::kept_};

  static constexpr PropertyTable kTable{std::to_array<PropertyRow<G, Name>>({
      {Name::kAddPJLCallbackRoutine, kText, Access::kBoth},
      {Name::kAddPSCallbackRoutine, kText, Access::kBoth},
      {Name::kAddVORNCallbackRoutine, kText, Access::kBoth},
      {Name::kInstOptAttributeName, kText, Access::kBoth},
      {Name::kName, kText, Access::kBoth},
      {Name::kNonVORNAttributeName, kText, Access::kBoth},
      {Name::kPJLCommand, kText, Access::kSet},
      {Name::kPSCommand, kText, Access::kSet},
      {Name::kRecordInFocus, &G::recordInFocus_, Access::kBoth},
      {Name::kSensitivity, &G::sensitive_, Access::kBoth},
      {Name::kSortFunctionName, kText, Access::kSet},
      {Name::kTESKAttributeSyntax, kText, Access::kBoth},
      {Name::kTESKJTAttributeName, kText, Access::kBoth},
      {Name::kTESKOAAttributeName, kText, Access::kBoth},
      {Name::kVisibility, &G::visible_, Access::kBoth},
  })};
};

DriverFeatureDynamicGroup::DriverFeatureDynamicGroup(const std::string& name) {
  kept_.setText(static_cast<std::size_t>(Property::kName), name);
}

bool DriverFeatureDynamicGroup::setFeatureProperty(const std::string& name,
                                                   const std::string& value) {
  return setFeaturePropertyWithConstraintControl(name, value, false);
}

bool DriverFeatureDynamicGroup::setFeatureProperty(const std::string& name, int value) {
  return setFeaturePropertyWithConstraintControl(name, value, false);
}

bool DriverFeatureDynamicGroup::setFeatureProperty(const std::string& name, float value) {
  return setFeaturePropertyWithConstraintControl(name, value, false);
}

bool DriverFeatureDynamicGroup::setFeatureProperty(const std::string& name, bool value) {
  return setFeaturePropertyWithConstraintControl(name, value, false);
}

template <class Value>
bool DriverFeatureDynamicGroup::store(const std::string& name, const Value& value,
                                      bool suppressUpdate) {
  const auto* row = Properties::kTable.find<Value>(name, Access::kSet);
  if (row == nullptr) return false;
  storeValue(*this, *row, value);
  if (row->property == Property::kName) driver_feature::noteNameChange();
  driver_feature::notifyUpdate(suppressUpdate);
  return true;
}

bool DriverFeatureDynamicGroup::setFeaturePropertyWithConstraintControl(const std::string& name,
                                                                        const std::string& value,
                                                                        bool /*suppressUpdate*/) {
  // Storing a text never notifies, whatever the caller asks for.
  return store(name, value, true);
}

bool DriverFeatureDynamicGroup::setFeaturePropertyWithConstraintControl(const std::string& name,
                                                                        int value,
                                                                        bool suppressUpdate) {
  if (store(name, value, suppressUpdate)) return true;
  // Required: the group is named, the property is not.
  logComposed(Level::kWarning,
              "DriverFeatureDynamicGroup::setFeaturePropertyWithConstraintControl(int) - "
              "Unrecognized property for group:  \"{}.",
              ownName());
  return false;
}

bool DriverFeatureDynamicGroup::setFeaturePropertyWithConstraintControl(const std::string& /*name*/,
                                                                        float /*value*/,
                                                                        bool /*suppressUpdate*/) {
  logComposed(Level::kWarning,
              "DriverFeatureDynamicGroup::setFeaturePropertyWithConstraintControl(float) - No "
              "float group properties for group:  \"{}.",
              ownName());
  return false;
}

bool DriverFeatureDynamicGroup::setFeaturePropertyWithConstraintControl(const std::string& name,
                                                                        bool value,
                                                                        bool suppressUpdate) {
  if (store(name, value, suppressUpdate)) return true;
  logComposed(Level::kWarning,
              "DriverFeatureDynamicGroup::setFeaturePropertyWithConstraintControl(bool) - "
              "Unrecognized feature property:  \"{}\" for feature \"{}.",
              name, ownName());
  return false;
}

bool DriverFeatureDynamicGroup::getFeatureProperty(const std::string& name, std::string& value) {
  const auto* row = Properties::kTable.find<std::string>(name, Access::kGet);
  if (row == nullptr) return false;
  value = valueOf<std::string>(*this, *row);
  return true;
}

bool DriverFeatureDynamicGroup::getFeatureProperty(const std::string& name, int* value) {
  const auto* row = Properties::kTable.find<int>(name, Access::kGet);
  if (row == nullptr) {
    logComposed(Level::kWarning,
                "DriverFeatureDynamicGroup::getFeatureProperty(int) - Unrecognized property for "
                "group:  \"{}.",
                ownName());
    return false;
  }
  *value = valueOf<int>(*this, *row);
  return true;
}

bool DriverFeatureDynamicGroup::getFeatureProperty(const std::string& name, bool* value) {
  const auto* row = Properties::kTable.find<bool>(name, Access::kGet);
  if (row == nullptr) {
    logComposed(Level::kWarning,
                "DriverFeatureDynamicGroup::getFeatureProperty(bool*) - Unrecognized feature "
                "property:  \"{}\" for feature \"{}.",
                name, ownName());
    return false;
  }
  *value = valueOf<bool>(*this, *row);
  return true;
}

bool DriverFeatureDynamicGroup::getFeatureProperty(const std::string& /*name*/, float* /*value*/) {
  logComposed(Level::kWarning,
              "DriverFeatureDynamicGroup::getFeatureProperty(float) - No float group properties "
              "for group:  \"{}.",
              ownName());
  return false;
}

int DriverFeatureDynamicGroup::getFeatureType() {
  return type_;
}

bool DriverFeatureDynamicGroup::isConstraintSetEmpty() {
  return selectedEntries_.empty();
}

bool DriverFeatureDynamicGroup::addConstraint(const long& index) {
  return driver_feature::insertIdentifier(selectedEntries_, index);
}

bool DriverFeatureDynamicGroup::removeConstraint(const long& index) {
  return driver_feature::eraseIdentifier(selectedEntries_, index);
}

bool DriverFeatureDynamicGroup::isSelectionEmpty() {
  return isConstraintSetEmpty();
}

bool DriverFeatureDynamicGroup::selectDynamicEntry(long index) {
  return addConstraint(index);
}

bool DriverFeatureDynamicGroup::deselectDynamicEntry(long index) {
  return removeConstraint(index);
}

std::set<long>* DriverFeatureDynamicGroup::fetchSelectedEntries() {
  return &selectedEntries_;
}

bool DriverFeatureDynamicGroup::addDefaultStaticGroupTemplate(DriverFeatureStaticGroup* group) {
  if (group == nullptr) {
    logFixed(Level::kWarning,
             "DriverFeatureDynamicGroup::addDefaultStaticGroupTemplate(bool) - Null static group "
             "template pointer");
    return false;
  }
  if (template_ != nullptr) {
    logFixed(Level::kWarning,
             "DriverFeatureDynamicGroup::addDefaultStaticGroupTemplate() - Dynamic group static "
             "template already assigned");
    return false;
  }
  template_ = group;
  return true;
}
