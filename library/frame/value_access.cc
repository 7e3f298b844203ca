// Reading and writing one value by the names of its target and property.

#include "frame/exports.h"
#include "frame/master_set.h"
#include "model/messages.h"

namespace {

using driver_feature::Level;
using driver_feature::logComposed;

// Finds the target and returns what `access` says of it. Nothing is thrown at
// the host: a failure inside returns 0.
template <class Access>
int accessTarget(const std::string& target, const Access& access) try {
  CoreFeature* feature = driver_feature::masterSet().FindFeatureInFeatureList(target);
  if (feature == nullptr) {
    logComposed(Level::kMisuse, "Couldn't attach to feature:  {}", target);
    return 0;
  }
  return access(*feature) ? 1 : 0;
} catch (...) {
  return 0;
}

// A null name is the empty one, which no property has.
std::string propertyName(const char* name) {
  return name != nullptr ? name : "";
}

template <class Value>
int getNumber(const std::string& target, const char* name, Value* value) {
  return accessTarget(target, [&](CoreFeature& feature) {
    return value != nullptr && feature.getFeatureProperty(propertyName(name), value);
  });
}

template <class Value>
int setValue(const std::string& target, const char* name, const Value& value) {
  return accessTarget(target, [&](CoreFeature& feature) {
    return feature.setFeatureProperty(propertyName(name), value);
  });
}

}  // namespace

int GetFeatureIntValue(std::string& target, const char* name, int* value) {
  return getNumber(target, name, value);
}

int GetFeatureFloatValue(std::string& target, const char* name, float* value) {
  return getNumber(target, name, value);
}

int GetFeatureBoolValue(std::string& target, const char* name, bool* value) {
  return getNumber(target, name, value);
}

int GetFeatureTextValue(std::string& target, const char* name, std::string& value) {
  return accessTarget(target, [&](CoreFeature& feature) {
    return feature.getFeatureProperty(propertyName(name), value);
  });
}

int SetFeatureIntValue(std::string& target, const char* name, int value) {
  return setValue(target, name, value);
}

int SetFeatureFloatValue(std::string& target, const char* name, float value) {
  return setValue(target, name, value);
}

int SetFeatureBoolValue(std::string& target, const char* name, bool value) {
  return setValue(target, name, value);
}

int SetFeatureTextValue(std::string& target, const char* name, const std::string& value) {
  return setValue(target, name, value);
}
