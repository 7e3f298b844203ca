// The records of a dynamic group.

#include <new>
#include <utility>

#include "model/driver_feature.h"
#include "model/driver_feature_dynamic_group.h"
#include "model/messages.h"
#include "model/notification.h"

#include "AttributeMap.h"
#include "Symbols.h"

using driver_feature::DynamicRecordMember;
using driver_feature::HeldRecord;
using driver_feature::Level;
using driver_feature::logComposed;
using driver_feature::logFixed;
using driver_feature::Property;

bool DriverFeatureDynamicGroup::addStaticGroupToDynamicGroup(AttributeMap& values) {
  return addStaticGroupToDynamicGroupWithSort(values, true);
}

bool DriverFeatureDynamicGroup::addStaticGroupToDynamicGroupWithSort(AttributeMap& values,
                                                                     bool sort) {
  std::unique_ptr<DynamicRecord> record = createRecord(values);
  if (record == nullptr) return false;
  records_.grow();
  records_[records_.size() - 1] = record.release();
  if (sort && !text(Property::kSortFunctionName).empty()) {
    loadSortRoutine();
    if (sortRoutine_ != nullptr) sortList();
  }
  driver_feature::callUpdateCallback();
  return true;
}

std::unique_ptr<driver_feature::DynamicRecord> DriverFeatureDynamicGroup::createRecord(
    AttributeMap& values) {
  if (template_ == nullptr) {
    logFixed(Level::kMisuse, "addStaticGroupToDynamicGroupWithSort() - Null static group template");
    return nullptr;
  }
  const int count = template_->fetchNumberOfFeaturesInGroup();
  if (values.size() != count) {
    logFixed(Level::kMisuse,
             "addStaticGroupToDynamicGroupWithSort() - Wrong number of entries in map");
    return nullptr;
  }
  std::unique_ptr<DynamicRecord> record(new (std::nothrow) DynamicRecord);
  if (record == nullptr) {
    logFixed(Level::kMisuse,
             "addStaticGroupToDynamicGroupWithSort() - Cannot create static group copy");
    return nullptr;
  }
  record->reserve(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) {
    CoreFeature* member = template_->fetchFeatureInGroupByIndex(static_cast<unsigned>(i));
    if (!copyMemberToRecord(*member, values, *record)) return nullptr;
  }
  return record;
}

bool DriverFeatureDynamicGroup::copyMemberToRecord(CoreFeature& member, AttributeMap& values,
                                                   DynamicRecord& record) {
  std::string name;
  member.getFeatureProperty(std::string("Name"), name);
  const int type = member.getFeatureType();
  std::string value;
  if (!values.loadMapVariable(name, value, static_cast<const std::string*>(nullptr))) {
    logComposed(Level::kMisuse,
                "addStaticGroupToDynamicGroupWithSort() - Feature not found in map:{}", name);
    return false;
  }
  if (type < driver_feature::kMultiSelect || type > driver_feature::kFloatEntry) return true;
  auto* feature = dynamic_cast<DriverFeature*>(&member);
  if (feature == nullptr) return true;
  driver_feature::FeatureCopy copy(new DriverFeature(feature));
  copy->setFeaturePropertyWithConstraintControl(std::string("ValueString"), value, true);
  record.add(std::move(copy));
  return true;
}

void DriverFeatureDynamicGroup::loadSortRoutine() {
  if (sortRoutine_ != nullptr) return;
  const std::string name(text(Property::kSortFunctionName));
  sortRoutine_ = reinterpret_cast<SortRoutine>(FetchSymbol(name.c_str()));
  if (sortRoutine_ == nullptr) {
    logComposed(Level::kMisuse,
                "addStaticGroupToDynamicGroupWithSort:  Failed to load custom sort callback:  {}",
                name);
  }
}

// Required: a bubble sort, so that the host's routine sees the pairs in this
// order, and maps that are cleared after a swap only, so that it finds what
// earlier records have left there.
bool DriverFeatureDynamicGroup::sortList() {
  if (sortRoutine_ == nullptr) return records_.size() < 2;
  records_.closeHoles();
  AttributeMap first;
  AttributeMap second;
  bool swapped = true;
  int bound = static_cast<int>(records_.size()) - 1;
  while (swapped) {
    swapped = false;
    if (!sortPass(bound, first, second, swapped)) return false;
    --bound;
  }
  return true;
}

bool DriverFeatureDynamicGroup::sortPass(int bound, AttributeMap& first, AttributeMap& second,
                                         bool& swapped) {
  for (int i = 0; i < bound; ++i) {
    if (!readRecord(i, first) || !readRecord(i + 1, second)) return false;
    if (sortRoutine_(first, second) <= 0) continue;
    const auto left = static_cast<std::size_t>(i);
    // The routine may have removed records.
    if (left + 1 < records_.size()) std::swap(records_[left], records_[left + 1]);
    swapped = true;
    first.clear();
    second.clear();
  }
  return true;
}

