// Features: their current values, and who is notified of a change.
#include <cstdlib>
#include <limits>

#include "fuzz/c_library.h"
#include "fuzz/operations/reference_model.h"

namespace driver_feature::operations {

namespace {

int decimal(const std::string& text) {
  const long value = std::strtol(text.c_str(), nullptr, 10);
  if (value > std::numeric_limits<int>::max()) return std::numeric_limits<int>::max();
  if (value < std::numeric_limits<int>::min()) return std::numeric_limits<int>::min();
  return static_cast<int>(value);
}

std::string sixDecimals(float value) {
  return fuzz::printed("%f", static_cast<double>(value));
}

}  // namespace

void ReferenceModel::callUpdate() {
  if (updateRegistered_) host_.update();
}

void ReferenceModel::notifyUpdate(bool suppress) {
  if (!suppress && !ticketLoading_) callUpdate();
}

void ReferenceModel::notifyChange(RefObject& feature, bool suppress) {
  if (feature.changeRoutine >= 0 && creationComplete_) host_.change(feature.changeRoutine);
  notifyUpdate(suppress);
}

bool ReferenceModel::setCurrentText(RefObject& feature, const std::string& value, bool suppress) {
  if (feature.texts["CurrentTextValue"] == value) return true;
  feature.texts["CurrentTextValue"] = value;
  notifyChange(feature, suppress);
  return true;
}

bool ReferenceModel::setCurrentInt(RefObject& feature, int value, bool suppress) {
  if (feature.ints["CurrentIntValue"] == value) return true;
  feature.ints["CurrentIntValue"] = value;
  notifyChange(feature, suppress);
  return true;
}

bool ReferenceModel::setCurrentFloat(RefObject& feature, float value, bool suppress) {
  if (feature.floats["CurrentFloatValue"] == value) return true;
  feature.floats["CurrentFloatValue"] = value;
  notifyChange(feature, suppress);
  return true;
}

bool ReferenceModel::setValueString(RefObject& feature, const std::string& value, bool suppress) {
  if (feature.valueType == 2) return setCurrentText(feature, value, suppress);
  if (feature.valueType == 3) {
    return setCurrentFloat(feature, fuzz::toFloat(value), suppress);
  }
  if (feature.valueType != 1) return true;
  if (feature.type == 2) return setCurrentInt(feature, decimal(value), suppress);
  const int position = optionIndexByName(feature, value);
  if (position == feature.ints["CurrentIntValue"]) return true;
  if (position == -1) return false;
  return setCurrentInt(feature, position, suppress);
}

bool ReferenceModel::getValueString(RefObject& feature, std::string& value) {
  if (feature.valueType == 2) {
    value = feature.texts["CurrentTextValue"];
  } else if (feature.valueType == 3) {
    value = sixDecimals(feature.floats["CurrentFloatValue"]);
  } else if (feature.valueType == 1 && feature.type == 2) {
    value = std::to_string(feature.ints["CurrentIntValue"]);
  } else if (feature.valueType == 1) {
    RefOption* option = currentOption(feature);
    if (option != nullptr) getOptionText(*option, "Name", value);
  } else {
    log(3,
        "DriverFeature::getFeatureProperty(string&) - Unrecognized value type for feature "
        "property: \"ValueString\" for feature \"" +
            feature.name() + "\".");
    return false;
  }
  return true;
}

}  // namespace driver_feature::operations
