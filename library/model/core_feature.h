// The abstract interfaces of a feature (one print setting) and of everything
// that has the same operations: static groups and dynamic groups.
//
// Hosts call these operations through the virtual table, so the order of the
// declarations is a binary contract: a new operation may only be added at the
// end, and none may be moved, removed or given another signature. No slot
// holds a destructor; objects of the model are never deleted.
//
// A value is addressed by a property name ("CurrentIntValue"). Names are
// matched exactly. Setters come as text, int, float, bool; getters as text,
// int, bool, float.
//
// Beware of literals: setFeatureProperty("Name", "A4") calls the bool
// overload, because a character pointer converts to bool before it converts
// to std::string. Pass a std::string.
#ifndef MODEL_CORE_FEATURE_H_
#define MODEL_CORE_FEATURE_H_

#include <set>
#include <string>

#include "model/core_option.h"

class CoreFeature {
 public:
  // Slots 0 to 3. Store a property. For a value that the object must
  // refuse they return false and change nothing; a feature returns true, after
  // a log line, if the property belongs to another value type. A changed
  // current value or flag notifies the host (see DriverFeature).
  virtual bool setFeatureProperty(const std::string& name, const std::string& value) = 0;
  virtual bool setFeatureProperty(const std::string& name, int value) = 0;
  virtual bool setFeatureProperty(const std::string& name, float value) = 0;
  virtual bool setFeatureProperty(const std::string& name, bool value) = 0;

  // Slots 4 to 7. Read a property. For an unreadable name they return
  // false and leave the output unchanged.
  virtual bool getFeatureProperty(const std::string& name, std::string& value) = 0;
  virtual bool getFeatureProperty(const std::string& name, int* value) = 0;
  virtual bool getFeatureProperty(const std::string& name, bool* value) = 0;
  virtual bool getFeatureProperty(const std::string& name, float* value) = 0;

  // Slot 8. The feature-type code: 0 "UIOnly", 1 "MultiSelect", 2 "IntEntry",
  // 3 "TextEntry", 4 "FloatEntry", 5 "MVCList", 6 static group, 7 template of
  // a dynamic group, 8 dynamic group.
  virtual int getFeatureType() = 0;

  // Slots 9 to 14. The options of a "MultiSelect" feature. These
  // implementations, for what has no options, do not log.

  // Slot 9. Number of options; 0 when this is not a "MultiSelect" feature.
  virtual int fetchNumberOfOptions() { return 0; }

  // Slot 10. Position of the first option of that name, or -1.
  virtual int fetchOptionIndexByName(const std::string& /*name*/) { return -1; }

  // Slot 11. The option at the current position, or null.
  virtual CoreOption* fetchCurrentOption() { return nullptr; }

  // Slot 12. The first option whose text property `attribute` holds `value`,
  // or null.
  virtual CoreOption* fetchOptionByName(const std::string& /*attribute*/,
                                        const std::string& /*value*/) {
    return nullptr;
  }

  // Slot 13. The first option of that name, or null.
  // NOLINTNEXTLINE(performance-unnecessary-value-param): the signature is the host's.
  virtual CoreOption* fetchOptionByName(std::string /*name*/) { return nullptr; }

  // Slot 14. The option at a position counted from 0, or null.
  virtual CoreOption* fetchOptionByIndex(int /*index*/) { return nullptr; }

 protected:
  ~CoreFeature() = default;

  bool sensitive_ = true;  // "Sensitivity": available for selection.
  bool visible_ = true;    // "Visibility": shown by the user interface.
};

// Adds option bookkeeping, constraint control and the host's constraint set.
// DriverFeature implements it.
class IntermediateCoreFeature : public CoreFeature {
 public:
  // Slot 15. Number of options; -1 when this is not a "MultiSelect" feature.
  virtual int getFeatureOptionCount() = 0;

  // Slot 16. Disables an option on behalf of the constraint `id`, moving the
  // current value to another available option first when needed, and hides
  // it as well when `hide` is set. False, with nothing changed, for a negative
  // id, an unknown option, or when no other option is available.
  virtual bool applyOptionConstraint(const std::string& optionName, long id, bool hide) = 0;

  // Slots 17 to 20. The setters. With `suppressUpdate` the host's update
  // callback is not called: the host's way of changing a value from inside
  // its own constraint handling. Slots 0 to 3 pass false.
  virtual bool setFeaturePropertyWithConstraintControl(const std::string& name,
                                                       const std::string& value,
                                                       bool suppressUpdate) = 0;
  virtual bool setFeaturePropertyWithConstraintControl(const std::string& name, int value,
                                                       bool suppressUpdate) = 0;
  virtual bool setFeaturePropertyWithConstraintControl(const std::string& name, float value,
                                                       bool suppressUpdate) = 0;
  virtual bool setFeaturePropertyWithConstraintControl(const std::string& name, bool value,
                                                       bool suppressUpdate) = 0;

  // Slots 21 to 23. The constraint set, as for options.
  virtual bool isConstraintSetEmpty() { return true; }
  virtual bool addConstraint(const long& /*id*/) { return false; }
  virtual bool removeConstraint(const long& /*id*/) { return false; }

  // Slot 24. The feature's own constraint set; the feature keeps owning it.
  virtual std::set<long>* getConstraintSet() = 0;

  // Slot 25. Position of the first option whose text property `attribute`
  // holds `value`, or -1. It overloads slot 10.
  using CoreFeature::fetchOptionIndexByName;
  virtual int fetchOptionIndexByName(const std::string& attribute, const std::string& value) = 0;

 protected:
  ~IntermediateCoreFeature() = default;
};

#endif  // MODEL_CORE_FEATURE_H_
