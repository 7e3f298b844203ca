#include "host/rules/trial.h"

namespace driver_feature::rules {

void setTo(State& state, const Wish& wish) {
  if (state.tables().isNumber(wish.feature)) {
    state.setNumber(wish.feature, wish.number);
  } else {
    state.set(wish.feature, wish.value);
  }
}

Trial::~Trial() {
  for (; !saved_.empty(); saved_.pop_back()) setTo(state_, saved_.back());
}

void Trial::take(const Wish& wish) {
  saved_.push_back({wish.feature, state_.value(wish.feature), state_.number(wish.feature)});
  setTo(state_, wish);
}

}  // namespace driver_feature::rules
