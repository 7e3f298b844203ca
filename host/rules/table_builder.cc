#include "host/rules/table_builder.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace driver_feature::rules {

namespace {

using ConditionKind = host::Condition::Kind;

bool isOnNumber(const host::Condition& condition) {
  return condition.kind == ConditionKind::kAbove || condition.kind == ConditionKind::kBelow;
}

std::size_t at(int index) {
  return static_cast<std::size_t>(index);
}

}  // namespace

void TableBuilder::build(const host::Rules& rules) {
  addFeatures(rules);
  cutNumbers(rules);
  numberValues();
  tables_.rowEnds_.push_back(0);
  tables_.ruleEnds_.push_back(0);
  for (const host::Rule& rule : rules.rules) addRule(rule);
  addToggles();
  tables_.likeness_.resize(tables_.slotCount());
  for (int feature = 0; feature < tables_.featureCount(); ++feature) findLikeness(feature);
}

void TableBuilder::addFeatures(const host::Rules& rules) {
  tables_.features_.resize(tables_.domains_.size());
  for (std::size_t index = 0; index < tables_.domains_.size(); ++index) {
    const Domain& domain = tables_.domains_[index];
    Tables::Feature& feature = tables_.features_[index];
    tables_.names_.emplace(domain.feature, static_cast<int>(index));
    if (domain.kind != Domain::Kind::kChoices) continue;
    int position = 0;
    for (const Domain::Choice& choice : domain.choices) {
      feature.values.emplace(choice.name, position++);
    }
    feature.valueCount = position + 1;
  }
  for (const host::HardwareFeature& hardware : rules.hardware) {
    const auto found = tables_.find(hardware.name);
    if (found) tables_.features_[at(*found)].isHardware = true;
  }
}

void TableBuilder::cutNumbers(const host::Rules& rules) {
  std::vector<std::vector<double>> thresholds(tables_.domains_.size());
  for (const host::Rule& rule : rules.rules) {
    for (const host::Condition& condition : rule.conditions) {
      if (!isOnNumber(condition) || !std::isfinite(condition.number)) continue;
      const auto found = tables_.find(condition.feature);
      if (!found || !tables_.isNumber(*found)) continue;
      thresholds[at(*found)].push_back(thresholdOf(condition, tables_.domain(*found).kind));
    }
  }
  for (int feature = 0; feature < tables_.featureCount(); ++feature) {
    if (!tables_.isNumber(feature)) continue;
    Tables::Feature& entry = tables_.features_[at(feature)];
    entry.cells = NumberCells(tables_.domain(feature), std::move(thresholds[at(feature)]));
    entry.valueCount = entry.cells.count();
  }
}

void TableBuilder::numberValues() {
  std::size_t slot = 0;
  for (Tables::Feature& feature : tables_.features_) {
    feature.slot = slot;
    slot += at(feature.valueCount);
  }
  tables_.isTarget_.resize(slot);
  tables_.preferred_.resize(slot);
  tables_.preferredCount_.resize(tables_.features_.size());
  for (int feature = 0; feature < tables_.featureCount(); ++feature) findTargets(feature);
}

void TableBuilder::findTargets(int feature) {
  const Domain& domain = tables_.domain(feature);
  if (!tables_.isNumber(feature)) {
    std::vector<char> isTarget;
    for (const Domain::Choice& choice : domain.choices) isTarget.push_back(choice.isTarget ? 1 : 0);
    return tables_.setTargets(feature, isTarget);
  }
  for (int cell = 0; cell < tables_.valueCount(feature); ++cell) {
    const bool isWithinLimits = tables_.cells(feature).nearest(cell, domain.lowest).has_value();
    tables_.isTarget_[tables_.slot(feature, cell)] = isWithinLimits ? 1 : 0;
  }
}

void TableBuilder::addRule(const host::Rule& rule) {
  const std::size_t firstRow = tables_.rows_.size();
  const std::size_t firstException = tables_.exceptions_.size();
  bool fits = !rule.conditions.empty();
  for (const host::Condition& condition : rule.conditions) fits = fits && addCondition(condition);
  int misses = 0;
  if (!fits) {
    tables_.rows_.resize(firstRow);
    tables_.exceptions_.resize(firstException);
    misses = 1;  // No toggle ever takes it away.
  }
  for (std::size_t row = firstRow; row < tables_.rows_.size(); ++row) {
    const ConditionRow& added = tables_.rows_[row];
    const bool isTrueAtFirst = added.isRange ? added.first == 0 : added.usually;
    if (!isTrueAtFirst) ++misses;
  }
  tables_.misses_.push_back(misses);
  addRuleFeatures(firstRow);
  tables_.rowEnds_.push_back(tables_.rows_.size());
}

bool TableBuilder::addCondition(const host::Condition& condition) {
  const auto found = tables_.find(condition.feature);
  if (!found || tables_.isNumber(*found) != isOnNumber(condition)) return false;
  if (!isOnNumber(condition)) return addChoices(condition, *found);
  if (!std::isfinite(condition.number)) return false;
  addRange(condition, *found);
  return true;
}

