#include "host/rules/search.h"

#include <algorithm>
#include <cmath>

namespace driver_feature::rules {

Search::Search(State& state)
    : state_(&state),
      tables_(&state.tables()),
      freedom_(at(tables_->featureCount())),
      isChanged_(freedom_.size(), 0),
      claimed_(freedom_.size(), 0),
      tried_(tables_->slotCount(), 0),
      isReason_(at(tables_->ruleCount()), 0) {}

void Search::startSteps(long limit) {
  work_ = 0;
  stepsBefore_ = state_->work();
  stepLimit_ = limit;
}

Search::Outcome Search::run(const Budget& budget) {
  left_ = budget;
  missing_ = 0;
  lacksHardware_ = false;
  for (const int rule : reasons_) isReason_[at(rule)] = 0;
  reasons_.clear();
  solution_.clear();
  if (descend()) return Outcome::kFound;
  return isOver() ? Outcome::kTooLong : Outcome::kNone;
}

bool Search::descend() {
  if (state_->held().empty()) {
    solution_ = moves_;
    return true;
  }
  const int rule = pickRule();
  if (rule < 0) return false;
  noteReason(rule);
  for (const int feature : tables_->featuresOf(rule)) {
    if (!mayChange(feature)) continue;
    if (tryFeature(rule, feature)) return true;
    if (isOver()) return false;
  }
  return false;
}

// The rule that holds and leaves the fewest features to change, so that dead
// ends are found early; of several the first, whatever was changed before. None,
// when the changes that are left cannot be enough: rules without a common
// feature need a change each.
int Search::pickRule() {
  int picked = -1;
  int fewest = 0;
  int needed = 0;
  ++mark_;
  for (const int rule : state_->held()) {
    const int free = countFree(rule);
    if (picked < 0 || free < fewest || (free == fewest && rule < picked)) {
      picked = rule;
      fewest = free;
    }
    if (free > 0 && claim(rule)) ++needed;
  }
  if (fewest == 0 || needed <= left_.changes) return picked;
  const int lack = needed - left_.changes;
  missing_ = missing_ == 0 ? lack : std::min(missing_, lack);
  return -1;
}

int Search::countFree(int rule) {
  int free = 0;
  const auto features = tables_->featuresOf(rule);
  work_ += static_cast<long>(features.size());
  for (const int feature : features) {
    if (mayChange(feature)) ++free;
  }
  return free;
}

// True if none of the rule's free features was claimed before.
bool Search::claim(int rule) {
  const auto features = tables_->featuresOf(rule);
  for (const int feature : features) {
    if (claimed_[at(feature)] == mark_ && mayChange(feature)) return false;
  }
  for (const int feature : features) claimed_[at(feature)] = mark_;
  return true;
}

bool Search::mayChange(int feature) {
  const Freedom& freedom = freedom_[at(feature)];
  if (freedom.isFixed || isChanged_[at(feature)] != 0) return false;
  if (!tables_->domain(feature).isChangeable) return false;
  if (freedom.rank > 0 && (left_.personal == 0 || freedom.rank > left_.latestRank)) return false;
  if (!tables_->isHardware(feature) || left_.hardware > 0) return true;
  lacksHardware_ = true;
  return false;
}

bool Search::tryFeature(int rule, int feature) {
  const std::size_t firstCandidate = candidates_.size();
  const int before = state_->value(feature);
  addCandidates(rule, feature);
  isChanged_[at(feature)] = 1;
  spend(feature, 1);
  const bool found = tryValues(feature, firstCandidate);
  spend(feature, -1);
  isChanged_[at(feature)] = 0;
  state_->set(feature, before);
  candidates_.resize(firstCandidate);
  return found;
}

bool Search::tryValues(int feature, std::size_t firstCandidate) {
  const std::size_t end = candidates_.size();
  for (std::size_t place = firstCandidate; place < end; ++place) {
    const int value = candidates_[place];
    state_->set(feature, value);
    moves_.push_back({feature, value});
    const bool found = descend();
    moves_.pop_back();
    if (found) return true;
    if (isOver()) return false;
  }
  return false;
}

// Of values that all rules treat alike only the first one.
void Search::addCandidates(int rule, int feature) {
  if (tables_->isNumber(feature)) return addNumbers(rule, feature);
  ++mark_;
  for (const int value : tables_->preferred(feature)) {
    long& tried = tried_[tables_->slot(feature, tables_->likeness(feature, value))];
    if (tried == mark_) continue;
    tried = mark_;
    if (falsifies(rule, feature, value)) candidates_.push_back(value);
  }
}

// The nearest numbers first.
void Search::addNumbers(int rule, int feature) {
  const double number = state_->number(feature);
  const int current = tables_->cells(feature).cellOf(number);
  const int count = tables_->valueCount(feature);
  const auto distance = [&](int cell) {
    return std::abs(*tables_->cells(feature).nearest(cell, number) - number);
  };
  int below = current;
  int above = current + 1;
  while (below >= 0 || above < count) {
    while (below >= 0 && !tables_->isTarget(feature, below)) --below;
    while (above < count && !tables_->isTarget(feature, above)) ++above;
    if (below < 0 && above >= count) return;
    const bool goesDown = above >= count || (below >= 0 && distance(below) <= distance(above));
    const int cell = goesDown ? below-- : above++;
    if (falsifies(rule, feature, cell)) candidates_.push_back(cell);
  }
}

bool Search::falsifies(int rule, int feature, int value) {
  const auto rows = tables_->conditions(rule);
  work_ += static_cast<long>(rows.size());
  return std::ranges::any_of(rows, [&](const ConditionRow& row) {
    return row.feature == feature && !tables_->isTrue(row, value);
  });
}

void Search::spend(int feature, int amount) {
  left_.changes -= amount;
  if (tables_->isHardware(feature)) left_.hardware -= amount;
  if (freedom_[at(feature)].rank > 0) left_.personal -= amount;
}

void Search::noteReason(int rule) {
  if (isReason_[at(rule)] != 0) return;
  isReason_[at(rule)] = 1;
  reasons_.push_back(rule);
}

}  // namespace driver_feature::rules
