// Choices that nothing can allow with the present hardware, and how they are
// taken out of the model.
#ifndef HOST_RULES_AVAILABILITY_H_
#define HOST_RULES_AVAILABILITY_H_

#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "host/rules/resolver.h"
#include "host/session/model.h"

namespace driver_feature::rules {

// A choice that no values of the other features allow, and the rules that
// forbid it together.
struct ImpossibleChoice {
  int feature = 0;
  int value = 0;
  std::vector<int> rules;

  bool operator==(const ImpossibleChoice&) const = default;
};

// The most steps that the search may take. What it does not reach counts as possible.
struct StepLimits {
  long ofAChoice = 0;
  long ofAll = 0;
};

// In the order of the features and of their choices. Features that say what
// hardware there is keep all choices, so that a person can still change them.
std::vector<ImpossibleChoice> findImpossible(Resolver& resolver, const Tables& tables,
                                             const StepLimits& limits);

// The number by which the model knows a rule among the constraints of an option.
constexpr long constraintOf(int rule) {
  return 1'000'000'000L + rule;
}

// Takes options out of a model, through its constraints, and gives them back.
// An option that its author made unavailable stays so, and so does one that
// another constraint holds back.
class OptionConstraints {
 public:
  // Notes which options are unavailable by themselves.
  OptionConstraints(const host::Model& model, const Tables& tables);

  // Takes out these choices, and gives back all others that it had taken out.
  void apply(const std::vector<ImpossibleChoice>& impossible);

  // Whether the option would be available if it were not taken out.
  bool isAvailableOtherwise(int feature, int position) const;

 private:
  using Place = std::pair<int, int>;  // A feature, and the position of its option.

  static std::size_t at(int index) { return static_cast<std::size_t>(index); }
  IntermediateCoreOption* optionAt(const Place& place) const;
  void takeOut(const Place& place, int rule);
  void giveBack(const Place& place, int rule);

  // By feature and position. They live as long as the process.
  std::vector<std::vector<IntermediateCoreOption*>> options_;
  std::set<Place> offByThemselves_;
  std::map<Place, int> takenOut_;  // With the rule.
};

}  // namespace driver_feature::rules

#endif  // HOST_RULES_AVAILABILITY_H_
