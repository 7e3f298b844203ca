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

#include <set>
#include <string>

#include "model/core_feature.h"
#include "model/notification.h"
#include "model/option_list.h"
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
  explicit DriverFeature(const std::string& name) : name_(name) {}

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

  // The member that getFeatureProperty() copies for that name, in every
  // feature: for a reader of many features, who need not have the name looked
  // up for each. Null for a name that the getter refuses, and for one that
  // names several members. What the getter hides while it is empty is
  // empty here.
  template <class Value>
  static const Value DriverFeature::*findPlainMember(const std::string& name);

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
  bool storeChanged(Value& current, const Value& value, bool suppressUpdate);

  bool storeFeatureType(int value);
  bool storeValueType(int value);
  bool refuseValue(driver_feature::Property property, int value);
  bool storeChangeRoutine(const std::string& routineName);
  bool storeValueString(const std::string& text, bool suppressUpdate);
  bool fetchValueString(std::string& text);

  bool isMultiSelect() const { return type_ == driver_feature::kMultiSelect; }
  bool refusesOptionIndexByName();
  bool refusesOptionByName();
  void copyOptionNames(DriverFeature& source);

  // What reading and writing need of each of many features is together, in a
  // piece of memory that is fetched at once.
  int type_ = driver_feature::kMultiSelect;
  int valueType_ = driver_feature::kIntValue;
  int currentInt_ = 0;  // The current option's position in a "MultiSelect" feature.
  bool inGroup_ = false;
  driver_feature::OptionList options_;

  std::string name_;
  int defaultInt_ = 0;
  std::string defaultText_;
  float defaultFloat_ = 0;
  std::string currentText_;
  float currentFloat_ = 0;
  int originalInt_ = 0;
  std::string originalText_;
  float originalFloat_ = 0;
  int deferredInt_ = 0;
  std::string deferredText_;
  float deferredFloat_ = 0;

  int maxTextLength_ = 0;
  std::string textValidationCharSet_;
  bool encrypted_ = false;
  int intMin_ = 0;
  int intMax_ = 0;
  float floatMin_ = 0;
  float floatMax_ = 0;

  std::string pjlCommand_;
  std::string psCommand_;
  std::string teskOAAttributeName_;
  std::string teskJTAttributeName_;
  std::string instOptAttributeName_;
  std::string nonVORNAttributeName_;
  std::string teskAttributeSyntax_;
  std::string callbackRoutine_;
  driver_feature::ChangeRoutine changeRoutine_ = nullptr;
  std::string pjlCallbackRoutine_;
  std::string psCallbackRoutine_;
  std::string vornCallbackRoutine_;
  std::string snmpOID_;
  std::string snmpOIDPrefix_;
  std::string biDiDataSection_;
  std::string cloKey_;

  std::set<long> constraints_;
};

#endif  // MODEL_DRIVER_FEATURE_H_
