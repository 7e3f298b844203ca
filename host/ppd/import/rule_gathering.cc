#include "host/ppd/import/rule_gathering.h"

#include <algorithm>
#include <utility>

namespace driver_feature::ppd {

namespace {

using Choices = std::vector<std::size_t>;

// Choices of one feature, each of which goes with each of the other's.
struct Block {
  Choices first;
  Choices second;
};

// The choices of the first feature with equal rows become one block.
std::vector<Block> blocksOf(const std::map<std::size_t, Choices>& rows) {
  std::vector<Block> blocks;
  std::map<Choices, std::size_t> places;
  for (const auto& [choice, row] : rows) {
    const auto [place, isNew] = places.try_emplace(row, blocks.size());
    if (isNew) blocks.push_back({{}, row});
    blocks[place->second].first.push_back(choice);
  }
  return blocks;
}

}  // namespace

void RuleGathering::add(const Conflict& conflict) {
  std::vector<std::size_t> about;
  about.reserve(conflict.size());
  for (const Term& term : conflict) about.push_back(term.feature);
  const auto [place, isNew] = places_.try_emplace(about, groups_.size());
  if (isNew) groups_.push_back({about, {}});
  groups_[place->second].conflicts.push_back(conflict);
}

host::Condition RuleGathering::conditionOf(std::size_t feature, const Choices& choices) const {
  if (choices.front() == Term::kAny) return features_.anyOf(feature);
  return features_.oneOf(feature, choices);
}

void RuleGathering::addRule(std::vector<host::Condition> conditions) {
  std::string base;
  for (const host::Condition& condition : conditions) {
    base += (base.empty() ? "" : "-") + condition.feature;
  }
  std::string id = base;
  while (!ids_.insert(id).second) {
    long& number = numbers_.try_emplace(base, 1).first->second;
    id = base + "-" + std::to_string(++number);
  }
  rules_.push_back({std::move(id), "", std::move(conditions)});
}

// "Any choice" is kept apart from the choices by name: its rule stays as short as
// the constraint.
void RuleGathering::addPairs(const Group& group) {
  std::map<std::pair<bool, bool>, std::pair<Rows, Rows>> kinds;
  for (const Conflict& conflict : group.conflicts) {
    const std::size_t one = conflict[0].choice;
    const std::size_t other = conflict[1].choice;
    auto& [rows, columns] = kinds[{one == Term::kAny, other == Term::kAny}];
    rows[one].push_back(other);
    columns[other].push_back(one);
  }
  for (auto& [kind, table] : kinds) {
    std::vector<Block> blocks = blocksOf(table.first);
    std::vector<Block> turned = blocksOf(table.second);
    const bool isTurned = turned.size() < blocks.size();
    for (Block& block : isTurned ? turned : blocks) {
      if (isTurned) std::swap(block.first, block.second);
      addRule({conditionOf(group.features[0], block.first),
               conditionOf(group.features[1], block.second)});
    }
  }
}

void RuleGathering::addRules(const Group& group) {
  if (group.features.size() == 2) return addPairs(group);
  if (group.features.size() > 2) {
    for (const Conflict& conflict : group.conflicts) {
      std::vector<host::Condition> conditions;
      for (const Term& term : conflict) {
        conditions.push_back(conditionOf(term.feature, {term.choice}));
      }
      addRule(std::move(conditions));
    }
    return;
  }
  Choices choices;
  for (const Conflict& conflict : group.conflicts) {
    if (conflict[0].choice == Term::kAny) {
      addRule({features_.anyOf(group.features[0])});
    } else {
      choices.push_back(conflict[0].choice);
    }
  }
  if (!choices.empty()) addRule({features_.oneOf(group.features[0], choices)});
}

std::vector<host::Rule> RuleGathering::rules() {
  for (Group& group : groups_) {
    std::sort(group.conflicts.begin(), group.conflicts.end());
    group.conflicts.erase(std::unique(group.conflicts.begin(), group.conflicts.end()),
                          group.conflicts.end());
    addRules(group);
  }
  return std::move(rules_);
}

}  // namespace driver_feature::ppd
