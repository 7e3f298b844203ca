// One choice of a "MultiSelect" feature: its name, the commands that are
// written while it is the current choice, and its availability.
#ifndef MODEL_DRIVER_FEATURE_OPTION_H_
#define MODEL_DRIVER_FEATURE_OPTION_H_

#include <optional>
#include <string>
#include <string_view>

#include "model/constraint_set.h"
#include "model/core_option.h"
#include "model/property_store.h"
#include "model/vocabulary.h"

// Options notify nobody. They are made with new by the loader, or by a
// feature that copies another's, and are never freed.
class DriverFeatureOption : public IntermediateCoreOption {
 public:
  DriverFeatureOption() = default;
  explicit DriverFeatureOption(const std::string& name);
  DriverFeatureOption(const DriverFeatureOption&) = delete;
  DriverFeatureOption& operator=(const DriverFeatureOption&) = delete;

  bool getOptionProperty(const std::string& name, std::string& value) override;
  bool getOptionProperty(const std::string& name, bool* value) override;
  bool setOptionProperty(const std::string& name, const std::string& value) override;
  bool setOptionProperty(const std::string& name, bool value) override;
  bool isConstraintSetEmpty() override;
  bool addConstraint(const long& id) override;
  bool removeConstraint(const long& id) override;

  // For readers of many options, who need not have a name looked up for each:
  // the text property of that name, or nothing when getOptionProperty() refuses
  // the name; and what it copies. A text is valid until the option changes.
  static std::optional<driver_feature::OptionProperty> findTextProperty(const std::string& name);
  std::string_view text(driver_feature::OptionProperty property) const {
    return kept_.text(static_cast<std::size_t>(property));
  }

  bool isSensitive() const { return sensitive_; }

  // For the loader, when it has set all: moves the properties into the room,
  // which must outlive the option.
  void movePropertiesTo(driver_feature::PropertyRoom& room) { kept_.moveTo(room); }

 private:
  struct Properties;

  template <class Value>
  bool store(const std::string& name, const Value& value);
  template <class Value>
  bool fetch(const std::string& name, Value& value);

  driver_feature::PropertyStore kept_;
  driver_feature::ConstraintSet constraints_;
};

#endif  // MODEL_DRIVER_FEATURE_OPTION_H_
