// The library with the operations of the reference model. Nothing is decided
// here: each operation is one call.
#ifndef FUZZ_OPERATIONS_LIBRARY_MODEL_H_
#define FUZZ_OPERATIONS_LIBRARY_MODEL_H_

#include <deque>
#include <set>
#include <string>

#include "frame/driver_feature_set.h"
#include "fuzz/operations/side.h"
#include "model/driver_feature.h"
#include "model/driver_feature_dynamic_group.h"
#include "model/driver_feature_option.h"
#include "model/driver_feature_static_group.h"

namespace driver_feature::operations {

// While it lives, the library's state is its own and the platform's log and
// the standard output go to its host. Owns the objects it makes.
class LibraryModel {
 public:
  using Object = CoreFeature;
  using Feature = DriverFeature;
  using StaticGroup = DriverFeatureStaticGroup;
  using DynamicGroup = DriverFeatureDynamicGroup;
  using Option = DriverFeatureOption;
  using AnyOption = CoreOption;

  explicit LibraryModel(Host host);
  ~LibraryModel();
  LibraryModel(const LibraryModel&) = delete;
  LibraryModel& operator=(const LibraryModel&) = delete;

  Option* newOption(const std::string& name);
  Feature* newFeature(const std::string& name);
  Feature* copyFeature(Feature& source);
  StaticGroup* newStaticGroup(const std::string& name);
  DynamicGroup* newDynamicGroup(const std::string& name);

  bool setText(Object& object, const std::string& name, const std::string& value) {
    return object.setFeatureProperty(name, value);
  }
  bool setInt(Object& object, const std::string& name, int value) {
    return object.setFeatureProperty(name, value);
  }
  bool setFloat(Object& object, const std::string& name, float value) {
    return object.setFeatureProperty(name, value);
  }
  bool setBool(Object& object, const std::string& name, bool value) {
    return object.setFeatureProperty(name, value);
  }
  template <class Controlled>
  bool setText(Controlled& object, const std::string& name, const std::string& value,
               bool suppress) {
    return object.setFeaturePropertyWithConstraintControl(name, value, suppress);
  }
  template <class Controlled>
  bool setInt(Controlled& object, const std::string& name, int value, bool suppress) {
    return object.setFeaturePropertyWithConstraintControl(name, value, suppress);
  }
  template <class Controlled>
  bool setFloat(Controlled& object, const std::string& name, float value, bool suppress) {
    return object.setFeaturePropertyWithConstraintControl(name, value, suppress);
  }
  template <class Controlled>
  bool setBool(Controlled& object, const std::string& name, bool value, bool suppress) {
    return object.setFeaturePropertyWithConstraintControl(name, value, suppress);
  }
  bool getText(Object& object, const std::string& name, std::string& value) {
    return object.getFeatureProperty(name, value);
  }
  bool getInt(Object& object, const std::string& name, int& value) {
    return object.getFeatureProperty(name, &value);
  }
  bool getFloat(Object& object, const std::string& name, float& value) {
    return object.getFeatureProperty(name, &value);
  }
  bool getBool(Object& object, const std::string& name, bool& value) {
    return object.getFeatureProperty(name, &value);
  }
  int type(Object& object) { return object.getFeatureType(); }

  bool getOptionText(AnyOption& option, const std::string& name, std::string& value) {
    return option.getOptionProperty(name, value);
  }
  bool getOptionBool(AnyOption& option, const std::string& name, bool& value) {
    return option.getOptionProperty(name, &value);
  }
  bool setOptionText(AnyOption& option, const std::string& name, const std::string& value) {
    return option.setOptionProperty(name, value);
  }
  bool setOptionBool(AnyOption& option, const std::string& name, bool value) {
    return option.setOptionProperty(name, value);
  }

