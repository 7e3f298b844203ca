// One print setting of the driver: a typed value in four copies (current,
// default, original, deferred), its limits, the commands and ticket names that
// carry it to the printer, and the options of a list.
//
// Notification. When a current value has really changed, first the feature's
// own change routine runs ("AddCallbackRoutine"; only once the host has set
// the creation-complete flag), then the host's update callback (unless the
// caller suppresses it or a ticket is being loaded). Storing "Sensitivity",
// "Visibility" or "Encrypted" calls the update callback every time. Everything
// else is stored without notification.
//
// Limits, the allowed characters and the deferred values are stored for the
// host and never acted on.
#ifndef MODEL_DRIVER_FEATURE_H_
#define MODEL_DRIVER_FEATURE_H_

#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "model/constraint_set.h"
#include "model/core_feature.h"
#include "model/driver_feature_option.h"
#include "model/notification.h"
#include "model/option_list.h"
#include "model/own_objects.h"
#include "model/property_store.h"
#include "model/vocabulary.h"

namespace driver_feature {
template <class Object, class Name>
struct PropertyRow;
}  // namespace driver_feature

// Features are made with new, filed in the set, and never freed.
class DriverFeature : public IntermediateCoreFeature {
 public:
  // A "MultiSelect" feature without options, available and shown.
  DriverFeature() = default;
  explicit DriverFeature(const std::string& name);

  // A copy for a record of a dynamic group: name, types and current values
  // of `source` and the names of its options, all else as for a new feature.
  // The new options belong to nobody and are never freed.
  explicit DriverFeature(DriverFeature* source);

  DriverFeature(const DriverFeature&) = delete;
  DriverFeature& operator=(const DriverFeature&) = delete;

  bool setFeatureProperty(const std::string& name, const std::string& value) override;
  bool setFeatureProperty(const std::string& name, int value) override;
  bool setFeatureProperty(const std::string& name, float value) override;
  bool setFeatureProperty(const std::string& name, bool value) override;
  bool getFeatureProperty(const std::string& name, std::string& value) override;
  bool getFeatureProperty(const std::string& name, int* value) override;
  bool getFeatureProperty(const std::string& name, bool* value) override;
  bool getFeatureProperty(const std::string& name, float* value) override;
  int getFeatureType() override;

  // The option list. Each operation refuses a feature that is not of type
  // "MultiSelect" with a level 2 line and the result for "none".
  int fetchNumberOfOptions() override;
  int fetchOptionIndexByName(const std::string& name) override;
  CoreOption* fetchCurrentOption() override;
  CoreOption* fetchOptionByName(const std::string& attribute, const std::string& value) override;
  CoreOption* fetchOptionByName(std::string name) override;
  CoreOption* fetchOptionByIndex(int index) override;
  int getFeatureOptionCount() override;
  int fetchOptionIndexByName(const std::string& attribute, const std::string& value) override;

  bool applyOptionConstraint(const std::string& optionName, long id, bool hide) override;
  bool setFeaturePropertyWithConstraintControl(const std::string& name, const std::string& value,
                                               bool suppressUpdate) override;
  bool setFeaturePropertyWithConstraintControl(const std::string& name, int value,
                                               bool suppressUpdate) override;
  bool setFeaturePropertyWithConstraintControl(const std::string& name, float value,
                                               bool suppressUpdate) override;
  bool setFeaturePropertyWithConstraintControl(const std::string& name, bool value,
                                               bool suppressUpdate) override;
  bool isConstraintSetEmpty() override;
  bool addConstraint(const long& id) override;
  bool removeConstraint(const long& id) override;
  std::set<long>* getConstraintSet() override;

  // Appends an option at the next position. False, after a level 2 line, for
  // null and for a feature that is not "MultiSelect". Keeps the pointer; never
  // frees it.
  bool addOptionToFeature(CoreOption* option);

  // Finds the next option after `*position`, wrapping around, that is
  // available, and stores its position. The option at `*position` itself is
  // never chosen. Returns false, after a level 2 line and with `*position`
  // unchanged, if there is none. The feature type does not matter.
  bool findNextAvailableOption(int* position);

  // For readers of many features, who need not have a name looked up for each:
  // what getFeatureProperty() copies. A text that the getter hides while it is
  // empty is empty here. A text is valid until the feature changes.
  std::string_view text(driver_feature::Property property) const {
    return kept_.text(static_cast<std::size_t>(property));
  }

  // The command template of that property as readPlainTemplate() returns it.
  std::string_view plainTemplate(driver_feature::Property property) const {
    return kept_.text(numberOfPlain(property));
  }

  // The "ValueString", if it can be read and no log line is written for it.
  std::optional<std::string> findQuietValueString() const;

  bool isInGroup() const { return inGroup_; }
  int currentInt() const { return currentInt_; }
  float currentFloat() const { return currentFloat_; }

  // The current option of a "MultiSelect" feature, if there is one and it is the
  // library's own; else null.
  const DriverFeatureOption* ownCurrentOption() const {
    const CoreOption* option = isMultiSelect() ? options_.at(currentInt_) : nullptr;
    return option != nullptr ? driver_feature::asOwn<DriverFeatureOption>(*option) : nullptr;
  }

 private:
  struct Properties;
  using Row = driver_feature::PropertyRow<DriverFeature, driver_feature::Property>;

  template <class Value>
  bool store(const std::string& name, const Value& value, bool suppressUpdate);
  template <class Value>
  bool storeByRule(const Row& row, const Value& value, bool suppressUpdate);
  template <class Value>
  bool fetch(const std::string& name, Value& value);
  template <class Value>
  bool storeChanged(const Row& row, const Value& value, bool suppressUpdate);
  template <class Value>
  bool storeCurrent(driver_feature::Property property, const Value& value, bool suppressUpdate);

  bool storeFeatureType(int value);
  bool storeValueType(int value);
  bool refuseValue(driver_feature::Property property, int value);
  bool storeChangeRoutine(const std::string& routineName);
  bool storeTemplate(const Row& row, const std::string& value);
  bool storeValueString(const std::string& text, bool suppressUpdate);
  bool fetchValueString(std::string& text);

  // The number under which the store has what was read of a template.
  static constexpr std::size_t numberOfPlain(driver_feature::Property property) {
    return driver_feature::kPropertyCount + static_cast<std::size_t>(property);
  }

  std::string_view ownName() const { return text(driver_feature::Property::kName); }
  bool isMultiSelect() const { return type_ == driver_feature::kMultiSelect; }
  bool refusesOptionIndexByName();
  bool refusesOptionByName();
  void copyOptionNames(DriverFeature& source);

  // What most features have is here; the store has the other texts and numbers.
  bool inGroup_ = false;
  bool encrypted_ = false;
  int type_ = driver_feature::kMultiSelect;
  int valueType_ = driver_feature::kIntValue;
  int currentInt_ = 0;  // The current option's position in a "MultiSelect" feature.
  float currentFloat_ = 0;
  driver_feature::PropertyStore kept_;
  driver_feature::OptionList options_;
  driver_feature::ConstraintSet constraints_;
  driver_feature::ChangeRoutine changeRoutine_ = nullptr;
};

#endif  // MODEL_DRIVER_FEATURE_H_
