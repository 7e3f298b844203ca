// The property operations of a feature called "Tray", by kind of value: how
// they are called, values to try them with, and what they say.
#ifndef TESTS_SUPPORT_FEATURE_OPERATIONS_H_
#define TESTS_SUPPORT_FEATURE_OPERATIONS_H_

#include <array>
#include <string>

#include "model/driver_feature.h"
#include "support/feature_property_rows.h"

namespace driver_feature::testing {

// values() are tried in setters, outputs() stand in the output before a read,
// and shown() is a value as a type-mismatch line shows it.
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
  static std::array<std::string, 1> values() { return {"stored"}; }
  static std::array<std::string, 1> outputs() { return {"kept"}; }
  static std::string shown(const std::string& value) { return value; }
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
  static std::array<int, 1> values() { return {3}; }
  static std::array<int, 1> outputs() { return {-99}; }
  static std::string shown(int /*value*/) { return "\x03"; }
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
  static std::array<float, 1> values() { return {66.9F}; }
  static std::array<float, 1> outputs() { return {-99.5F}; }
  static std::string shown(float /*value*/) { return "B"; }
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
  static std::array<bool, 2> values() { return {false, true}; }
  static std::array<bool, 2> outputs() { return {false, true}; }
  static std::string shown(bool value) { return {value ? '\x01' : '\x00'}; }
  static bool get(DriverFeature& feature, const std::string& name, bool& value) {
    return feature.getFeatureProperty(name, &value);
  }
  static std::string unrecognizedGet(const std::string& name) {
    return unrecognizedNumberGet("bool*", name);
  }
};

}  // namespace driver_feature::testing

#endif  // TESTS_SUPPORT_FEATURE_OPERATIONS_H_
