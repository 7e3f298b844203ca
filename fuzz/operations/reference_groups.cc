// Groups: static ones with their members, dynamic ones with their records.
#include "fuzz/operations/reference_model.h"

namespace driver_feature::operations {

RefObject* ReferenceModel::newStaticGroup(const std::string& name) {
  RefObject* made = newObject(RefClass::kStaticGroup, name);
  made->type = 6;
  return made;
}

RefObject* ReferenceModel::newDynamicGroup(const std::string& name) {
  RefObject* made = newObject(RefClass::kDynamicGroup, name);
  made->type = 8;
  made->flags["Sensitivity"] = true;
  made->flags["Visibility"] = true;
  made->ints["RecordInFocus"] = -1;
  return made;
}

bool ReferenceModel::addMember(RefObject& group, RefObject* member) {
  if (member == nullptr) return false;
  group.members.push_back(member);
  return setBool(*member, "FeatureInGroup", true, false);
}

RefObject* ReferenceModel::memberByIndex(RefObject& group, unsigned index) {
  return index < group.members.size() ? group.members[index] : nullptr;
}

RefObject* ReferenceModel::memberByName(RefObject& group, const std::string& name) {
  for (RefObject* member : group.members) {
    if (member->name() == name) return member;
  }
  return nullptr;
}

bool ReferenceModel::setTemplate(RefObject& group, RefObject* shape) {
  if (shape == nullptr) {
    log(3,
        "DriverFeatureDynamicGroup::addDefaultStaticGroupTemplate(bool) - Null static group "
        "template pointer");
    return false;
  }
  if (group.shape != nullptr) {
    log(3,
        "DriverFeatureDynamicGroup::addDefaultStaticGroupTemplate() - Dynamic group static "
        "template already assigned");
    return false;
  }
  group.shape = shape;
  return true;
}

bool ReferenceModel::addRecord(RefObject& group, const Record& values, bool sort) {
  const std::string operation = "addStaticGroupToDynamicGroupWithSort()";
  if (group.shape == nullptr) {
    log(2, operation + " - Null static group template");
    return false;
  }
  if (values.size() != group.shape->members.size()) {
    log(2, operation + " - Wrong number of entries in map");
    return false;
  }
  RefObject* record = newStaticGroup("");
  for (RefObject* member : group.shape->members) {
    const auto entry = values.find(member->name());
    if (entry == values.end()) {
      log(2, operation + " - Feature not found in map:" + member->name());
      return false;
    }
    if (member->kind != RefClass::kFeature || member->type < 1 || member->type > 4) continue;
    RefObject* copy = copyFeature(*member);
    setText(*copy, "ValueString", entry->second, true);
    addMember(*record, copy);
  }
  group.records.push_back(record);
  const std::string& routine = group.texts["SortFunctionName"];
  if (sort && !routine.empty()) {
    if (group.sortRoutine == -1) {
      for (std::size_t i = 0; i < kSortRoutineNames.size(); ++i) {
        if (routine == kSortRoutineNames[i]) group.sortRoutine = static_cast<int>(i);
      }
      if (group.sortRoutine == -1) {
        log(2, "addStaticGroupToDynamicGroupWithSort:  Failed to load custom sort callback:  " +
                   routine);
      }
    }
    if (group.sortRoutine != -1) sortList(group);
  }
  callUpdate();
  return true;
}

bool ReferenceModel::readRecord(RefObject& group, long index, Record& values) {
  if (index >= static_cast<long>(group.records.size())) {
    log(2, "sortList() - Null static record pointer");
    return false;
  }
  for (RefObject* member : group.records[static_cast<std::size_t>(index)]->members) {
    std::string value;
    getText(*member, "ValueString", value);
    values[member->name()] = value;
  }
  return true;
}

bool ReferenceModel::sortList(RefObject& group) {
  if (group.records.size() >= 2 && group.sortRoutine == -1) return false;
  Record first;
  Record second;
  bool swapped = true;
  for (long bound = static_cast<long>(group.records.size()) - 1; swapped; --bound) {
    swapped = false;
    for (long i = 0; i < bound; ++i) {
      if (!readRecord(group, i, first) || !readRecord(group, i + 1, second)) return false;
      const auto rule = static_cast<SortRule>(group.sortRoutine);
      if (host_.sort(rule, first, second) <= 0) continue;
      // The routine itself may have removed the records: then there is nothing to swap.
      if (i + 1 < static_cast<long>(group.records.size())) {
        std::swap(group.records[static_cast<std::size_t>(i)],
                  group.records[static_cast<std::size_t>(i) + 1]);
      }
      swapped = true;
      first.clear();
      second.clear();
    }
  }
  return true;
}

RefObject* ReferenceModel::loadRecord(RefObject& group, unsigned index) {
  if (group.shape == nullptr) {
    log(2, "getDynamicEntryByIndex() - Null static group template");
    return nullptr;
  }
  if (index >= group.records.size()) return nullptr;
  const RefObject* record = group.records[index];
  for (RefObject* member : record->members) {
    std::string value;
    getText(*member, "ValueString", value);
    RefObject* target = memberByName(*group.shape, member->name());
    if (target == nullptr) {
      log(2, "getDynamicEntryByIndex() - Null feature pointer in real feature group record");
      return nullptr;
    }
    setText(*target, "ValueString", value, true);
  }
  return group.shape;
}

bool ReferenceModel::removeRecord(RefObject& group, unsigned index) {
  if (index >= group.records.size()) return false;
  group.records.erase(group.records.begin() + static_cast<std::ptrdiff_t>(index));
  callUpdate();
  return true;
}

bool ReferenceModel::removeAllRecords(RefObject& group) {
  const bool hadSome = !group.records.empty();
  group.records.clear();
  group.ints["RecordInFocus"] = -1;
  if (hadSome) callUpdate();
  return true;
}

bool ReferenceModel::matches(RefObject& record, const Record& values) {
  for (const auto& [name, value] : values) {
    RefObject* member = memberByName(record, name);
    if (member == nullptr) {
      log(3,
          "DriverFeatureDynamicGroup::detectDuplicateRecord() - Cannot find test feature name "
          "in static group record");
      return false;
    }
    std::string held;
    if (!getText(*member, "ValueString", held)) {
      log(3,
          "DriverFeatureDynamicGroup::detectDuplicateRecord() - Cannot get test feature value "
          "from static group record");
      return false;
    }
    if (held != value) return false;
  }
  return true;
}

bool ReferenceModel::detectDuplicate(RefObject& group, const Record& values) {
  if (group.shape == nullptr || group.shape->members.size() != values.size()) return false;
  for (RefObject* record : group.records) {
    if (matches(*record, values)) return true;
  }
  return false;
}

}  // namespace driver_feature::operations
