// Rules in a form that is quick to judge: features and values are numbers, and
// each value knows the conditions that it makes true or false.
//
//   Tables tables(rules, domainsOf(model, rules));
//   State state(tables);
//   state.set(duplex, tables.valueOf(duplex, "TwoSided"));
//
// A condition has a usual truth and a few values that are exceptions from it;
// the tables list the exceptions only, so that their size is that of the rules
// as written, whatever the number of choices.
#ifndef HOST_RULES_TABLES_H_
#define HOST_RULES_TABLES_H_

#include <optional>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

#include "host/description/rules.h"
#include "host/rules/domain.h"
#include "host/rules/number_cells.h"

namespace driver_feature::rules {

// A condition of a rule on a feature. `values` are the exceptions, in ascending
// order; of numbers they are the first and the last cell for which it is true.
struct ConditionRow {
  int feature = 0;
  bool usually = false;
  bool isRange = false;
  int first = 0;  // Place of the exceptions, or the first cell.
  int last = 0;   // After the last exception, or the last cell.
};

// By how much a rule's number of false conditions changes.
struct Toggle {
  int rule = 0;
  int change = 0;

  bool operator==(const Toggle&) const = default;
};

class Tables {
 public:
  // A rule that has no condition, or one that does not fit the domains (unknown
  // names, a kind that the feature does not have, a threshold that is not a
  // number), never holds. The first of several domains of one feature counts.
  Tables(const host::Rules& rules, Domains domains);

  int featureCount() const { return static_cast<int>(domains_.size()); }
  int ruleCount() const { return static_cast<int>(ruleEnds_.size()) - 1; }

  // The feature's number; nothing if no rule can speak of it.
  std::optional<int> find(const std::string& feature) const;
  const Domain& domain(int feature) const { return domains_[at(feature)]; }
  bool isHardware(int feature) const { return features_[at(feature)].isHardware; }
  bool isNumber(int feature) const { return domain(feature).kind != Domain::Kind::kChoices; }

  // The values of a feature are numbered from 0. Of a feature with choices, the
  // last one means that it has none of them.
  int valueCount(int feature) const { return features_[at(feature)].valueCount; }
  int valueOf(int feature, const std::string& choice) const;
  const NumberCells& cells(int feature) const { return features_[at(feature)].cells; }
  bool isTarget(int feature, int value) const { return isTarget_[slot(feature, value)]; }

  // Values of one feature that every rule treats alike have the same number.
  int likeness(int feature, int value) const { return likeness_[slot(feature, value)]; }
  std::size_t slot(int feature, int value) const { return features_[at(feature)].slot + at(value); }
  std::size_t slotCount() const { return isTarget_.size(); }

  // The feature's default choice, if it is a target, then its other targets.
  std::span<const int> preferred(int feature) const;

  // Which choices are targets, and whether the feature can be changed, from now on.
  void setTargets(int feature, const std::vector<char>& isTarget);
  void setChangeable(int feature, bool isChangeable) {
    domains_[at(feature)].isChangeable = isChangeable;
  }

  // What changes when a feature takes this choice; the opposite changes when it
  // leaves it. Of a number: what changes on the way to the next cell.
  std::span<const Toggle> toggles(int feature, int value) const {
    const std::size_t place = slot(feature, value);
    return {toggles_.data() + toggleEnds_[place], toggles_.data() + toggleEnds_[place + 1]};
  }

  // The rule's conditions, and the features that they are on, each once.
  std::span<const ConditionRow> conditions(int rule) const {
    return {rows_.data() + rowEnds_[at(rule)], rows_.data() + rowEnds_[at(rule) + 1]};
  }
  std::span<const int> featuresOf(int rule) const {
    return {ruleFeatures_.data() + ruleEnds_[at(rule)],
            ruleFeatures_.data() + ruleEnds_[at(rule) + 1]};
  }
  bool isTrue(const ConditionRow& row, int value) const;

  // The number of false conditions of each rule before any choice is taken,
  // with all numbers in their first cells.
  const std::vector<int>& missesAtFirst() const { return misses_; }

 private:
  friend class TableBuilder;

  struct Feature {
    bool isHardware = false;
    int valueCount = 0;
    std::size_t slot = 0;  // Of its first value.
    NumberCells cells = {};
    std::unordered_map<std::string, int> values = {};
  };

  static std::size_t at(int index) { return static_cast<std::size_t>(index); }

  Domains domains_;
  std::unordered_map<std::string, int> names_;
  std::vector<Feature> features_;
  std::vector<char> isTarget_;  // By slot, as are the next three.
  std::vector<int> likeness_;
  std::vector<int> preferred_;
  std::vector<int> preferredCount_;  // By feature.
  std::vector<std::size_t> toggleEnds_;
  std::vector<Toggle> toggles_;
  std::vector<std::size_t> rowEnds_;  // By rule, as are the next two.
  std::vector<std::size_t> ruleEnds_;
  std::vector<int> misses_;
  std::vector<ConditionRow> rows_;
  std::vector<int> ruleFeatures_;
  std::vector<int> exceptions_;
};

}  // namespace driver_feature::rules

#endif  // HOST_RULES_TABLES_H_