// Adds the record's member names and values to `values`. False, after a level
// 2 line, when there is no such record.
bool DriverFeatureDynamicGroup::readRecord(int index, AttributeMap& values) {
  const auto position = static_cast<std::size_t>(index);
  const HeldRecord record(position < records_.size() ? records_[position] : nullptr);
  if (!record) {
    logComposed(Level::kMisuse, "sortList() - Null static record pointer");
    return false;
  }
  for (const DynamicRecordMember& member : record->members()) {
    if (member.copy == nullptr) {
      values[member.name] = member.value;
      continue;
    }
    std::string value;
    member.read(value);
    values[member.name] = value;
  }
  return true;
}

int DriverFeatureDynamicGroup::fetchNumberOfDynamicEntries() {
  return static_cast<int>(records_.size());
}

IntermediateStaticFeatureGroup* DriverFeatureDynamicGroup::getDynamicEntryByIndex(unsigned index) {
  if (template_ == nullptr) {
    logFixed(Level::kMisuse, "getDynamicEntryByIndex() - Null static group template");
    return nullptr;
  }
  if (index >= records_.size()) return nullptr;
  const HeldRecord record(records_[index]);
  if (!record) {
    logFixed(Level::kMisuse, "getDynamicEntryByIndex() - Null static record pointer");
    return nullptr;
  }
  for (const DynamicRecordMember& member : record->members()) {
    if (!loadRecordMember(member)) return nullptr;
  }
  return template_;
}

bool DriverFeatureDynamicGroup::loadRecordMember(const DynamicRecordMember& member) {
  std::string value;
  member.read(value);
  CoreFeature* target = template_->fetchFeatureInGroupByName(member.name);
  if (target == nullptr) {
    logFixed(Level::kMisuse,
             "getDynamicEntryByIndex() - Null feature pointer in real feature group record");
    return false;
  }
  if (auto* feature = dynamic_cast<IntermediateCoreFeature*>(target)) {
    feature->setFeaturePropertyWithConstraintControl(std::string("ValueString"), value, true);
  }
  return true;
}

bool DriverFeatureDynamicGroup::removeDynamicEntryByIndex(unsigned index) {
  if (index >= records_.size()) return false;
  DynamicRecord* const record = records_[index];
  records_.erase(index);
  DynamicRecord::release(record);
  driver_feature::callUpdateCallback();
  return true;
}

bool DriverFeatureDynamicGroup::removeAllDynamicEntries() {
  const bool hadRecords = records_.size() > 0;
  for (std::size_t i = 0; i < records_.size(); ++i) DynamicRecord::release(records_[i]);
  records_.clear();
  recordInFocus_ = -1;
  if (hadRecords) driver_feature::callUpdateCallback();
  return true;
}

bool DriverFeatureDynamicGroup::detectDuplicateRecord(AttributeMap& values) {
  if (template_ == nullptr) return false;
  if (values.size() != template_->fetchNumberOfFeaturesInGroup()) return false;
  records_.closeHoles();
  // NOLINTNEXTLINE(modernize-loop-convert): a line of the log may make the host change the records.
  for (std::size_t i = 0; i < records_.size(); ++i) {
    const HeldRecord record(records_[i]);
    if (!record) {
      logFixed(Level::kWarning,
               "DriverFeatureDynamicGroup::detectDuplicateRecord() - Cannot get feature from "
               "static group record");
      continue;
    }
    if (recordHolds(*record, values)) return true;
  }
  return false;
}

// Whether the record holds every one of the values. A value that cannot be
// compared makes it not hold them.
bool DriverFeatureDynamicGroup::recordHolds(DynamicRecord& record, AttributeMap& values) {
  std::string name;
  std::string wanted;
  for (long i = 0; i < values.size(); ++i) {
    if (!values.fetchAttributeValueByIndex(i, name, wanted)) {
      logFixed(Level::kWarning,
               "DriverFeatureDynamicGroup::detectDuplicateRecord() - Cannot get test feature name "
               "and value from AttributeMap");
      return false;
    }
    const DynamicRecordMember* member = record.find(name);
    if (member == nullptr) {
      logFixed(Level::kWarning,
               "DriverFeatureDynamicGroup::detectDuplicateRecord() - Cannot find test feature name "
               "in static group record");
      return false;
    }
    std::string value;
    if (!member->read(value)) {
      logFixed(Level::kWarning,
               "DriverFeatureDynamicGroup::detectDuplicateRecord() - Cannot get test feature value "
               "from static group record");
      return false;
    }
    if (value != wanted) return false;
  }
  return true;
}
