// A resolution as programs see it: names and texts in place of numbers.
#ifndef HOST_RULES_PLAN_H_
#define HOST_RULES_PLAN_H_

#include <string>
#include <vector>

#include "host/rules/resolver.h"

namespace driver_feature::rules {

// A feature, and a value in the form of a setting.
struct Assignment {
  std::string feature;
  std::string value;

  bool operator==(const Assignment&) const = default;
};

struct Change {
  std::string feature;
  std::string from;
  std::string to;

  bool operator==(const Change&) const = default;
};

// A rule of an explanation.
struct BrokenRule {
  int rule = 0;  // Its place among the description's rules.
  // The values with which it holds, in the order of its conditions, each
  // feature once; empty for a rule that would hold only after other changes.
  std::vector<Assignment> values;

  bool operator==(const BrokenRule&) const = default;
};

struct Plan {
  using Kind = Resolution::Kind;

  Kind kind = Kind::kFits;
  std::vector<Assignment> wishes = {};
  std::vector<Change> changes = {};
  // The rules that hold with the wishes alone; when impossible, rules that
  // forbid it together, none of which can be spared.
  std::vector<BrokenRule> rules = {};
  // When impossible: the fewest changes of hardware that make it possible, and what else
  // changes then. Both are empty if there is none.
  std::vector<Change> hardware = {};
  std::vector<Change> withHardware = {};
  long steps = 0;
};

// A choice that is taken out.
struct TakenOut {
  std::string feature;
  std::string choice;
  std::vector<int> rules;  // That forbid it together.

  bool operator==(const TakenOut&) const = default;
};

}  // namespace driver_feature::rules

#endif  // HOST_RULES_PLAN_H_
