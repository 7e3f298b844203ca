// The abstract interface of one choice of a list feature.
//
// Hosts call these operations through the virtual table, so the order of the
// declarations is a binary contract: a new operation may only be added at the
// end, and none may be moved, removed or given another signature.
//
// No slot holds a destructor. The destructor is protected and non-virtual
// because options are never deleted, through an interface or otherwise.
#ifndef MODEL_CORE_OPTION_H_
#define MODEL_CORE_OPTION_H_

#include <string>

class CoreOption {
 public:
  // Slot 0. Copies the text property `name` into `value`. An unknown name, or
  // that of a bool property, is logged at level 3, returns false and leaves
  // `value` unchanged.
  virtual bool getOptionProperty(const std::string& name, std::string& value) = 0;

  // Slot 1. Stores the bool property `name` ("Sensitivity" or "Visibility")
  // through `value`. Any other name is logged at level 3 and returns false.
  virtual bool getOptionProperty(const std::string& name, bool* value) = 0;

  // Slot 2. Stores a text property. Any other name is logged at level 3,
  // returns false and changes nothing. No callback is called.
  virtual bool setOptionProperty(const std::string& name, const std::string& value) = 0;

  // Slot 3. Stores a bool property. Any other name is logged at level 3,
  // returns false and changes nothing. No callback is called.
  virtual bool setOptionProperty(const std::string& name, bool value) = 0;

 protected:
  ~CoreOption() = default;

  bool sensitive_ = true;  // "Sensitivity": the option can be chosen.
  bool visible_ = true;    // "Visibility": the option is shown.
};

// Adds the identifiers of the host's constraints that hold the option back.
// The model stores them and never acts on them.
class IntermediateCoreOption : public CoreOption {
 public:
  // Slot 4. True when no constraint holds the option back.
  virtual bool isConstraintSetEmpty() = 0;

  // Slot 5. Records a constraint. False when `id` is negative or recorded
  // already.
  virtual bool addConstraint(const long& id) = 0;

  // Slot 6. Forgets a constraint. False when `id` is not recorded.
  virtual bool removeConstraint(const long& id) = 0;

 protected:
  ~IntermediateCoreOption() = default;
};

#endif  // MODEL_CORE_OPTION_H_
