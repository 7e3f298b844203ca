#include "model/driver_feature_static_group.h"

#include "model/messages.h"
#include "model/own_names.h"
#include "model/property_table.h"
#include "model/text_conversion.h"

using driver_feature::Access;
using driver_feature::Kept;
using driver_feature::Level;
using driver_feature::logComposed;
using driver_feature::Property;
using driver_feature::PropertyRow;
using driver_feature::PropertyTable;
using driver_feature::storeValue;
using driver_feature::valueOf;

struct DriverFeatureStaticGroup::Properties {
  using Name = Property;
  using G = DriverFeatureStaticGroup;
  static constexpr Kept<G, std::string> kText{&G::kept_};

  static constexpr PropertyTable kTable{std::to_array<PropertyRow<G, Name>>({
      {Name::kAddPJLCallbackRoutine, kText, Access::kBoth},
      {Name::kAddPSCallbackRoutine, kText, Access::kBoth},
      {Name::kAddVORNCallbackRoutine, kText, Access::kBoth},
      {Name::kFeatureInGroup, &G::inGroup_, Access::kBoth},
      {Name::kFeatureType, &G::type_, Access::kBoth},
      {Name::kInstOptAttributeName, kText, Access::kBoth},
      {Name::kName, kText, Access::kBoth},
      {Name::kNonVORNAttributeName, kText, Access::kBoth},
      {Name::kPJLCommand, kText, Access::kBoth},
      {Name::kPSCommand, kText, Access::kBoth},
      {Name::kTESKAttributeSyntax, kText, Access::kBoth},
      {Name::kTESKJTAttributeName, kText, Access::kBoth},
      {Name::kTESKOAAttributeName, kText, Access::kBoth},
  })};
};

DriverFeatureStaticGroup::DriverFeatureStaticGroup(const std::string& name) {
  kept_.setText(static_cast<std::size_t>(Property::kName), name);
}

bool DriverFeatureStaticGroup::setFeatureProperty(const std::string& name,
                                                  const std::string& value) {
  const auto* row = Properties::kTable.find<std::string>(name, Access::kSet);
  if (row == nullptr) return false;
  storeValue(*this, *row, value);
  if (row->property == Property::kName) driver_feature::noteNameChange();
  return true;
}

bool DriverFeatureStaticGroup::setFeatureProperty(const std::string& name, int value) {
  const auto* row = Properties::kTable.find<int>(name, Access::kSet);
  if (row == nullptr) {
    logComposed(Level::kWarning,
                "DriverFeatureStaticGroup::setFeatureProperty(int) - Unrecognized feature "
                "property:  \"{}\" for feature \"{}.",
                name, ownName());
    return false;
  }
  if (value < 0 || value > driver_feature::kHighestFeatureType) {
    logComposed(Level::kWarning,
                "DriverFeatureStaticGroup::setFeatureProperty(int) - Invalid feature property "
                "value \"{}\" for feature property \"{}\" for feature \"{}.",
                driver_feature::toDecimalText(value), name, ownName());
    return false;
  }
  storeValue(*this, *row, value);
  return true;
}

bool DriverFeatureStaticGroup::setFeatureProperty(const std::string& /*name*/, float /*value*/) {
  logComposed(Level::kWarning,
              "DriverFeatureStaticGroup::setFeatureProperty(float) - No float group properties "
              "for group:  \"{}.",
              ownName());
  return false;
}

bool DriverFeatureStaticGroup::setFeatureProperty(const std::string& name, bool value) {
  const auto* row = Properties::kTable.find<bool>(name, Access::kSet);
  if (row == nullptr) {
    logComposed(Level::kWarning,
                "DriverFeatureStaticGroup::setFeatureProperty(bool) - Unrecognized feature "
                "property:  \"{}\" for feature \"{}.",
                name, ownName());
    return false;
  }
  storeValue(*this, *row, value);
  return true;
}

bool DriverFeatureStaticGroup::getFeatureProperty(const std::string& name, std::string& value) {
  const auto* row = Properties::kTable.find<std::string>(name, Access::kGet);
  if (row == nullptr) return false;
  value = valueOf<std::string>(*this, *row);
  return true;
}

bool DriverFeatureStaticGroup::getFeatureProperty(const std::string& name, int* value) {
  const auto* row = Properties::kTable.find<int>(name, Access::kGet);
  if (row == nullptr) {
    logComposed(Level::kWarning,
                "DriverFeatureStaticGroup::getFeatureProperty(int*) - Unrecognized feature "
                "property:  \"{}\" for feature \"{}.",
                name, ownName());
    return false;
  }
  *value = valueOf<int>(*this, *row);
  return true;
}

bool DriverFeatureStaticGroup::getFeatureProperty(const std::string& name, bool* value) {
  const auto* row = Properties::kTable.find<bool>(name, Access::kGet);
  if (row == nullptr) {
    logComposed(Level::kWarning,
                "DriverFeatureStaticGroup::getFeatureProperty(bool*) - Unrecognized feature "
                "property:  \"{}\" for feature \"{}.",
                name, ownName());
    return false;
  }
  *value = valueOf<bool>(*this, *row);
  return true;
}

bool DriverFeatureStaticGroup::getFeatureProperty(const std::string& /*name*/, float* /*value*/) {
  logComposed(Level::kWarning,
              "DriverFeatureStaticGroup::getFeatureProperty(float) - No float group properties "
              "for group:  \"{}.",
              ownName());
  return false;
}

int DriverFeatureStaticGroup::getFeatureType() {
  return type_;
}

int DriverFeatureStaticGroup::fetchNumberOfFeaturesInGroup() {
  return static_cast<int>(members_.size());
}

CoreFeature* DriverFeatureStaticGroup::fetchFeatureInGroupByIndex(unsigned index) {
  return index < members_.size() ? members_[index] : nullptr;
}

bool DriverFeatureStaticGroup::addFeatureToGroup(CoreFeature* member) {
  if (member == nullptr) return false;
  members_.push_back(member);
  return member->setFeatureProperty(std::string("FeatureInGroup"), true);
}

// The position of the first member of that name, or -1. Nothing when the members
// have to be asked.
std::optional<int> DriverFeatureStaticGroup::findAmongOwn(const std::string& name) {
  if (members_.empty()) return -1;
  if (driver_feature::findProperty("Name") != Property::kName) return std::nullopt;
  const auto nameAt = [this](int position) {
    return driver_feature::nameOfOwn(members_[static_cast<std::size_t>(position)]);
  };
  return names_.find(name, static_cast<int>(members_.size()), nameAt);
}

CoreFeature* DriverFeatureStaticGroup::fetchFeatureInGroupByName(const std::string& name) {
  if (const auto position = findAmongOwn(name)) {
    return *position >= 0 ? members_[static_cast<std::size_t>(*position)] : nullptr;
  }
  std::string memberName;
  // By position: a member that is the host's, or the platform's look-up of the
  // name, may add members.
  // NOLINTNEXTLINE(modernize-loop-convert): the list may grow meanwhile.
  for (std::size_t i = 0; i < members_.size(); ++i) {
    CoreFeature* member = members_[i];
    member->getFeatureProperty(std::string("Name"), memberName);
    if (memberName == name) return member;
  }
  return nullptr;
}