  int numberOfOptions(Object& object) { return object.fetchNumberOfOptions(); }
  int optionCount(Feature& feature) { return feature.getFeatureOptionCount(); }
  int optionIndexByName(Object& object, const std::string& name) {
    return object.fetchOptionIndexByName(name);
  }
  int optionIndexByAttribute(Feature& feature, const std::string& name, const std::string& value) {
    return feature.fetchOptionIndexByName(name, value);
  }
  AnyOption* currentOption(Object& object) { return object.fetchCurrentOption(); }
  AnyOption* optionByAttribute(Object& object, const std::string& name, const std::string& value) {
    return object.fetchOptionByName(name, value);
  }
  AnyOption* optionByName(Object& object, const std::string& name) {
    return object.fetchOptionByName(name);
  }
  AnyOption* optionByIndex(Object& object, int index) { return object.fetchOptionByIndex(index); }
  bool addOption(Feature& feature, Option* option) { return feature.addOptionToFeature(option); }
  bool nextAvailable(Feature& feature, int& position) {
    return feature.findNextAvailableOption(&position);
  }
  bool applyConstraint(Feature& feature, const std::string& optionName, long id, bool hide) {
    return feature.applyOptionConstraint(optionName, id, hide);
  }
  template <class Held>
  bool isConstraintSetEmpty(Held& object) {
    return object.isConstraintSetEmpty();
  }
  template <class Held>
  bool addConstraint(Held& object, long id) {
    return object.addConstraint(id);
  }
  template <class Held>
  bool removeConstraint(Held& object, long id) {
    return object.removeConstraint(id);
  }
  const std::set<long>& constraints(Feature& feature) { return *feature.getConstraintSet(); }
  const std::set<long>& constraints(DynamicGroup& group) { return *group.fetchSelectedEntries(); }

  bool addMember(StaticGroup& group, Object* member) { return group.addFeatureToGroup(member); }
  int memberCount(StaticGroup& group) { return group.fetchNumberOfFeaturesInGroup(); }
  Object* memberByIndex(StaticGroup& group, unsigned index) {
    return group.fetchFeatureInGroupByIndex(index);
  }
  Object* memberByName(StaticGroup& group, const std::string& name) {
    return group.fetchFeatureInGroupByName(name);
  }

  bool setTemplate(DynamicGroup& group, StaticGroup* shape) {
    return group.addDefaultStaticGroupTemplate(shape);
  }
  StaticGroup* shapeOf(DynamicGroup& group) { return group.fetchStaticGroupTemplate(); }
  int recordCount(DynamicGroup& group) { return group.fetchNumberOfDynamicEntries(); }
  bool addRecord(DynamicGroup& group, const Record& values);
  bool addRecord(DynamicGroup& group, const Record& values, bool sort);
  Object* loadRecord(DynamicGroup& group, unsigned index) {
    return group.getDynamicEntryByIndex(index);
  }
  bool removeRecord(DynamicGroup& group, unsigned index) {
    return group.removeDynamicEntryByIndex(index);
  }
  bool removeAllRecords(DynamicGroup& group) { return group.removeAllDynamicEntries(); }
  bool detectDuplicate(DynamicGroup& group, const Record& values);
  bool sortList(DynamicGroup& group) { return group.sortList(); }

  int fileFeature(const std::string& name, Feature* feature);
  int fileStaticGroup(StaticGroup* group);
  int fileDynamicGroup(DynamicGroup* group);
  int featureCount();
  Object* featureByIndex(int index);
  Object* staticGroupByIndex(int index);
  Object* find(const std::string& name);
  Object* findByAttribute(const std::string& attribute, const std::string& value);
  void* createOption(const std::string& feature, const std::string& option, int number);
  void serialize(int pdlType, bool includeInstOpt, std::string& output);
  void dump();
  void restoreDefaults();

  int functionGet(std::string target, const std::string& name, int& value);
  int functionGet(std::string target, const std::string& name, float& value);
  int functionGet(std::string target, const std::string& name, bool& value);
  int functionGet(std::string target, const std::string& name, std::string& value);
  int functionSet(std::string target, const std::string& name, int value);
  int functionSet(std::string target, const std::string& name, float value);
  int functionSet(std::string target, const std::string& name, bool value);
  int functionSet(std::string target, const std::string& name, const std::string& value);
  void save(const Record& names);
  void restore(const Record& names);
  int instOptHandler();
  int jobTicketHandler();
  void completeCreation();
  void registerUpdate(bool registered);
  void registerLoad(bool registered);

 private:
  // The model's destructors are not virtual.
  template <class Class>
  struct Made final : Class {
    using Class::Class;
  };

  Host host_;
  // Objects in a deque stay where they are.
  std::deque<Made<Option>> options_;
  std::deque<Made<Feature>> features_;
  std::deque<Made<StaticGroup>> staticGroups_;
  std::deque<Made<DynamicGroup>> dynamicGroups_;
};

}  // namespace driver_feature::operations

#endif  // FUZZ_OPERATIONS_LIBRARY_MODEL_H_
