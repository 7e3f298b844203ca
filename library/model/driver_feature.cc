#include "model/driver_feature.h"

#include <cmath>
#include <new>
#include <string_view>

#include "model/driver_feature_properties.h"
#include "model/messages.h"
#include "model/own_names.h"
#include "model/text_conversion.h"
#include "templates/command_template.h"

#include "Symbols.h"

using driver_feature::Access;
using driver_feature::Level;
using driver_feature::logComposed;
using driver_feature::Messages;
using driver_feature::Needs;
using driver_feature::Property;
using driver_feature::Rule;
using driver_feature::valueOf;

namespace {

// A value as a type-mismatch line shows it. Required: only a text is shown as
// text; a number is one character that holds its low eight bits.
const std::string& shownValue(const std::string& value) {
  return value;
}

std::string shownValue(int value) {
  return std::string(1, static_cast<char>(value & 0xFF));
}

std::string shownValue(bool value) {
  return shownValue(value ? 1 : 0);
}

std::string shownValue(float value) {
  constexpr float kLimit = 2147483648.0F;
  const bool fits = std::fabs(value) < kLimit;  // False for NaN, too.
  return shownValue(fits ? static_cast<int>(value) : 0);
}

std::string_view wordFor(Needs needs) {
  if (needs == Needs::kInt) return "int";
  return needs == Needs::kText ? "text" : "float";
}

}  // namespace

DriverFeature::DriverFeature(const std::string& name) {
  kept_.setText(static_cast<std::size_t>(Property::kName), name);
}

DriverFeature::DriverFeature(DriverFeature* source) {
  std::string text;
  source->getFeatureProperty(std::string("Name"), text);
  kept_.setText(static_cast<std::size_t>(Property::kName), text);
  source->getFeatureProperty(std::string("FeatureType"), &type_);
  source->getFeatureProperty(std::string("FeatureValueType"), &valueType_);
  source->getFeatureProperty(std::string("CurrentIntValue"), &currentInt_);
  text.clear();
  source->getFeatureProperty(std::string("CurrentTextValue"), text);
  kept_.setText(static_cast<std::size_t>(Property::kCurrentTextValue), text);
  source->getFeatureProperty(std::string("CurrentFloatValue"), &currentFloat_);
  if (isMultiSelect()) copyOptionNames(*source);
}

template <class Value>
bool DriverFeature::store(const std::string& name, const Value& value, bool suppressUpdate) {
  const Row* row = Properties::kTable.find<Value>(name, Access::kSet);
  if (row == nullptr) {
    logComposed(Level::kWarning, Messages<Value>::kSetUnrecognized, name, ownName());
    return false;
  }
  // Required: a value of the wrong type is reported, and the result is true.
  if (row->needs != Needs::kAny && static_cast<int>(row->needs) != valueType_) {
    logComposed(Level::kWarning, Messages<Value>::kWrongType, name, ownName(), shownValue(value),
                wordFor(row->needs));
    return true;
  }
  return storeByRule(*row, value, suppressUpdate);
}

template <class Value>
bool DriverFeature::storeByRule(const Row& row, const Value& value, bool suppressUpdate) {
  if (row.rule == Rule::kChange) return storeChanged(row, value, suppressUpdate);
  if constexpr (std::is_same_v<Value, std::string>) {
    if (row.rule == Rule::kRoutine) return storeChangeRoutine(value);
    if (row.rule == Rule::kValueString) return storeValueString(value, suppressUpdate);
    if (row.rule == Rule::kTemplate) return storeTemplate(row, value);
  }
  if constexpr (std::is_same_v<Value, int>) {
    if (row.rule == Rule::kFeatureType) return storeFeatureType(value);
    if (row.rule == Rule::kValueType) return storeValueType(value);
  }
  driver_feature::storeValue(*this, row, value);
  if (row.property == Property::kName) driver_feature::noteNameChange();
  if (row.rule == Rule::kFlag) driver_feature::notifyUpdate(suppressUpdate);
  return true;
}

template <class Value>
bool DriverFeature::storeChanged(const Row& row, const Value& value, bool suppressUpdate) {
  if (valueOf<Value>(*this, row) == value) return true;
  driver_feature::storeValue(*this, row, value);
  driver_feature::notifyChange(changeRoutine_, suppressUpdate);
  return true;
}

template <class Value>
bool DriverFeature::storeCurrent(Property property, const Value& value, bool suppressUpdate) {
  return storeChanged(Properties::kTable.at(property), value, suppressUpdate);
}

bool DriverFeature::storeFeatureType(int value) {
  if (value < 0 || value > driver_feature::kHighestFeatureType) {
    return refuseValue(Property::kFeatureType, value);
  }
  type_ = value;
  if (const auto valueType = driver_feature::valueTypeOf(value)) valueType_ = *valueType;
  return true;
}

bool DriverFeature::storeValueType(int value) {
  if (value < 0 || value > driver_feature::kHighestValueType) {
    return refuseValue(Property::kFeatureValueType, value);
  }
  valueType_ = value;
  return true;
}

bool DriverFeature::refuseValue(Property property, int value) {
  logComposed(Level::kWarning,
              "DriverFeature::setFeatureProperty(int) - Invalid feature property value \"{}\" for "
              "feature property \"{}\" for feature \"{}.",
              driver_feature::toDecimalText(value), driver_feature::nameOf(property), ownName());
  return false;
}

bool DriverFeature::storeChangeRoutine(const std::string& routineName) {
  kept_.setText(static_cast<std::size_t>(Property::kAddCallbackRoutine), routineName);
  changeRoutine_ =
      reinterpret_cast<driver_feature::ChangeRoutine>(FetchSymbol(routineName.c_str()));
  if (changeRoutine_ == nullptr) {
    logComposed(Level::kMisuse,
                "DriverFeature::setFeatureProperty(string):  Failed to load custom feature "
                "callback:  {}",
                routineName);
  }
  return true;
}

