// Features: their properties.
#include <cmath>

#include "fuzz/operations/reference_model.h"

namespace driver_feature::operations {

namespace {

std::string mismatch(const std::string& kind, const RefObject& feature, const std::string& name,
                     const std::string& value, const std::string& wanted) {
  return "DriverFeature::setFeatureProperty(" + kind +
         ") - Attempt to set feature property:  " + forFeature(feature, name) + "\" to " + value +
         "where the feature is not a " + wanted + " valued feature.";
}

std::string lowByte(int value) {
  return {static_cast<char>(static_cast<unsigned char>(static_cast<unsigned>(value) & 0xFFU))};
}

int truncated(float value) {
  if (std::isnan(value) || value >= 2147483648.0F || value < -2147483648.0F) return 0;
  return static_cast<int>(value);
}

}  // namespace

RefObject* ReferenceModel::newFeature(const std::string& name) {
  RefObject* made = newObject(RefClass::kFeature, name);
  made->flags["Sensitivity"] = true;
  made->flags["Visibility"] = true;
  return made;
}

RefObject* ReferenceModel::copyFeature(RefObject& source) {
  RefObject* made = newFeature(source.name());
  made->type = source.type;
  made->valueType = source.valueType;
  made->ints["CurrentIntValue"] = source.ints["CurrentIntValue"];
  made->texts["CurrentTextValue"] = source.texts["CurrentTextValue"];
  made->floats["CurrentFloatValue"] = source.floats["CurrentFloatValue"];
  if (source.type != 1) return made;
  for (RefOption* option : source.options)
    made->options.push_back(newOption(option->texts["Name"]));
  return made;
}

bool ReferenceModel::setFeatureText(RefObject& feature, const std::string& name,
                                    const std::string& value, bool suppress) {
  if (name == "AddCallbackRoutine") {
    feature.changeRoutine = -1;
    for (int i = 0; i < 2; ++i) {
      if (value == kChangeRoutineNames[static_cast<std::size_t>(i)]) feature.changeRoutine = i;
    }
    if (feature.changeRoutine == -1) {
      log(2,
          "DriverFeature::setFeatureProperty(string):  Failed to load custom feature callback:  " +
              value);
    }
    return true;
  }
  if (name == "ValueString") return setValueString(feature, value, suppress);
  if (!feature.texts.contains(name)) {
    log(3, unrecognized("setFeatureProperty(string)", feature, name));
    return false;
  }
  if (isOfAnotherType(feature, name)) {
    log(3, mismatch("string", feature, name, value, "text"));
    return true;
  }
  if (name == "CurrentTextValue") return setCurrentText(feature, value, suppress);
  feature.texts[name] = value;
  return true;
}

bool ReferenceModel::setFeatureInt(RefObject& feature, const std::string& name, int value,
                                   bool suppress) {
  if (name == "FeatureType" || name == "FeatureValueType") {
    const bool isType = name == "FeatureType";
    if (value < 0 || value > (isType ? 8 : 3)) {
      log(3, "DriverFeature::setFeatureProperty(int) - Invalid feature property value \"" +
                 std::to_string(value) + "\" for feature property " + forFeature(feature, name) +
                 ".");
      return false;
    }
    (isType ? feature.type : feature.valueType) = value;
    if (isType && value == 0) feature.valueType = 0;
    if (isType && (value == 1 || value == 2)) feature.valueType = 1;
    if (isType && value == 3) feature.valueType = 2;
    if (isType && value == 4) feature.valueType = 3;
    return true;
  }
  if (!feature.ints.contains(name)) {
    log(3, unrecognized("setFeatureProperty(int)", feature, name));
    return false;
  }
  if (isOfAnotherType(feature, name)) {
    log(3,
        mismatch("int", feature, name, lowByte(value), name == "MaxTextLength" ? "text" : "int"));
    return true;
  }
  if (name == "CurrentIntValue") return setCurrentInt(feature, value, suppress);
  feature.ints[name] = value;
  return true;
}

bool ReferenceModel::setFloat(RefObject& object, const std::string& name, float value,
                              bool suppress) {
  if (object.kind == RefClass::kStaticGroup) {
    log(3,
        "DriverFeatureStaticGroup::setFeatureProperty(float) - No float group properties for "
        "group:  \"" +
            object.name() + ".");
    return false;
  }
  if (object.kind == RefClass::kDynamicGroup) {
    log(3,
        "DriverFeatureDynamicGroup::setFeaturePropertyWithConstraintControl(float) - No float "
        "group properties for group:  \"" +
            object.name() + ".");
    return false;
  }
  if (!object.floats.contains(name)) {
    log(3, unrecognized("setFeatureProperty(float)", object, name));
    return false;
  }
  if (isOfAnotherType(object, name)) {
    log(3, mismatch("float", object, name, lowByte(truncated(value)), "float"));
    return true;
  }
  if (name == "CurrentFloatValue") return setCurrentFloat(object, value, suppress);
  object.floats[name] = value;
  return true;
}

bool ReferenceModel::setFeatureBool(RefObject& feature, const std::string& name, bool value,
                                    bool suppress) {
  if (!feature.flags.contains(name)) {
    log(3, unrecognized("setFeatureProperty(bool)", feature, name));
    return false;
  }
  if (isOfAnotherType(feature, name)) {
    log(3, mismatch("bool", feature, name, lowByte(value ? 1 : 0), "text"));
    return true;
  }
  feature.flags[name] = value;
  if (name != "FeatureInGroup") notifyUpdate(suppress);
  return true;
}

bool ReferenceModel::getFeatureText(RefObject& feature, const std::string& name,
                                    std::string& value) {
  if (name == "ValueString") return getValueString(feature, value);
  if (!feature.texts.contains(name) || !canBeRead(feature, name)) {
    log(3, "DriverFeature::getFeatureProperty(string&) - Unrecognized feature property: " +
               forFeature(feature, name) + "\".");
    return false;
  }
  if (name == "AddPSCallbackRoutine" && feature.texts[name].empty()) return false;
  value = feature.texts[name];
  return true;
}

}  // namespace driver_feature::operations
