#include "host/page/page_changes.h"

#include <algorithm>
#include <utility>

#include "host/base/child_process.h"
#include "host/page/page_records.h"
#include "host/session/group_view.h"
#include "host/session/routine_calls.h"
#include "host/settings/preset_settings.h"
#include "host/settings/settings_file.h"

namespace driver_feature::page {

namespace {

// What has ended a copy of the process, when a routine has.
std::string describeEnd(int status) {
  const std::string thrown = host::describeThrow(host::routineRecord());
  return thrown.empty() ? host::describeRoutineEnd(host::routineRecord(), status) : thrown;
}

}  // namespace

Outcome Outcome::refusal(const host::Problem& problem, const std::string& feature) {
  Outcome outcome;
  outcome.isMade = false;
  outcome.feature = feature;
  outcome.problem = describe(problem);
  for (const host::Problem& more : problem.more) outcome.problem += "\n" + describe(more);
  return outcome;
}

PageChanges::PageChanges(host::Session& session, const Catalog& catalog, host::RuleKeeper& keeper,
                         bool mayCrash, std::function<void()> use, std::vector<std::string> lasting)
    : session_(session),
      catalog_(catalog),
      keeper_(keeper),
      mayCrash_(mayCrash),
      use_(std::move(use)),
      lasting_(std::move(lasting)) {}

Outcome PageChanges::set(const std::vector<host::Setting>& settings, host::RuleConduct conduct) {
  return make([&] { return judge(conduct, setAll(settings, false)); });
}

Outcome PageChanges::open(const PresentSettings& present, host::RuleConduct conduct,
                          bool isLenient) {
  return make([&] {
    restoreDefaults();
    Outcome outcome = setAll(present.settings, isLenient);
    if (!outcome.isMade) return outcome;
    Outcome added = addRecords(present.records, isLenient);
    if (!added.isMade) return added;
    outcome.lost.insert(outcome.lost.end(), added.lost.begin(), added.lost.end());
    if (!isLenient) return judge(conduct, std::move(outcome));
    mendOrLeaveOut(present.settings, outcome);
    return outcome;
  });
}

Outcome PageChanges::openText(const std::string& text) {
  return make([&] {
    const host::Result<> loaded = loadSettingsText(session_.features(), session_.model(), text);
    if (!loaded) return Outcome::refusal(loaded.error());
    keeper_.noteAllChanged();
    return judge(host::RuleConduct::kRefuse, {});
  });
}

Outcome PageChanges::preset(const std::string& name, const std::vector<host::Setting>& settings,
                            host::RuleConduct conduct) {
  return make([&] {
    const auto& presets = session_.additions(host::kPresetsPart).presets;
    const auto preset = host::findPreset(presets, name);
    if (!preset) return Outcome::refusal(preset.error());
    const host::Result<> applied = applyPreset(session_.features(), session_.model(), **preset);
    if (!applied) return Outcome::refusal(applied.error());
    for (const host::Setting& setting : settings) keeper_.noteSet(setting.name);
    return judge(conduct, {});
  });
}

Outcome PageChanges::reset() {
  return make([&] {
    restoreDefaults();
    return Outcome();
  });
}

// A routine may have changed other features, or may crash: what comes of a change
// is seen in a copy of the process first. Without routines a change can be taken
// back.
Outcome PageChanges::make(const Work& work) {
  const bool isTried = mayCrash_ || catalog_.hasChangeRoutines() || !catalog_.records().empty();
  if (isTried) {
    Outcome outcome = tried(work);
    if (!outcome.isMade) return outcome;
  }
  const std::vector<std::string> set = keeper_.set();
  const std::vector<std::string> before = values();
  host::clearRoutineRecord();
  Outcome outcome = work();
  if (!outcome.isMade) putBack(before, set);
  return outcome;
}

Outcome PageChanges::tried(const Work& work) {
  host::clearRoutineRecord();
  const auto texts = host::runInChild(
      host::ChildStreams::kDropped,
      [&]() -> std::vector<std::string> {
        const Outcome outcome = work();
        if (!outcome.isMade) return {outcome.problem, outcome.feature};
        use_();
        const host::Result<> success = host::successOfRoutines();
        if (!success) return {describe(success.error()), ""};
        return {};
      },
      &describeEnd);
  host::clearRoutineRecord();
  if (!texts) return Outcome::refusal(texts.error());
  Outcome outcome;
  if (texts->size() < 2) return outcome;
  outcome.isMade = false;
  outcome.problem = texts->front();
  outcome.feature = texts->back();
  return outcome;
}

Outcome PageChanges::setAll(const std::vector<host::Setting>& settings, bool isLenient) {
  Outcome outcome;
  for (const host::Setting& setting : settings) {
    const host::Result<> applied = applySetting(session_.model(), setting);
    if (applied) {
      keeper_.noteSet(setting.name);
    } else if (isLenient) {
      outcome.lost.push_back(setting.name);
    } else {
      return Outcome::refusal(applied.error(), setting.name);
    }
  }
  return outcome;
}

Outcome PageChanges::addRecords(const std::vector<PageRecord>& records, bool isLenient) {
  Outcome outcome;
  for (const PageRecord& record : records) {
    const host::Result<> added = addPageRecord(session_, catalog_, record);
    if (added) continue;
    if (!isLenient) return Outcome::refusal(added.error(), record.group);
    if (std::ranges::find(outcome.lost, record.group) == outcome.lost.end()) {
      outcome.lost.push_back(record.group);
    }
  }
  return outcome;
}

// What the rules say of the values that there are now.
Outcome PageChanges::judge(host::RuleConduct conduct, Outcome outcome) {
  if (!outcome.isMade) return outcome;
  const host::Result<> success = host::successOfRoutines();
  if (!success) return Outcome::refusal(success.error());
  noteChangedByRoutines();
  auto kept = keeper_.keep(conduct);
  if (!kept) return Outcome::refusal(kept.error());
  outcome.also = std::move(*kept);
  return outcome;
}

// Where the rules cannot be kept by changing others, what was set last goes back to
// its default value.
void PageChanges::mendOrLeaveOut(const std::vector<host::Setting>& settings, Outcome& outcome) {
  noteChangedByRoutines();
  for (std::size_t left = settings.size();; --left) {
    auto kept = keeper_.keep(host::RuleConduct::kMend);
    if (kept) outcome.also.insert(outcome.also.end(), kept->begin(), kept->end());
    if (kept || left == 0) return;
    const CatalogFeature* feature = catalog_.find(settings[left - 1].name);
    if (feature == nullptr || feature->view->isAtDefault()) continue;
    feature->view->setValue(defaultTextOf(*feature->view));
    outcome.lost.push_back(feature->name);
    std::vector<std::string> set = keeper_.set();
    std::erase(set, feature->name);
    keeper_.replaceSet(set);
  }
}

void PageChanges::restoreDefaults() {
  std::vector<host::Setting> lasting;
  for (const std::string& name : lasting_) {
    const CatalogFeature* feature = catalog_.find(name);
    if (feature == nullptr || feature->view->isAtDefault()) continue;
    if (auto value = settingText(*feature->view)) lasting.push_back({name, std::move(*value)});
  }
  session_.features().restoreDefaultFeatureValues();
  for (const auto& [name, value] : lasting) catalog_.find(name)->view->setValue(value);
  for (const CatalogRecords& records : catalog_.records()) {
    const auto group = findDynamicGroup(session_.features(), session_.model().index, records.name);
    if (group && group->count() > 0) group->removeAll();
  }
  keeper_.replaceSet({});
}

// `emit` takes what the command line gives as set by a person, and all that has
// changed is given there.
void PageChanges::noteChangedByRoutines() {
  if (!catalog_.hasChangeRoutines() || !keeper_.hasRules()) return;
  const std::vector<std::string> set = keeper_.set();
  keeper_.noteAllChanged();
  for (const std::string& feature : set) keeper_.noteSet(feature);
}

void PageChanges::putBack(const std::vector<std::string>& values,
                          const std::vector<std::string>& set) {
  const std::vector<std::string> now = this->values();
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (now[i] != values[i]) catalog_.features()[i].view->setValue(values[i]);
  }
  keeper_.replaceSet(set);
}

std::vector<std::string> PageChanges::values() const {
  std::vector<std::string> values;
  values.reserve(catalog_.features().size());
  for (const CatalogFeature& feature : catalog_.features()) {
    values.push_back(settingText(*feature.view).value_or(""));
  }
  return values;
}

}  // namespace driver_feature::page
