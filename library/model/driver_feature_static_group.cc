#include "model/driver_feature_static_group.h"

#include "model/messages.h"
#include "model/property_table.h"
#include "model/text_conversion.h"

using driver_feature::Access;
using driver_feature::Level;
using driver_feature::logComposed;
using driver_feature::memberOf;
using driver_feature::Property;
using driver_feature::PropertyRow;
using driver_feature::PropertyTable;

struct DriverFeatureStaticGroup::Properties {
  using Name = Property;
  using G = DriverFeatureStaticGroup;

  static constexpr PropertyTable kTable{std::to_array<PropertyRow<G, Name>>({
      {Name::kAddPJLCallbackRoutine, &G::pjlCallbackRoutine_, Access::kBoth},
      {Name::kAddPSCallbackRoutine, &G::psCallbackRoutine_, Access::kBoth},
      {Name::kAddVORNCallbackRoutine, &G::vornCallbackRoutine_, Access::kBoth},
      {Name::kFeatureInGroup, &G::inGroup_, Access::kBoth},
      {Name::kFeatureType, &G::type_, Access::kBoth},
      {Name::kInstOptAttributeName, &G::instOptAttributeName_, Access::kBoth},
      {Name::kName, &G::name_, Access::kBoth},
      {Name::kNonVORNAttributeName, &G::nonVORNAttributeName_, Access::kBoth},
      {Name::kPJLCommand, &G::pjlCommand_, Access::kBoth},
      {Name::kPSCommand, &G::psCommand_, Access::kBoth},
      {Name::kTESKAttributeSyntax, &G::teskAttributeSyntax_, Access::kBoth},
      {Name::kTESKJTAttributeName, &G::teskJTAttributeName_, Access::kBoth},
      {Name::kTESKOAAttributeName, &G::teskOAAttributeName_, Access::kBoth},
  })};
};

bool DriverFeatureStaticGroup::setFeatureProperty(const std::string& name,
                                                  const std::string& value) {
  const auto* row = Properties::kTable.find<std::string>(name, Access::kSet);
  if (row == nullptr) return false;
  memberOf<std::string>(*this, *row) = value;
  return true;
}

bool DriverFeatureStaticGroup::setFeatureProperty(const std::string& name, int value) {
  const auto* row = Properties::kTable.find<int>(name, Access::kSet);
  if (row == nullptr) {
    logComposed(Level::kWarning,
                "DriverFeatureStaticGroup::setFeatureProperty(int) - Unrecognized feature "
                "property:  \"{}\" for feature \"{}.",
                name, name_);
    return false;
  }
  if (value < 0 || value > driver_feature::kHighestFeatureType) {
    logComposed(Level::kWarning,
                "DriverFeatureStaticGroup::setFeatureProperty(int) - Invalid feature property "
                "value \"{}\" for feature property \"{}\" for feature \"{}.",
                driver_feature::toDecimalText(value), name, name_);
    return false;
  }
  memberOf<int>(*this, *row) = value;
  return true;
}

bool DriverFeatureStaticGroup::setFeatureProperty(const std::string& /*name*/, float /*value*/) {
  logComposed(Level::kWarning,
              "DriverFeatureStaticGroup::setFeatureProperty(float) - No float group properties "
              "for group:  \"{}.",
              name_);
  return false;
}

bool DriverFeatureStaticGroup::setFeatureProperty(const std::string& name, bool value) {
  const auto* row = Properties::kTable.find<bool>(name, Access::kSet);
  if (row == nullptr) {
    logComposed(Level::kWarning,
                "DriverFeatureStaticGroup::setFeatureProperty(bool) - Unrecognized feature "
                "property:  \"{}\" for feature \"{}.",
                name, name_);
    return false;
  }
  memberOf<bool>(*this, *row) = value;
  return true;
}

bool DriverFeatureStaticGroup::getFeatureProperty(const std::string& name, std::string& value) {
  const auto* row = Properties::kTable.find<std::string>(name, Access::kGet);
  if (row == nullptr) return false;
  value = memberOf<std::string>(*this, *row);
  return true;
}

bool DriverFeatureStaticGroup::getFeatureProperty(const std::string& name, int* value) {
  const auto* row = Properties::kTable.find<int>(name, Access::kGet);
  if (row == nullptr) {
    logComposed(Level::kWarning,
                "DriverFeatureStaticGroup::getFeatureProperty(int*) - Unrecognized feature "
                "property:  \"{}\" for feature \"{}.",
                name, name_);
    return false;
  }
  *value = memberOf<int>(*this, *row);
  return true;
}

bool DriverFeatureStaticGroup::getFeatureProperty(const std::string& name, bool* value) {
  const auto* row = Properties::kTable.find<bool>(name, Access::kGet);
  if (row == nullptr) {
    logComposed(Level::kWarning,
                "DriverFeatureStaticGroup::getFeatureProperty(bool*) - Unrecognized feature "
                "property:  \"{}\" for feature \"{}.",
                name, name_);
    return false;
  }
  *value = memberOf<bool>(*this, *row);
  return true;
}

bool DriverFeatureStaticGroup::getFeatureProperty(const std::string& /*name*/, float* /*value*/) {
  logComposed(Level::kWarning,
              "DriverFeatureStaticGroup::getFeatureProperty(float) - No float group properties "
              "for group:  \"{}.",
              name_);
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

CoreFeature* DriverFeatureStaticGroup::fetchFeatureInGroupByName(const std::string& name) {
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
