#include "host/page/page_records.h"

#include <utility>

#include "host/base/text.h"
#include "host/session/group_view.h"
#include "host/settings/records.h"
#include "host/settings/setting.h"

namespace driver_feature::page {

namespace {

using host::DynamicGroupView;
using host::Record;

// One group that can be worked on.
class Records {
 public:
  Records(const host::Model& model, const Catalog& catalog, const CatalogRecords& entry,
          DynamicGroupView group)
      : model_(model), catalog_(catalog), entry_(entry), group_(group) {}

  host::Result<> add(const RecordsAction& action, bool isSorted) {
    auto record = recordOf(action, nullptr);
    if (!record) return failureOf(record);
    const bool isAdded = isSorted ? group_.add(*record) : group_.addUnsorted(*record);
    return isAdded ? host::Result<>() : refuseRecord();
  }

  host::Result<> change(const RecordsAction& action) {
    if (auto found = checkIndex(action); !found) return found;
    std::vector<Record> records = group_.records();
    auto record = recordOf(action, &records[*action.index]);
    if (!record) return failureOf(record);
    const std::vector<Record> before = records;
    records[*action.index] = std::move(*record);
    if (replace(records)) return {};
    replace(before);
    return refuseRecord();
  }

  host::Result<> remove(const RecordsAction& action) {
    if (auto found = checkIndex(action); !found) return found;
    if (group_.remove(static_cast<unsigned>(*action.index))) return {};
    return host::refused("the feature library refuses to remove the record");
  }

  host::Result<> sort() {
    if (group_.sort()) return {};
    return host::refused("the records cannot be sorted; give group " + host::inQuotes(entry_.name) +
                         " the attribute \"SortFunctionName\"");
  }

  host::Result<> clear() {
    group_.removeAll();
    return {};
  }

 private:
  static host::Failure refuseRecord() {
    return host::refused("the feature library refuses the record");
  }

  host::Result<> checkIndex(const RecordsAction& action) const {
    const auto count = static_cast<std::size_t>(group_.count());
    if (!action.index) return host::refused("no record is named; give \"index\"");
    if (*action.index < count) return {};
    return host::refused(
        "there is no record " + std::to_string(*action.index) + " in " +
        host::inQuotes(entry_.name) + "; " +
        (count == 0 ? "it is empty" : "the last one is " + std::to_string(count - 1)));
  }

  // A value that the record has already is not checked again.
  host::Result<Record> recordOf(const RecordsAction& action, const Record* old) const {
    if (action.values.size() != entry_.columns.size()) {
      return host::refused(host::inQuotes(entry_.name) + " has " +
                           host::counted(static_cast<long>(entry_.columns.size()), "column") +
                           "; give that many values");
    }
    Record record = old != nullptr ? *old : Record(entry_.members.size());
    for (std::size_t i = 0; i < action.values.size(); ++i) {
      const std::size_t member = entry_.columns[i];
      const std::string& name = entry_.members[member];
      if (!action.values[i]) {
        if (old != nullptr) continue;
        return host::refused("member " + host::inQuotes(name) + " is missing; give it a value");
      }
      std::string value = Catalog::valueShownAs(*catalog_.find(name), *action.values[i]);
      if (old != nullptr && value == (*old)[member]) continue;
      if (auto checked = checkSetting(model_, {name, value}); !checked) {
        return failureOf(checked, host::inQuotes(name));
      }
      record[member] = std::move(value);
    }
    return record;
  }

  bool replace(const std::vector<Record>& records) const {
    group_.removeAll();
    bool areAdded = true;
    for (const Record& record : records) areAdded = group_.addUnsorted(record) && areAdded;
    return areAdded;
  }

  const host::Model& model_;
  const Catalog& catalog_;
  const CatalogRecords& entry_;
  DynamicGroupView group_;
};

host::Result<Records> findRecords(const host::Session& session, const Catalog& catalog,
                                  const std::string& name) {
  const host::Model& model = session.model();
  const CatalogRecords* entry = catalog.findRecords(name);
  if (entry == nullptr) return host::refused(refuseDynamicGroup(model, name));
  const auto group = findDynamicGroup(session.features(), model.index, entry->name);
  if (!group) return host::refused(refuseDynamicGroup(model, name));
  return Records(model, catalog, *entry, *group);
}

}  // namespace

host::Result<> carryOut(const host::Session& session, const Catalog& catalog,
                        const RecordsAction& action) {
  auto records = findRecords(session, catalog, action.group);
  if (!records) return failureOf(records);
  if (action.action == "add") return records->add(action, true);
  if (action.action == "change") return records->change(action);
  if (action.action == "remove") return records->remove(action);
  if (action.action == "sort") return records->sort();
  if (action.action == "clear") return records->clear();
  return host::refused("there is no action " + host::inQuotes(action.action) +
                       "; give one of add, change, remove, sort, clear");
}

host::Result<> addPageRecord(const host::Session& session, const Catalog& catalog,
                             const PageRecord& record) {
  auto records = findRecords(session, catalog, record.group);
  if (!records) return failureOf(records);
  RecordsAction action{record.group, "add", {}, {}};
  for (const host::Setting& member : record.members) action.values.emplace_back(member.value);
  return records->add(action, false);
}

std::string defaultTextOf(const host::FeatureView& feature) {
  switch (feature.kind()) {
    case host::FeatureKind::kMultiSelect:
      return feature.defaultChoice().value_or("");
    case host::FeatureKind::kIntEntry:
      return std::to_string(feature.defaultInt());
    case host::FeatureKind::kFloatEntry:
      return host::numberText(feature.defaultFloat());
    case host::FeatureKind::kTextEntry:
      return feature.defaultText();
    default:
      return "";
  }
}

}  // namespace driver_feature::page
