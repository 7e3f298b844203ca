// Turns many constraints into few rules that forbid the same.
#ifndef HOST_PPD_IMPORT_RULE_GATHERING_H_
#define HOST_PPD_IMPORT_RULE_GATHERING_H_

#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

#include "host/description/rules.h"
#include "host/ppd/import/rule_features.h"

namespace driver_feature::ppd {

// Terms of different features, in the order of these, that must never all hold.
using Conflict = std::vector<Term>;

class RuleGathering {
 public:
  explicit RuleGathering(const RuleFeatures& features) : features_(features) {}

  void add(const Conflict& conflict);

  // The rules, in the order in which their features were added first. The
  // identifier of each consists of the names of its features, and a number if
  // there are several for the same.
  std::vector<host::Rule> rules();

 private:
  // Which choices of one feature go with which of another.
  using Rows = std::map<std::size_t, std::vector<std::size_t>>;

  struct Group {
    std::vector<std::size_t> features;
    std::vector<Conflict> conflicts;
  };

  void addRules(const Group& group);
  void addPairs(const Group& group);
  void addRule(std::vector<host::Condition> conditions);
  host::Condition conditionOf(std::size_t feature, const std::vector<std::size_t>& choices) const;

  const RuleFeatures& features_;
  std::vector<Group> groups_;
  std::map<std::vector<std::size_t>, std::size_t> places_;  // Of each group, by its features.
  std::set<std::string> ids_;
  std::unordered_map<std::string, long> numbers_;  // Of the last rule with the same features.
  std::vector<host::Rule> rules_;
};

}  // namespace driver_feature::ppd

#endif  // HOST_PPD_IMPORT_RULE_GATHERING_H_
