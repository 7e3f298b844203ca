#include "model/driver_feature_option.h"

#include "model/constraint_set.h"
#include "model/messages.h"
#include "model/property_table.h"

using driver_feature::Access;
using driver_feature::Level;
using driver_feature::logComposed;
using driver_feature::MessageText;
using driver_feature::OptionProperty;
using driver_feature::PropertyRow;
using driver_feature::PropertyTable;

struct DriverFeatureOption::Properties {
  using Name = OptionProperty;
  using Option = DriverFeatureOption;

  static constexpr PropertyTable kTable{std::to_array<PropertyRow<Option, Name>>({
      {Name::kCLOKey, &Option::cloKey_, Access::kBoth},
      {Name::kDisplayText, &Option::displayText_, Access::kBoth},
      {Name::kName, &Option::name_, Access::kBoth},
      {Name::kPJLCommand, &Option::pjlCommand_, Access::kBoth},
      {Name::kPSCommand, &Option::psCommand_, Access::kBoth},
      {Name::kSNMPValue, &Option::snmpValue_, Access::kBoth},
      {Name::kSensitivity, &Option::sensitive_, Access::kBoth},
      {Name::kTESKCommand, &Option::teskCommand_, Access::kBoth},
      {Name::kTESKTicketCommand, &Option::teskTicketCommand_, Access::kBoth},
      {Name::kVisibility, &Option::visible_, Access::kBoth},
  })};
};

namespace {

template <class Value>
struct Messages;

template <>
struct Messages<std::string> {
  static constexpr MessageText<2> kGetUnrecognized{
      "DriverFeatureOption::getOptionProperty(string&) - Unrecognized option property:  \"{}\" for "
      "option \"{}\"."};
  static constexpr MessageText<2> kSetUnrecognized{
      "DriverFeatureOption::setOptionProperty(string) - Unrecognized option property:  \"{}\" for "
      "option \"{}\"."};
};

template <>
struct Messages<bool> {
  static constexpr MessageText<2> kGetUnrecognized{
      "DriverFeatureOption::getOptionProperty(bool*) - Unrecognized option property:  \"{}\" for "
      "option \"{}\"."};
  static constexpr MessageText<2> kSetUnrecognized{
      "DriverFeatureOption::setOptionProperty(bool) - Unrecognized option property:  \"{}\" for "
      "option \"{}\"."};
};

}  // namespace

template <class Value>
bool DriverFeatureOption::fetch(const std::string& name, Value& value) {
  const auto* row = Properties::kTable.find<Value>(name, Access::kGet);
  if (row == nullptr) {
    logComposed(Level::kWarning, Messages<Value>::kGetUnrecognized, name, name_);
    return false;
  }
  value = memberOf<Value>(*this, *row);
  return true;
}

template <class Value>
bool DriverFeatureOption::store(const std::string& name, const Value& value) {
  const auto* row = Properties::kTable.find<Value>(name, Access::kSet);
  if (row == nullptr) {
    logComposed(Level::kWarning, Messages<Value>::kSetUnrecognized, name, name_);
    return false;
  }
  memberOf<Value>(*this, *row) = value;
  return true;
}

const std::string DriverFeatureOption::*DriverFeatureOption::findPlainMember(
    const std::string& name) {
  const auto* row = Properties::kTable.find<std::string>(name, Access::kGet);
  return row != nullptr ? *std::get_if<std::string DriverFeatureOption::*>(&row->member) : nullptr;
}

bool DriverFeatureOption::getOptionProperty(const std::string& name, std::string& value) {
  return fetch(name, value);
}

bool DriverFeatureOption::getOptionProperty(const std::string& name, bool* value) {
  return fetch(name, *value);
}

bool DriverFeatureOption::setOptionProperty(const std::string& name, const std::string& value) {
  return store(name, value);
}

bool DriverFeatureOption::setOptionProperty(const std::string& name, bool value) {
  return store(name, value);
}

bool DriverFeatureOption::isConstraintSetEmpty() {
  return constraints_.empty();
}

bool DriverFeatureOption::addConstraint(const long& id) {
  return driver_feature::insertIdentifier(constraints_, id);
}

bool DriverFeatureOption::removeConstraint(const long& id) {
  return driver_feature::eraseIdentifier(constraints_, id);
}
