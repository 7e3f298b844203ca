// One choice of a "MultiSelect" feature: its name, the commands that are
// written while it is the current choice, and its availability.
#ifndef MODEL_DRIVER_FEATURE_OPTION_H_
#define MODEL_DRIVER_FEATURE_OPTION_H_

#include <set>
#include <string>

#include "model/core_option.h"

// Options notify nobody. They are made with new by the loader, or by a
// feature that copies another's, and are never freed.
class DriverFeatureOption : public IntermediateCoreOption {
 public:
  DriverFeatureOption() = default;
  explicit DriverFeatureOption(const std::string& name) : name_(name) {}
  DriverFeatureOption(const DriverFeatureOption&) = delete;
  DriverFeatureOption& operator=(const DriverFeatureOption&) = delete;

  bool getOptionProperty(const std::string& name, std::string& value) override;
  bool getOptionProperty(const std::string& name, bool* value) override;
  bool setOptionProperty(const std::string& name, const std::string& value) override;
  bool setOptionProperty(const std::string& name, bool value) override;
  bool isConstraintSetEmpty() override;
  bool addConstraint(const long& id) override;
  bool removeConstraint(const long& id) override;

  // As DriverFeature::findPlainMember(), for texts.
  static const std::string DriverFeatureOption::*findPlainMember(const std::string& name);

 private:
  struct Properties;

  template <class Value>
  bool store(const std::string& name, const Value& value);
  template <class Value>
  bool fetch(const std::string& name, Value& value);

  std::string name_;
  std::string displayText_;
  std::string pjlCommand_;
  std::string psCommand_;
  std::string teskCommand_;
  std::string teskTicketCommand_;
  std::string snmpValue_;
  std::string cloKey_;
  std::set<long> constraints_;
};

#endif  // MODEL_DRIVER_FEATURE_OPTION_H_
