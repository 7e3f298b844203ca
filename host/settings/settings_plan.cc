#include "host/settings/settings_plan.h"

#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <string>

#include "host/base/nearest_name.h"
#include "host/base/text.h"
#include "host/session/group_view.h"
#include "host/settings/records.h"
#include "host/settings/settings_file.h"

namespace driver_feature::host {

namespace {

// The present value of the setting's feature; nothing without such a feature.
std::optional<std::string> currentText(const Model& model, const std::string& name) {
  const auto found = model.features.find(name);
  if (found == model.features.end()) return std::nullopt;
  return settingText(found->second);
}

class FeatureLines {
 public:
  FeatureLines(const Model& model, const std::vector<SettingsLine>& lines, Problems& refusals)
      : model_(model), lines_(lines), refusals_(refusals) {}

  void make() {
    for (const SettingsLine& line : lines_) {
      if (Result<> done = set(line); !done) {
        refusals_.push_back(problemAt(line.line, done.error().text));
      } else if (const auto text = currentText(model_, line.setting.name)) {
        goals_[line.setting.name] = {&line, *text};
      }
    }
  }

  // Makes again what routines have changed since.
  void settle() {
    constexpr int kPasses = 3;
    for (int pass = 0; pass < kPasses; ++pass) {
      for (const auto& [name, goal] : goals_) {
        if (!isMissed(goal)) continue;
        if (Result<> done = set(*goal.line); !done) {
          refusals_.push_back(problemAt(goal.line->line, done.error().text));
          return;
        }
      }
    }
    for (const auto& [name, goal] : goals_) {
      if (!isMissed(goal)) continue;
      refusals_.push_back(problemAt(
          goal.line->line, inQuotes(name) + " does not keep the value, because a routine of "
                                            "the description changes it when other lines are "
                                            "made; leave it out"));
    }
  }

 private:
  struct Goal {
    const SettingsLine* line = nullptr;
    std::string text;  // The feature's value right after the line.
  };

  Result<> set(const SettingsLine& line) const {
    if (currentText(model_, line.setting.name) == line.setting.value) return {};
    return applySetting(model_, line.setting);
  }

  bool isMissed(const Goal& goal) const {
    return currentText(model_, goal.line->setting.name) != goal.text;
  }

  const Model& model_;
  const std::vector<SettingsLine>& lines_;
  Problems& refusals_;
  std::map<std::string, Goal> goals_;
};

class RecordLines {
 public:
  RecordLines(CoreFeatureSet& set, const Model& model, const std::vector<SettingsRecord>& records,
              Problems& refusals)
      : set_(set), model_(model), records_(records), refusals_(refusals) {}

  void make() {
    for (const SettingsRecord& record : records_) {
      const auto group = findDynamicGroup(set_, model_.index, record.group);
      if (!group) {
        refuse(record.line, refuseDynamicGroup(model_, record.group));
        continue;
      }
      if (!cleared_.insert(record.group).second) {
        if (isContradiction(record)) continue;
      } else if (group->count() > 0) {
        group->removeAll();
      }
      makeRecord(*group, record);
    }
  }

 private:
  void refuse(int line, const std::string& reason) { refusals_.push_back(problemAt(line, reason)); }

  bool isContradiction(const SettingsRecord& record) {
    const bool stated =
        std::any_of(records_.begin(), records_.end(), [&record](const SettingsRecord& other) {
          return other.isNone && other.group == record.group;
        });
    if (!stated) return false;
    refuse(record.line, "a line says that " + inQuotes(record.group) +
                            " has no records; leave that line or the records out");
    return true;
  }

  void makeRecord(const DynamicGroupView& group, const SettingsRecord& record) {
    const std::size_t before = refusals_.size();
    const std::vector<std::string> names = group.memberNames();
    const std::map<std::string, std::string> values = readMembers(record, names);
    Record texts;
    for (const std::string& name : names) {
      texts.emplace_back();
      if (!takesValue(name)) continue;
      const auto value = values.find(name);
      if (value != values.end()) {
        texts.back() = value->second;
      } else if (!record.isNone && refusals_.size() == before) {
        refuse(record.line, "member " + inQuotes(name) + " is missing; give it a value");
      }
    }
    if (record.isNone || refusals_.size() != before || group.addUnsorted(texts)) return;
    refuse(record.line,
           "the feature library refuses the record; run again with --verbose to see "
           "why");
  }

  // A nested group is one of the members, and has no value.
  bool takesValue(const std::string& name) const {
    const auto found = model_.features.find(name);
    return found != model_.features.end() && found->second.hasValue();
  }

  std::map<std::string, std::string> readMembers(const SettingsRecord& record,
                                                 const std::vector<std::string>& names) {
    std::map<std::string, std::string> values;
    for (const auto& [line, setting] : record.members) {
      if (Result<> done = checkMember(record, setting, names); !done) {
        refuse(line, done.error().text);
      }
      values[setting.name] = setting.value;
    }
    return values;
  }

  Result<> checkMember(const SettingsRecord& record, const Setting& setting,
                       const std::vector<std::string>& names) const {
    if (record.isNone) {
      return refused(inQuotes(record.group) +
                     " has no records here; write settings before the first [GROUP]");
    }
    if (std::find(names.begin(), names.end(), setting.name) == names.end()) {
      const auto nearest = nearestName(setting.name, names);
      return refused("there is no member " + inQuotes(setting.name) + " in " +
                     inQuotes(record.group) + "; " +
                     (nearest ? "did you mean " + inQuotes(*nearest) + "?"
                              : "the members are " + listed(names) +
                                    ", and settings come before the first [GROUP]"));
    }
    // The template has the value, so the library has accepted it before.
    if (currentText(model_, setting.name) == setting.value) return {};
    return checkSetting(model_, setting);
  }

  CoreFeatureSet& set_;
  const Model& model_;
  const std::vector<SettingsRecord>& records_;
  Problems& refusals_;
  std::set<std::string> cleared_;
};

}  // namespace

Problems applyLines(CoreFeatureSet& set, const Model& model, const SettingsText& text) {
  Problems refusals;
  FeatureLines features(model, text.features, refusals);
  features.make();
  RecordLines(set, model, text.records, refusals).make();
  if (refusals.empty()) features.settle();
  return refusals;
}

}  // namespace driver_feature::host
