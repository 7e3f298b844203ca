// Current values, and for each rule how many of its conditions are false: a
// change costs the rules that mention the feature, not all of them.
#ifndef HOST_RULES_STATE_H_
#define HOST_RULES_STATE_H_

#include <vector>

#include "host/rules/tables.h"

namespace driver_feature::rules {

class State {
 public:
  // Every feature has its default value. The tables must outlive the state.
  explicit State(const Tables& tables);

  const Tables& tables() const { return *tables_; }
  int value(int feature) const { return values_[at(feature)]; }

  // The number itself; 0 for a feature with choices.
  double number(int feature) const { return numbers_[at(feature)]; }

  // Takes a value of the tables. The number itself stays as it was told.
  void set(int feature, int value);
  void setNumber(int feature, double number);

  // The rules all of whose conditions are true, in no order.
  const std::vector<int>& held() const { return held_; }

  // Whether any rule would hold with this value.
  bool wouldHold(int feature, int value);

  // The same for each choice of a feature that has choices, at less cost.
  std::vector<bool> wouldHold(int feature);

  // From now on the rule never holds, until it is heeded again. Calls nest.
  void ignore(int rule) { changeMisses(rule, 1); }
  void heed(int rule) { changeMisses(rule, -1); }

  // How many conditions all changes have touched until now.
  long work() const { return work_; }

 private:
  static std::size_t at(int index) { return static_cast<std::size_t>(index); }
  void changeMisses(int rule, int change);
  void enter(int feature, int value);
  void leave(int feature, int value);

  const Tables* tables_;
  std::vector<int> values_;
  std::vector<double> numbers_;
  std::vector<int> misses_;      // By rule: its false conditions.
  std::vector<int> heldPlaces_;  // By rule: its place in `held_`.
  std::vector<int> held_;
  long work_ = 0;
};

}  // namespace driver_feature::rules

#endif  // HOST_RULES_STATE_H_
