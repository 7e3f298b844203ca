// A list of records of one shape, made at run time from name/value texts.
//
// The shape is a static group, the template. Each record is a static group
// with copies of the template's features. A sort routine of the host may keep
// the records in order; changes of the list are reported to the host's update
// callback, also while a ticket is being loaded.
#ifndef MODEL_DRIVER_FEATURE_DYNAMIC_GROUP_H_
#define MODEL_DRIVER_FEATURE_DYNAMIC_GROUP_H_

#include <set>
#include <string>
#include <vector>

#include "model/core_feature_group.h"
#include "model/driver_feature_static_group.h"

// This class makes the records and their values and never frees them:
// removing one drops the pointer. The template belongs to its maker.
class DriverFeatureDynamicGroup : public IntermediateDynamicFeatureGroup {
 public:
  // A routine of the host that compares two records, each as member name to
  // "ValueString". Above 0 means that the first comes after the second.
  using SortRoutine = int (*)(AttributeMap& first, AttributeMap& second);

  DriverFeatureDynamicGroup() = default;
  explicit DriverFeatureDynamicGroup(const std::string& name) : name_(name) {}
  DriverFeatureDynamicGroup(const DriverFeatureDynamicGroup&) = delete;
  DriverFeatureDynamicGroup& operator=(const DriverFeatureDynamicGroup&) = delete;

  // Unknown text properties are refused without a log line, all others with a
  // level 3 line. Storing a number or a flag calls the update callback unless
  // the caller suppresses it or a ticket is being loaded.
  bool setFeatureProperty(const std::string& name, const std::string& value) override;
  bool setFeatureProperty(const std::string& name, int value) override;
  bool setFeatureProperty(const std::string& name, float value) override;
  bool setFeatureProperty(const std::string& name, bool value) override;
  bool getFeatureProperty(const std::string& name, std::string& value) override;
  bool getFeatureProperty(const std::string& name, int* value) override;
  bool getFeatureProperty(const std::string& name, bool* value) override;
  bool getFeatureProperty(const std::string& name, float* value) override;
  int getFeatureType() override;

  bool addStaticGroupToDynamicGroup(AttributeMap& values) override;
  int fetchNumberOfDynamicEntries() override;
  IntermediateStaticFeatureGroup* getDynamicEntryByIndex(unsigned index) override;
  bool removeDynamicEntryByIndex(unsigned index) override;
  bool removeAllDynamicEntries() override;
  bool detectDuplicateRecord(AttributeMap& values) override;
  bool setFeaturePropertyWithConstraintControl(const std::string& name, const std::string& value,
                                               bool suppressUpdate) override;
  bool setFeaturePropertyWithConstraintControl(const std::string& name, int value,
                                               bool suppressUpdate) override;
  bool setFeaturePropertyWithConstraintControl(const std::string& name, float value,
                                               bool suppressUpdate) override;
  bool setFeaturePropertyWithConstraintControl(const std::string& name, bool value,
                                               bool suppressUpdate) override;
  bool isConstraintSetEmpty() override;
  bool addConstraint(const long& index) override;
  bool removeConstraint(const long& index) override;
  std::set<long>* fetchSelectedEntries() override;
  bool addStaticGroupToDynamicGroupWithSort(AttributeMap& values, bool sort) override;
  bool sortList() override;

  // The operations of slots 25 to 27 under names that say what they do here.
  // Selecting a selected record, deselecting one that is not selected, and a
  // negative index return false.
  bool isSelectionEmpty();
  bool selectDynamicEntry(long index);
  bool deselectDynamicEntry(long index);

  // Sets the template, once. False, after a level 3 line, for null and when
  // there is one already. Keeps the pointer; never frees it.
  bool addDefaultStaticGroupTemplate(DriverFeatureStaticGroup* group);
  DriverFeatureStaticGroup* fetchStaticGroupTemplate() { return template_; }

 private:
  struct Properties;

  template <class Value>
  bool store(const std::string& name, const Value& value, bool suppressUpdate);
  DriverFeatureStaticGroup* createRecord(AttributeMap& values);
  bool copyMemberToRecord(CoreFeature& member, AttributeMap& values,
                          DriverFeatureStaticGroup& record);
  void loadSortRoutine();
  bool sortPass(int bound, AttributeMap& first, AttributeMap& second, bool& swapped);
  bool readRecord(int index, AttributeMap& values);
  bool loadRecordMember(CoreFeature& member);
  static bool recordHolds(DriverFeatureStaticGroup& record, AttributeMap& values);

  std::string name_;
  int type_ = driver_feature::kDynamicGroup;
  int recordInFocus_ = -1;
  DriverFeatureStaticGroup* template_ = nullptr;
  std::string pjlCommand_;
  std::string psCommand_;
  std::string teskOAAttributeName_;
  std::string teskJTAttributeName_;
  std::string instOptAttributeName_;
  std::string nonVORNAttributeName_;
  std::string teskAttributeSyntax_;
  std::string pjlCallbackRoutine_;
  std::string psCallbackRoutine_;
  std::string vornCallbackRoutine_;
  std::string sortFunctionName_;
  SortRoutine sortRoutine_ = nullptr;  // Looked up when it is first needed.
  std::vector<DriverFeatureStaticGroup*> records_;
  std::set<long> selectedEntries_;
};

#endif  // MODEL_DRIVER_FEATURE_DYNAMIC_GROUP_H_
