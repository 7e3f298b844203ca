// The properties of groups, and the ways from an object to its class.
#include <algorithm>
#include <iterator>

#include "fuzz/operations/reference_model.h"

namespace driver_feature::operations {

using testing::PropertyFacts;
using testing::Use;

namespace {

const PropertyFacts& factsOf(const std::string& name) {
  return *std::find_if(std::begin(testing::kPropertyFacts), std::end(testing::kPropertyFacts),
                       [&](const PropertyFacts& facts) { return facts.name == name; });
}

Use useBy(RefClass kind, const PropertyFacts& facts) {
  if (kind == RefClass::kFeature) return facts.feature;
  return kind == RefClass::kStaticGroup ? facts.staticGroup : facts.dynamicGroup;
}

}  // namespace

RefObject* ReferenceModel::newObject(RefClass kind, const std::string& name) {
  ownedObjects_.push_back(std::make_unique<RefObject>());
  RefObject* made = ownedObjects_.back().get();
  made->kind = kind;
  for (const PropertyFacts& facts : testing::kPropertyFacts) {
    if (useBy(kind, facts) == Use::kNone) continue;
    if (facts.kind == testing::Kind::kText) made->texts[facts.name];
    if (facts.kind == testing::Kind::kInt) made->ints[facts.name];
    if (facts.kind == testing::Kind::kFloat) made->floats[facts.name];
    if (facts.kind == testing::Kind::kBool) made->flags[facts.name];
  }
  made->texts["Name"] = name;
  return made;
}

bool canBeRead(const RefObject& object, const std::string& name) {
  return useBy(object.kind, factsOf(name)) == Use::kBoth;
}

bool isOfAnotherType(const RefObject& object, const std::string& name) {
  const int needed = factsOf(name).needed;
  return needed != testing::kAnyType && needed != object.valueType;
}

std::string forFeature(const RefObject& feature, const std::string& name) {
  return '"' + name + "\" for feature \"" + feature.name();
}

std::string unrecognized(const std::string& operation, const RefObject& feature,
                         const std::string& name) {
  return "DriverFeature::" + operation +
         " - Unrecognized feature property:  " + forFeature(feature, name) + ".";
}

bool ReferenceModel::setText(RefObject& object, const std::string& name, const std::string& value,
                             bool suppress) {
  if (object.kind == RefClass::kFeature) return setFeatureText(object, name, value, suppress);
  if (!object.texts.contains(name)) return false;
  object.texts[name] = value;
  return true;
}

bool ReferenceModel::setInt(RefObject& object, const std::string& name, int value, bool suppress) {
  if (object.kind == RefClass::kFeature) return setFeatureInt(object, name, value, suppress);
  if (object.kind == RefClass::kDynamicGroup) {
    if (name != "RecordInFocus") {
      log(3,
          "DriverFeatureDynamicGroup::setFeaturePropertyWithConstraintControl(int) - "
          "Unrecognized property for group:  \"" +
              object.name() + ".");
      return false;
    }
    object.ints[name] = value;
    notifyUpdate(suppress);
    return true;
  }
  if (name != "FeatureType") {
    log(3, "DriverFeatureStaticGroup::setFeatureProperty(int) - Unrecognized feature property:  " +
               forFeature(object, name) + ".");
    return false;
  }
  if (value < 0 || value > 8) {
    log(3, "DriverFeatureStaticGroup::setFeatureProperty(int) - Invalid feature property value \"" +
               std::to_string(value) + "\" for feature property " + forFeature(object, name) + ".");
    return false;
  }
  object.type = value;
  return true;
}

bool ReferenceModel::setBool(RefObject& object, const std::string& name, bool value,
                             bool suppress) {
  if (object.kind == RefClass::kFeature) return setFeatureBool(object, name, value, suppress);
  if (!object.flags.contains(name)) {
    const bool isStatic = object.kind == RefClass::kStaticGroup;
    log(3, std::string(isStatic ? "DriverFeatureStaticGroup::setFeatureProperty(bool)"
                                : "DriverFeatureDynamicGroup::"
                                  "setFeaturePropertyWithConstraintControl(bool)") +
               " - Unrecognized feature property:  " + forFeature(object, name) + ".");
    return false;
  }
  object.flags[name] = value;
  if (object.kind == RefClass::kDynamicGroup) notifyUpdate(suppress);
  return true;
}

bool ReferenceModel::getText(RefObject& object, const std::string& name, std::string& value) {
  if (object.kind == RefClass::kFeature) return getFeatureText(object, name, value);
  if (!object.texts.contains(name) || !canBeRead(object, name)) return false;
  value = object.texts[name];
  return true;
}

bool ReferenceModel::getInt(RefObject& object, const std::string& name, int& value) {
  if (object.kind == RefClass::kDynamicGroup) {
    if (name == "RecordInFocus") {
      value = object.ints[name];
      return true;
    }
    log(3,
        "DriverFeatureDynamicGroup::getFeatureProperty(int) - Unrecognized property for "
        "group:  \"" +
            object.name() + ".");
    return false;
  }
  if (name == "FeatureType") {
    value = object.type;
    return true;
  }
  if (object.kind == RefClass::kStaticGroup) {
    log(3, "DriverFeatureStaticGroup::getFeatureProperty(int*) - Unrecognized feature property:  " +
               forFeature(object, name) + ".");
    return false;
  }
  if (name == "FeatureValueType") {
    value = object.valueType;
    return true;
  }
  if (!object.ints.contains(name) || !canBeRead(object, name)) {
    log(3, unrecognized("getFeatureProperty(int*)", object, name));
    return false;
  }
  value = object.ints[name];
  return true;
}

bool ReferenceModel::getFloat(RefObject& object, const std::string& name, float& value) {
  if (object.kind != RefClass::kFeature) {
    const bool isStatic = object.kind == RefClass::kStaticGroup;
    log(3, std::string(isStatic ? "DriverFeatureStaticGroup" : "DriverFeatureDynamicGroup") +
               "::getFeatureProperty(float) - No float group properties for group:  \"" +
               object.name() + ".");
    return false;
  }
  if (!object.floats.contains(name)) {
    log(3, unrecognized("getFeatureProperty(float*)", object, name));
    return false;
  }
  value = object.floats[name];
  return true;
}

bool ReferenceModel::getBool(RefObject& object, const std::string& name, bool& value) {
  if (!object.flags.contains(name)) {
    const char* kind = object.kind == RefClass::kFeature       ? "DriverFeature"
                       : object.kind == RefClass::kStaticGroup ? "DriverFeatureStaticGroup"
                                                               : "DriverFeatureDynamicGroup";
    log(3, std::string(kind) + "::getFeatureProperty(bool*) - Unrecognized feature property:  " +
               forFeature(object, name) + ".");
    return false;
  }
  value = object.flags[name];
  return true;
}

}  // namespace driver_feature::operations
