// The abstract interfaces of static groups (features written out together)
// and of dynamic groups (lists of records).
//
// Hosts call these operations through the virtual table, so the order of the
// declarations is a binary contract: a new operation may only be added at the
// end, and none may be moved, removed or given another signature. No slot
// holds a destructor; objects of the model are never deleted.
#ifndef MODEL_CORE_FEATURE_GROUP_H_
#define MODEL_CORE_FEATURE_GROUP_H_

#include <set>
#include <string>

#include "model/core_feature.h"

class AttributeMap;  // The platform's ordered map of names to texts.

// A static group: an ordered list of features and nested static groups.
class IntermediateStaticFeatureGroup : public CoreFeature {
 public:
  // Slot 15. Number of members.
  virtual int fetchNumberOfFeaturesInGroup() = 0;

  // Slot 16. The member at a position counted from 0 in order of addition;
  // null if there is none. The member still belongs to its maker.
  virtual CoreFeature* fetchFeatureInGroupByIndex(unsigned index) = 0;

 protected:
  ~IntermediateStaticFeatureGroup() = default;
};

// The record-list operations of a dynamic group.
class CoreFeatureGroup : public CoreFeature {
 public:
  // Slot 15. Adds a record made from name/value texts, keeping the order of
  // the sort routine. False, after a log line, when the map does not fit the
  // template. Calls the host's update callback.
  virtual bool addStaticGroupToDynamicGroup(AttributeMap& values) = 0;

  // Slot 16. Number of records.
  virtual int fetchNumberOfDynamicEntries() = 0;

  // Slot 17. Loads the values of a record into the template and returns the
  // template; null if there is no such record.
  virtual IntermediateStaticFeatureGroup* getDynamicEntryByIndex(unsigned index) = 0;

  // Slot 18. Removes one record; later ones move up. False when there is no
  // such record. Calls the host's update callback.
  virtual bool removeDynamicEntryByIndex(unsigned index) = 0;

  // Slot 19. Removes every record and clears the record in focus. Calls the
  // host's update callback only when there was a record. Always true.
  virtual bool removeAllDynamicEntries() = 0;

  // Slot 20. True when a record holds exactly these values.
  virtual bool detectDuplicateRecord(AttributeMap& values) = 0;

 protected:
  ~CoreFeatureGroup() = default;
};

// Adds constraint control, the set of selected records, and sorting.
// DriverFeatureDynamicGroup implements it.
class IntermediateDynamicFeatureGroup : public CoreFeatureGroup {
 public:
  // Slots 21 to 24. The setters; with `suppressUpdate` the host's update
  // callback is not called. Slots 0 to 3 pass false.
  virtual bool setFeaturePropertyWithConstraintControl(const std::string& name,
                                                       const std::string& value,
                                                       bool suppressUpdate) = 0;
  virtual bool setFeaturePropertyWithConstraintControl(const std::string& name, int value,
                                                       bool suppressUpdate) = 0;
  virtual bool setFeaturePropertyWithConstraintControl(const std::string& name, float value,
                                                       bool suppressUpdate) = 0;
  virtual bool setFeaturePropertyWithConstraintControl(const std::string& name, bool value,
                                                       bool suppressUpdate) = 0;

  // Slots 25 to 27. For a dynamic group the set holds the indices of the
  // selected records: whether none is selected, select one, deselect one. The
  // last two return false for a negative index and if nothing changes.
  virtual bool isConstraintSetEmpty() { return true; }
  virtual bool addConstraint(const long& /*index*/) { return false; }
  virtual bool removeConstraint(const long& /*index*/) { return false; }

  // Slot 28. The set of selected record indices; the group keeps owning it.
  virtual std::set<long>* fetchSelectedEntries() = 0;

  // Slot 29. As slot 15, with or without sorting.
  virtual bool addStaticGroupToDynamicGroupWithSort(AttributeMap& values, bool sort) = 0;

  // Slot 30. Puts the records in the order of the sort routine. False when
  // there are records to compare and no routine, or a record is missing.
  virtual bool sortList() = 0;

 protected:
  ~IntermediateDynamicFeatureGroup() = default;
};

#endif  // MODEL_CORE_FEATURE_GROUP_H_
