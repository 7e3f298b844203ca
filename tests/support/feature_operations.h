// The property operations of a feature called "Tray", by kind of value: how
// they are called, values to try them with, and what they say.
#ifndef TESTS_SUPPORT_FEATURE_OPERATIONS_H_
#define TESTS_SUPPORT_FEATURE_OPERATIONS_H_

#include <string>

#include "model/driver_feature.h"
#include "support/property_facts.h"

namespace driver_feature::testing {

// value() has a value for each number (two for a bool), and kShown is the one for 1
// as a type-mismatch line shows it.
template <class Value>
struct Operation;

inline std::string unrecognizedNumberGet(const std::string& argument, const std::string& name) {
  return "DriverFeature::getFeatureProperty(" + argument +
         ") - Unrecognized feature property:  \"" + name + "\" for feature \"Tray.";
}

template <>
struct Operation<std::string> {
  static constexpr Kind kKind = Kind::kText;
  static constexpr const char* kSetter = "(string)";
  static constexpr const char* kShown = "text 1";
  static std::string value(int number) { return "text " + std::to_string(number); }
  static bool get(DriverFeature& feature, const std::string& name, std::string& value) {
    return feature.getFeatureProperty(name, value);
  }
  static std::string unrecognizedGet(const std::string& name) {
    return "DriverFeature::getFeatureProperty(string&) - Unrecognized feature property: \"" + name +
           "\" for feature \"Tray\".";
  }
};

template <>
struct Operation<int> {
  static constexpr Kind kKind = Kind::kInt;
  static constexpr const char* kSetter = "(int)";
  static constexpr const char* kShown = "e";
  static int value(int number) { return 100 + number; }
  static bool get(DriverFeature& feature, const std::string& name, int& value) {
    return feature.getFeatureProperty(name, &value);
  }
  static std::string unrecognizedGet(const std::string& name) {
    return unrecognizedNumberGet("int*", name);
  }
};

template <>
struct Operation<float> {
  static constexpr Kind kKind = Kind::kFloat;
  static constexpr const char* kSetter = "(float)";
  static constexpr const char* kShown = "A";
  static float value(int number) { return static_cast<float>(number) + 64.5F; }
  static bool get(DriverFeature& feature, const std::string& name, float& value) {
    return feature.getFeatureProperty(name, &value);
  }
  static std::string unrecognizedGet(const std::string& name) {
    return unrecognizedNumberGet("float*", name);
  }
};

template <>
struct Operation<bool> {
  static constexpr Kind kKind = Kind::kBool;
  static constexpr const char* kSetter = "(bool)";
  static constexpr const char* kShown = "\x01";
  static bool value(int number) { return number % 2 == 1; }
  static bool get(DriverFeature& feature, const std::string& name, bool& value) {
    return feature.getFeatureProperty(name, &value);
  }
  static std::string unrecognizedGet(const std::string& name) {
    return unrecognizedNumberGet("bool*", name);
  }
};

}  // namespace driver_feature::testing

#endif  // TESTS_SUPPORT_FEATURE_OPERATIONS_H_
