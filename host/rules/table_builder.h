// Makes the tables of rules, in time linear in the rules as written.
#ifndef HOST_RULES_TABLE_BUILDER_H_
#define HOST_RULES_TABLE_BUILDER_H_

#include <vector>

#include "host/rules/tables.h"

namespace driver_feature::rules {

class TableBuilder {
 public:
  // Fills tables that have their domains only.
  explicit TableBuilder(Tables& tables) : tables_(tables) {}
  void build(const host::Rules& rules);

 private:
  void addFeatures(const host::Rules& rules);
  void cutNumbers(const host::Rules& rules);
  void numberValues();
  void findTargets(int feature);
  void addRule(const host::Rule& rule);
  bool addCondition(const host::Condition& condition);
  bool addChoices(const host::Condition& condition, int feature);
  void addRange(const host::Condition& condition, int feature);
  void addExceptions(std::vector<int> listed, bool isTrueForListed, int feature);
  void addRuleFeatures(std::size_t firstRow);
  void addToggles();
  void findLikeness(int feature);
  template <class Use>
  void forEachToggle(Use use) const;

  Tables& tables_;
};

}  // namespace driver_feature::rules

#endif  // HOST_RULES_TABLE_BUILDER_H_
