// Properties, selection and template of a dynamic group.

#include "model/driver_feature_dynamic_group.h"

#include "model/constraint_set.h"
#include "model/messages.h"
#include "model/notification.h"
#include "model/property_table.h"

using driver_feature::Access;
using driver_feature::Level;
using driver_feature::logComposed;
using driver_feature::logFixed;
using driver_feature::memberOf;
using driver_feature::Property;
using driver_feature::PropertyRow;
using driver_feature::PropertyTable;

// Required: the two commands and the sort routine's name can be set and not
// read back.
struct DriverFeatureDynamicGroup::Properties {
  using Name = Property;
  using G = DriverFeatureDynamicGroup;

  static constexpr PropertyTable kTable{std::to_array<PropertyRow<G, Name>>({
      {Name::kAddPJLCallbackRoutine, &G::pjlCallbackRoutine_, Access::kBoth},
      {Name::kAddPSCallbackRoutine, &G::psCallbackRoutine_, Access::kBoth},
      {Name::kAddVORNCallbackRoutine, &G::vornCallbackRoutine_, Access::kBoth},
      {Name::kInstOptAttributeName, &G::instOptAttributeName_, Access::kBoth},
      {Name::kName, &G::name_, Access::kBoth},
      {Name::kNonVORNAttributeName, &G::nonVORNAttributeName_, Access::kBoth},
      {Name::kPJLCommand, &G::pjlCommand_, Access::kSet},
      {Name::kPSCommand, &G::psCommand_, Access::kSet},
      {Name::kRecordInFocus, &G::recordInFocus_, Access::kBoth},
      {Name::kSensitivity, &G::sensitive_, Access::kBoth},
      {Name::kSortFunctionName, &G::sortFunctionName_, Access::kSet},
      {Name::kTESKAttributeSyntax, &G::teskAttributeSyntax_, Access::kBoth},
      {Name::kTESKJTAttributeName, &G::teskJTAttributeName_, Access::kBoth},
      {Name::kTESKOAAttributeName, &G::teskOAAttributeName_, Access::kBoth},
      {Name::kVisibility, &G::visible_, Access::kBoth},
  })};
};

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
  memberOf<Value>(*this, *row) = value;
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
              name_);
  return false;
}

bool DriverFeatureDynamicGroup::setFeaturePropertyWithConstraintControl(const std::string& /*name*/,
                                                                        float /*value*/,
                                                                        bool /*suppressUpdate*/) {
  logComposed(Level::kWarning,
              "DriverFeatureDynamicGroup::setFeaturePropertyWithConstraintControl(float) - No "
              "float group properties for group:  \"{}.",
              name_);
  return false;
}

bool DriverFeatureDynamicGroup::setFeaturePropertyWithConstraintControl(const std::string& name,
                                                                        bool value,
                                                                        bool suppressUpdate) {
  if (store(name, value, suppressUpdate)) return true;
  logComposed(Level::kWarning,
              "DriverFeatureDynamicGroup::setFeaturePropertyWithConstraintControl(bool) - "
              "Unrecognized feature property:  \"{}\" for feature \"{}.",
              name, name_);
  return false;
}

bool DriverFeatureDynamicGroup::getFeatureProperty(const std::string& name, std::string& value) {
  const auto* row = Properties::kTable.find<std::string>(name, Access::kGet);
  if (row == nullptr) return false;
  value = memberOf<std::string>(*this, *row);
  return true;
}

bool DriverFeatureDynamicGroup::getFeatureProperty(const std::string& name, int* value) {
  const auto* row = Properties::kTable.find<int>(name, Access::kGet);
  if (row == nullptr) {
    logComposed(Level::kWarning,
                "DriverFeatureDynamicGroup::getFeatureProperty(int) - Unrecognized property for "
                "group:  \"{}.",
                name_);
    return false;
  }
  *value = memberOf<int>(*this, *row);
  return true;
}

bool DriverFeatureDynamicGroup::getFeatureProperty(const std::string& name, bool* value) {
  const auto* row = Properties::kTable.find<bool>(name, Access::kGet);
  if (row == nullptr) {
    logComposed(Level::kWarning,
                "DriverFeatureDynamicGroup::getFeatureProperty(bool*) - Unrecognized feature "
                "property:  \"{}\" for feature \"{}.",
                name, name_);
    return false;
  }
  *value = memberOf<bool>(*this, *row);
  return true;
}

bool DriverFeatureDynamicGroup::getFeatureProperty(const std::string& /*name*/, float* /*value*/) {
  logComposed(Level::kWarning,
              "DriverFeatureDynamicGroup::getFeatureProperty(float) - No float group properties "
              "for group:  \"{}.",
              name_);
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
