#include "host/rules/state.h"

namespace driver_feature::rules {

State::State(const Tables& tables)
    : tables_(&tables),
      values_(at(tables.featureCount()), 0),
      numbers_(at(tables.featureCount()), 0),
      misses_(tables.missesAtFirst()),
      heldPlaces_(misses_.size(), 0) {
  for (int rule = 0; rule < tables.ruleCount(); ++rule) {
    if (misses_[at(rule)] != 0) continue;
    heldPlaces_[at(rule)] = static_cast<int>(held_.size());
    held_.push_back(rule);
  }
  for (int feature = 0; feature < tables.featureCount(); ++feature) {
    const Domain& domain = tables.domain(feature);
    if (tables.isNumber(feature)) {
      setNumber(feature, domain.defaultNumber);
    } else {
      values_[at(feature)] = tables.valueOf(feature, domain.defaultChoice);
      enter(feature, value(feature));
    }
  }
}

void State::changeMisses(int rule, int change) {
  int& misses = misses_[at(rule)];
  if (misses == 0) {
    const int place = heldPlaces_[at(rule)];
    heldPlaces_[at(held_.back())] = place;
    held_[at(place)] = held_.back();
    held_.pop_back();
  }
  misses += change;
  if (misses == 0) {
    heldPlaces_[at(rule)] = static_cast<int>(held_.size());
    held_.push_back(rule);
  }
}

void State::enter(int feature, int value) {
  const auto toggles = tables_->toggles(feature, value);
  work_ += static_cast<long>(toggles.size());
  for (const Toggle& toggle : toggles) changeMisses(toggle.rule, toggle.change);
}

void State::leave(int feature, int value) {
  const auto toggles = tables_->toggles(feature, value);
  work_ += static_cast<long>(toggles.size());
  for (const Toggle& toggle : toggles) changeMisses(toggle.rule, -toggle.change);
}

void State::set(int feature, int value) {
  int& current = values_[at(feature)];
  if (!tables_->isNumber(feature)) {
    if (current == value) return;
    leave(feature, current);
    enter(feature, value);
  }
  // Numbers cross every threshold on the way.
  for (; tables_->isNumber(feature) && current < value; ++current) enter(feature, current);
  for (; tables_->isNumber(feature) && current > value; --current) leave(feature, current - 1);
  current = value;
}

void State::setNumber(int feature, double number) {
  numbers_[at(feature)] = number;
  set(feature, tables_->cells(feature).cellOf(number));
}

bool State::wouldHold(int feature, int value) {
  const int before = this->value(feature);
  set(feature, value);
  const bool holds = !held_.empty();
  set(feature, before);
  return holds;
}

std::vector<bool> State::wouldHold(int feature) {
  std::vector<bool> holds;
  const int before = value(feature);
  leave(feature, before);
  for (int value = 0; value + 1 < tables_->valueCount(feature); ++value) {
    enter(feature, value);
    holds.push_back(!held_.empty());
    leave(feature, value);
  }
  enter(feature, before);
  return holds;
}

}  // namespace driver_feature::rules
