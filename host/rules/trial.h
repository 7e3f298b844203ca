// Values that are tried on a state, which gets its own back afterwards.
#ifndef HOST_RULES_TRIAL_H_
#define HOST_RULES_TRIAL_H_

#include <vector>

#include "host/rules/state.h"

namespace driver_feature::rules {

// A value that a person wants.
struct Wish {
  int feature = 0;
  int value = 0;      // Of a number, its cell.
  double number = 0;  // Of a feature with numbers only.
};

void setTo(State& state, const Wish& wish);

class Trial {
 public:
  explicit Trial(State& state) : state_(state) {}
  Trial(State& state, const Wish& wish) : state_(state) { take(wish); }
  ~Trial();
  Trial(const Trial&) = delete;
  Trial& operator=(const Trial&) = delete;

  void take(const Wish& wish);

 private:
  State& state_;
  std::vector<Wish> saved_;
};

}  // namespace driver_feature::rules

#endif  // HOST_RULES_TRIAL_H_
