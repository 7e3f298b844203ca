// A list of records of one shape, made at run time from name/value texts.
//
// The shape is a static group, the template. Each record is a static group
// with copies of the template's features. A sort routine of the host may keep
// the records in order; changes of the list are reported to the host's update
// callback, also while a ticket is being loaded.
#ifndef MODEL_DRIVER_FEATURE_DYNAMIC_GROUP_H_
#define MODEL_DRIVER_FEATURE_DYNAMIC_GROUP_H_

#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "model/core_feature_group.h"
#include "model/driver_feature_static_group.h"
#include "model/dynamic_record.h"
#include "model/property_store.h"
#include "model/record_list.h"

// This class makes the records and frees those that are removed: no pointer to
// one is ever handed out. The template belongs to its maker.
class DriverFeatureDynamicGroup : public IntermediateDynamicFeatureGroup {
 public:
  // A routine of the host that compares two records, each as member name to
  // "ValueString". Above 0 means that the first comes after the second.
  using SortRoutine = int (*)(AttributeMap& first, AttributeMap& second);

  DriverFeatureDynamicGroup() = default;
  explicit DriverFeatureDynamicGroup(const std::string& name);
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

  // As DriverFeature::text().
  std::string_view text(driver_feature::Property property) const {
    return kept_.text(static_cast<std::size_t>(property));
  }

 private:
  struct Properties;
  using DynamicRecord = driver_feature::DynamicRecord;

  std::string_view ownName() const { return text(driver_feature::Property::kName); }

  template <class Value>
  bool store(const std::string& name, const Value& value, bool suppressUpdate);
  std::unique_ptr<DynamicRecord> createRecord(AttributeMap& values);
  static bool copyMemberToRecord(CoreFeature& member, AttributeMap& values, DynamicRecord& record);
  void loadSortRoutine();
  bool sortPass(int bound, AttributeMap& first, AttributeMap& second, bool& swapped);
  bool readRecord(int index, AttributeMap& values);
  bool loadRecordMember(const driver_feature::DynamicRecordMember& member);
  static bool recordHolds(DynamicRecord& record, AttributeMap& values);

  int type_ = driver_feature::kDynamicGroup;
  int recordInFocus_ = -1;
  DriverFeatureStaticGroup* template_ = nullptr;
  driver_feature::PropertyStore kept_;
  SortRoutine sortRoutine_ = nullptr;  // Looked up when it is first needed.
  driver_feature::RecordList records_;
  std::set<long> selectedEntries_;
};

#endif  // MODEL_DRIVER_FEATURE_DYNAMIC_GROUP_H_
