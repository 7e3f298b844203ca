// A feature that returns what a test sets: texts, flags and the type code from
// plain fields. Every read that is not named there is refused without a log
// line.
#ifndef TESTS_SUPPORT_SCRIPTED_FEATURE_H_
#define TESTS_SUPPORT_SCRIPTED_FEATURE_H_

#include <map>
#include <string>

#include "model/core_feature.h"

namespace driver_feature::testing {

class ScriptedFeature : public CoreFeature {
 public:
  explicit ScriptedFeature(int type) : type_(type) {}

  // What the getters return. Anything else is refused.
  std::map<std::string, std::string> texts;
  std::map<std::string, int> numbers;
  std::map<std::string, bool> flags;
  std::map<std::string, float> fractions;
  CoreOption* currentOption = nullptr;
  bool acceptsFlags = true;

  bool setFeatureProperty(const std::string&, const std::string&) override { return false; }
  bool setFeatureProperty(const std::string&, int) override { return false; }
  bool setFeatureProperty(const std::string&, float) override { return false; }
  bool setFeatureProperty(const std::string& name, bool value) override {
    if (acceptsFlags) flags[name] = value;
    return acceptsFlags;
  }
  bool getFeatureProperty(const std::string& name, std::string& value) override {
    return copy(texts, name, value);
  }
  bool getFeatureProperty(const std::string& name, int* value) override {
    return copy(numbers, name, *value);
  }
  bool getFeatureProperty(const std::string& name, bool* value) override {
    return copy(flags, name, *value);
  }
  bool getFeatureProperty(const std::string& name, float* value) override {
    return copy(fractions, name, *value);
  }
  int getFeatureType() override { return type_; }
  CoreOption* fetchCurrentOption() override { return currentOption; }

 private:
  template <class Value>
  static bool copy(const std::map<std::string, Value>& values, const std::string& name,
                   Value& value) {
    const auto found = values.find(name);
    if (found == values.end()) return false;
    value = found->second;
    return true;
  }

  int type_;
};

// An option that refuses every operation.
class UnreadableOption : public CoreOption {
 public:
  bool getOptionProperty(const std::string&, std::string&) override { return false; }
  bool getOptionProperty(const std::string&, bool*) override { return false; }
  bool setOptionProperty(const std::string&, const std::string&) override { return false; }
  bool setOptionProperty(const std::string&, bool) override { return false; }
};

}  // namespace driver_feature::testing

#endif  // TESTS_SUPPORT_SCRIPTED_FEATURE_H_