// When there is no memory, the template of before stays, and nothing that has been
// read of another one.
bool DriverFeature::storeTemplate(const Row& row, const std::string& value) {
  const std::size_t plain = numberOfPlain(row.property);
  kept_.setText(plain, driver_feature::readPlainTemplate(value));
  try {
    driver_feature::storeValue(*this, row, value);
  } catch (const std::bad_alloc&) {
    kept_.setText(plain, {});
    throw;
  }
  return true;
}

bool DriverFeature::storeValueString(const std::string& text, bool suppressUpdate) {
  switch (valueType_) {
    case driver_feature::kTextValue:
      return storeCurrent(Property::kCurrentTextValue, text, suppressUpdate);
    case driver_feature::kFloatValue:
      return storeCurrent(Property::kCurrentFloatValue, driver_feature::toFloat(text),
                          suppressUpdate);
    case driver_feature::kIntValue:
      break;
    default:
      return true;
  }
  if (type_ == driver_feature::kIntEntry) {
    return storeCurrent(Property::kCurrentIntValue, driver_feature::toInt(text), suppressUpdate);
  }
  // Required: equality comes first, so that an absent option is not a failure
  // while the position is -1 already.
  const int position = fetchOptionIndexByName(text);
  if (position == -1 && currentInt_ != -1) return false;
  return storeCurrent(Property::kCurrentIntValue, position, suppressUpdate);
}

template <class Value>
bool DriverFeature::fetch(const std::string& name, Value& value) {
  const Row* row = Properties::kTable.find<Value>(name, Access::kGet);
  if (row == nullptr) {
    logComposed(Level::kWarning, Messages<Value>::kGetUnrecognized, name, ownName());
    return false;
  }
  if constexpr (std::is_same_v<Value, std::string>) {
    if (row->rule == Rule::kValueString) return fetchValueString(value);
    if (row->rule == Rule::kHideEmpty && valueOf<Value>(*this, *row).empty()) return false;
  }
  value = valueOf<Value>(*this, *row);
  return true;
}

bool DriverFeature::fetchValueString(std::string& text) {
  switch (valueType_) {
    case driver_feature::kTextValue:
      text = this->text(Property::kCurrentTextValue);
      return true;
    case driver_feature::kFloatValue:
      text = driver_feature::toFixedText(currentFloat_);
      return true;
    case driver_feature::kIntValue:
      break;
    default:
      logComposed(Level::kWarning,
                  "DriverFeature::getFeatureProperty(string&) - Unrecognized value type for "
                  "feature property: \"ValueString\" for feature \"{}\".",
                  ownName());
      return false;
  }
  if (type_ == driver_feature::kIntEntry) {
    text = driver_feature::toDecimalText(currentInt_);
    return true;
  }
  // Required: the result is true whether or not there is an option to name.
  if (CoreOption* option = fetchCurrentOption()) {
    option->getOptionProperty(std::string("Name"), text);
  }
  return true;
}

std::optional<std::string> DriverFeature::findQuietValueString() const {
  if (valueType_ == driver_feature::kTextValue) {
    return std::string(text(Property::kCurrentTextValue));
  }
  if (valueType_ == driver_feature::kFloatValue) return driver_feature::toFixedText(currentFloat_);
  if (valueType_ != driver_feature::kIntValue) return std::nullopt;
  if (type_ == driver_feature::kIntEntry) return driver_feature::toDecimalText(currentInt_);
  const DriverFeatureOption* option = ownCurrentOption();
  if (option == nullptr) return std::nullopt;
  return std::string(option->text(driver_feature::OptionProperty::kName));
}

bool DriverFeature::setFeatureProperty(const std::string& name, const std::string& value) {
  return setFeaturePropertyWithConstraintControl(name, value, false);
}

bool DriverFeature::setFeatureProperty(const std::string& name, int value) {
  return setFeaturePropertyWithConstraintControl(name, value, false);
}

bool DriverFeature::setFeatureProperty(const std::string& name, float value) {
  return setFeaturePropertyWithConstraintControl(name, value, false);
}

bool DriverFeature::setFeatureProperty(const std::string& name, bool value) {
  return setFeaturePropertyWithConstraintControl(name, value, false);
}

bool DriverFeature::setFeaturePropertyWithConstraintControl(const std::string& name,
                                                            const std::string& value,
                                                            bool suppressUpdate) {
  return store(name, value, suppressUpdate);
}

bool DriverFeature::setFeaturePropertyWithConstraintControl(const std::string& name, int value,
                                                            bool suppressUpdate) {
  return store(name, value, suppressUpdate);
}

bool DriverFeature::setFeaturePropertyWithConstraintControl(const std::string& name, float value,
                                                            bool suppressUpdate) {
  return store(name, value, suppressUpdate);
}

bool DriverFeature::setFeaturePropertyWithConstraintControl(const std::string& name, bool value,
                                                            bool suppressUpdate) {
  return store(name, value, suppressUpdate);
}

bool DriverFeature::getFeatureProperty(const std::string& name, std::string& value) {
  return fetch(name, value);
}

bool DriverFeature::getFeatureProperty(const std::string& name, int* value) {
  return fetch(name, *value);
}

bool DriverFeature::getFeatureProperty(const std::string& name, bool* value) {
  return fetch(name, *value);
}

bool DriverFeature::getFeatureProperty(const std::string& name, float* value) {
  return fetch(name, *value);
}

int DriverFeature::getFeatureType() {
  return type_;
}
