#include "model/driver_feature_option.h"

#include "model/messages.h"
#include "model/own_names.h"
#include "model/property_table.h"

using driver_feature::Access;
using driver_feature::Kept;
using driver_feature::Level;
using driver_feature::logComposed;
using driver_feature::MessageText;
using driver_feature::OptionProperty;
using driver_feature::PropertyRow;
using driver_feature::PropertyTable;

struct DriverFeatureOption::Properties {
  using Name = OptionProperty;
  using Option = DriverFeatureOption;
  static constexpr Kept<Option, std::string> kText{&Option::kept_};

  static constexpr PropertyTable kTable{std::to_array<PropertyRow<Option, Name>>({
      {Name::kCLOKey, kText, Access::kBoth},
      {Name::kDisplayText, kText, Access::kBoth},
      {Name::kName, kText, Access::kBoth},
      {Name::kPJLCommand, kText, Access::kBoth},
      {Name::kPSCommand, kText, Access::kBoth},
      {Name::kSNMPValue, kText, Access::kBoth},
      {Name::kSensitivity, &Option::sensitive_, Access::kBoth},
      {Name::kTESKCommand, kText, Access::kBoth},
      {Name::kTESKTicketCommand, kText, Access::kBoth},
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

DriverFeatureOption::DriverFeatureOption(const std::string& name) {
  kept_.setText(static_cast<std::size_t>(OptionProperty::kName), name);
}

template <class Value>
bool DriverFeatureOption::fetch(const std::string& name, Value& value) {
  const auto* row = Properties::kTable.find<Value>(name, Access::kGet);
  if (row == nullptr) {
    logComposed(Level::kWarning, Messages<Value>::kGetUnrecognized, name,
                text(OptionProperty::kName));
    return false;
  }
  value = driver_feature::valueOf<Value>(*this, *row);
  return true;
}

template <class Value>
bool DriverFeatureOption::store(const std::string& name, const Value& value) {
  const auto* row = Properties::kTable.find<Value>(name, Access::kSet);
  if (row == nullptr) {
    logComposed(Level::kWarning, Messages<Value>::kSetUnrecognized, name,
                text(OptionProperty::kName));
    return false;
  }
  driver_feature::storeValue(*this, *row, value);
  if (row->property == OptionProperty::kName) driver_feature::noteNameChange();
  return true;
}

std::optional<OptionProperty> DriverFeatureOption::findTextProperty(const std::string& name) {
  const auto* row = Properties::kTable.find<std::string>(name, Access::kGet);
  return row != nullptr ? std::optional(row->property) : std::nullopt;
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
  return constraints_.isEmpty();
}

bool DriverFeatureOption::addConstraint(const long& id) {
  return constraints_.insert(id);
}

bool DriverFeatureOption::removeConstraint(const long& id) {
  return constraints_.erase(id);
}