bool TableBuilder::addChoices(const host::Condition& condition, int feature) {
  const auto& values = tables_.features_[at(feature)].values;
  std::vector<int> listed;
  listed.reserve(condition.choices.size());
  for (const std::string& choice : condition.choices) {
    const auto found = values.find(choice);
    if (found == values.end()) return false;
    listed.push_back(found->second);
  }
  std::sort(listed.begin(), listed.end());
  listed.erase(std::unique(listed.begin(), listed.end()), listed.end());
  addExceptions(std::move(listed), condition.kind == ConditionKind::kIs, feature);
  return !condition.choices.empty();
}

// The values that are not listed are the exceptions if they are fewer.
void TableBuilder::addExceptions(std::vector<int> listed, bool isTrueForListed, int feature) {
  const std::size_t first = tables_.exceptions_.size();
  const int count = tables_.valueCount(feature);
  const bool others = 2 * listed.size() > at(count);
  if (!others) {
    tables_.exceptions_.insert(tables_.exceptions_.end(), listed.begin(), listed.end());
  } else {
    auto next = listed.begin();
    for (int value = 0; value < count; ++value) {
      if (next != listed.end() && *next == value) {
        ++next;
      } else {
        tables_.exceptions_.push_back(value);
      }
    }
  }
  tables_.rows_.push_back({feature, isTrueForListed == others, false, static_cast<int>(first),
                           static_cast<int>(tables_.exceptions_.size())});
}

void TableBuilder::addRange(const host::Condition& condition, int feature) {
  const NumberCells& cells = tables_.cells(feature);
  const int cell = cells.cellOf(thresholdOf(condition, tables_.domain(feature).kind));
  const bool isAbove = condition.kind == ConditionKind::kAbove;
  tables_.rows_.push_back(
      {feature, false, true, isAbove ? cell + 1 : 0, isAbove ? cells.count() - 1 : cell - 1});
}

void TableBuilder::addRuleFeatures(std::size_t firstRow) {
  std::vector<int>& features = tables_.ruleFeatures_;
  const auto begin = static_cast<std::ptrdiff_t>(features.size());
  for (std::size_t row = firstRow; row < tables_.rows_.size(); ++row) {
    features.push_back(tables_.rows_[row].feature);
  }
  // In the order of the domains, which is that of preference.
  std::sort(features.begin() + begin, features.end());
  features.erase(std::unique(features.begin() + begin, features.end()), features.end());
  tables_.ruleEnds_.push_back(features.size());
}

template <class Use>
void TableBuilder::forEachToggle(Use use) const {
  for (int rule = 0; rule < tables_.ruleCount(); ++rule) {
    for (const ConditionRow& row : tables_.conditions(rule)) {
      if (!row.isRange) {
        for (int place = row.first; place < row.last; ++place) {
          use(tables_.slot(row.feature, tables_.exceptions_[at(place)]),
              Toggle{rule, row.usually ? 1 : -1});
        }
      } else if (row.first > 0) {
        use(tables_.slot(row.feature, row.first - 1), Toggle{rule, -1});
      } else {
        use(tables_.slot(row.feature, row.last), Toggle{rule, 1});
      }
    }
  }
}

// Counts what each slot gets before anything is stored, so that all toggles
// are in one piece of memory.
void TableBuilder::addToggles() {
  std::vector<std::size_t>& ends = tables_.toggleEnds_;
  ends.assign(tables_.slotCount() + 1, 0);
  forEachToggle([&](std::size_t slot, Toggle) { ++ends[slot + 1]; });
  for (std::size_t slot = 0; slot < tables_.slotCount(); ++slot) ends[slot + 1] += ends[slot];
  tables_.toggles_.resize(ends.back());
  std::vector<std::size_t> next = ends;
  forEachToggle([&](std::size_t slot, Toggle toggle) { tables_.toggles_[next[slot]++] = toggle; });
}

void TableBuilder::findLikeness(int feature) {
  std::map<std::size_t, std::vector<int>> seen;  // By a digest of the toggles.
  for (int value = 0; value < tables_.valueCount(feature); ++value) {
    int& likeness = tables_.likeness_[tables_.slot(feature, value)];
    likeness = value;
    if (tables_.isNumber(feature)) continue;
    const auto toggles = tables_.toggles(feature, value);
    std::size_t digest = toggles.size();
    for (const Toggle& toggle : toggles) {
      digest = digest * 1000003U + at(2 * toggle.rule + (toggle.change > 0 ? 1 : 0));
    }
    std::vector<int>& candidates = seen[digest];
    const auto same = std::find_if(candidates.begin(), candidates.end(), [&](int other) {
      return std::ranges::equal(toggles, tables_.toggles(feature, other));
    });
    if (same != candidates.end()) {
      likeness = *same;
    } else {
      candidates.push_back(value);
    }
  }
}

}  // namespace driver_feature::rules
