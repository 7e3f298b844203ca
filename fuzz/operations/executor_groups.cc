// Operations on groups.
#include "fuzz/operations/executor.h"

namespace driver_feature::operations {

template <class Model>
bool Executor<Model>::useStaticGroup(const Operation& operation) {
  StaticGroup& target = *staticGroup(operation.object);
  switch (operation.kind) {
    case Kind::kMemberCount:
      note("members " + shown(model_.memberCount(target)));
      return true;
    case Kind::kMemberByIndex:
      note(label(model_.memberByIndex(target, static_cast<unsigned>(operation.number))));
      return true;
    case Kind::kAddMember: {
      // So few that groups within groups stay small enough to be written.
      if (model_.memberCount(target) >= 6) return true;
      const bool none = operation.flag && operation.number % 4 == 0;
      note("added " + shown(model_.addMember(target, none ? nullptr : object(operation.other))));
      return true;
    }
    case Kind::kMemberByName:
      note(label(model_.memberByName(target, operation.text)));
      return true;
    default:
      return false;
  }
}

template <class Model>
Record Executor<Model>::recordFor(DynamicGroup& group, const Operation& operation) {
  const Entries& entries = operation.entries;
  Record record;
  StaticGroup* shape = model_.shapeOf(group);
  if (!operation.fit || shape == nullptr) {
    for (const auto& [name, value] : entries) record[name] = value;
    return record;
  }
  for (int i = 0; i < model_.memberCount(*shape); ++i) {
    std::string name;
    model_.getText(*model_.memberByIndex(*shape, static_cast<unsigned>(i)), "Name", name);
    const auto place = static_cast<std::size_t>(i);
    record[name] = entries.empty() ? operation.text : entries[place % entries.size()].second;
  }
  return record;
}

template <class Model>
bool Executor<Model>::useRecords(const Operation& operation) {
  DynamicGroup& target = *dynamicGroup(operation.object);
  const auto index = static_cast<unsigned>(operation.number);
  switch (operation.kind) {
    case Kind::kSetTemplate: {
      const bool none = operation.flag && operation.number % 4 == 0;
      StaticGroup* shape = none ? nullptr : staticGroup(operation.other);
      note("template " + shown(model_.setTemplate(target, shape)));
      return true;
    }
    case Kind::kTemplate:
      note(label(model_.shapeOf(target)));
      return true;
    case Kind::kAddRecord:
      if (model_.recordCount(target) >= 8) return true;
      note("added " + shown(model_.addRecord(target, recordFor(target, operation))));
      return true;
    case Kind::kAddRecordWithSort:
      if (model_.recordCount(target) >= 8) return true;
      note("added " +
           shown(model_.addRecord(target, recordFor(target, operation), operation.flag)));
      return true;
    case Kind::kRecordCount:
      note("records " + shown(model_.recordCount(target)));
      return true;
    case Kind::kLoadRecord:
      note(label(model_.loadRecord(target, index)));
      return true;
    case Kind::kRemoveRecord:
      note("removed " + shown(model_.removeRecord(target, index)));
      return true;
    case Kind::kRemoveAllRecords:
      note("removed " + shown(model_.removeAllRecords(target)));
      return true;
    case Kind::kDetectDuplicate:
      note("duplicate " + shown(model_.detectDuplicate(target, recordFor(target, operation))));
      return true;
    case Kind::kSortList:
      note("sorted " + shown(model_.sortList(target)));
      return true;
    default:
      return false;
  }
}

template <class Model>
bool Executor<Model>::useGroupControl(const Operation& operation) {
  DynamicGroup& target = *dynamicGroup(operation.object);
  const std::string& name = operation.name;
  const bool suppress = operation.secondFlag;
  switch (operation.kind) {
    case Kind::kGroupControlText:
      note("set " + shown(model_.setText(target, name, operation.text, suppress)));
      return true;
    case Kind::kGroupControlInt:
      note("set " + shown(model_.setInt(target, name, operation.number, suppress)));
      return true;
    case Kind::kGroupControlFloat:
      note("set " + shown(model_.setFloat(target, name, operation.real, suppress)));
      return true;
    case Kind::kGroupControlBool:
      note("set " + shown(model_.setBool(target, name, operation.flag, suppress)));
      return true;
    case Kind::kGroupSelectionEmpty:
      note("empty " + shown(model_.isConstraintSetEmpty(target)));
      return true;
    case Kind::kGroupSelect:
      note("selected " + shown(model_.addConstraint(target, operation.number)));
      return true;
    case Kind::kGroupDeselect:
      note("deselected " + shown(model_.removeConstraint(target, operation.number)));
      return true;
    case Kind::kGroupSelected:
      noteNumbers(model_.constraints(target));
      return true;
    default:
      return false;
  }
}

#define DRIVER_FEATURE_INSTANTIATE(Model)                                      \
  template bool Executor<Model>::useStaticGroup(const Operation&);             \
  template Record Executor<Model>::recordFor(DynamicGroup&, const Operation&); \
  template bool Executor<Model>::useRecords(const Operation&);                 \
  template bool Executor<Model>::useGroupControl(const Operation&);

DRIVER_FEATURE_INSTANTIATE(LibraryModel)
DRIVER_FEATURE_INSTANTIATE(ReferenceModel)

#undef DRIVER_FEATURE_INSTANTIATE

}  // namespace driver_feature::operations
