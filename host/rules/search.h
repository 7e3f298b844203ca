// The search for values with which no rule holds: from a rule that holds, each
// of its features that may be changed is tried with each value that makes the
// rule false, and so on.
#ifndef HOST_RULES_SEARCH_H_
#define HOST_RULES_SEARCH_H_

#include <vector>

#include "host/rules/state.h"

namespace driver_feature::rules {

struct Move {
  int feature = 0;
  int to = 0;

  bool operator==(const Move&) const = default;
};

// What may be done with a feature.
struct Freedom {
  bool isFixed = false;
  // 0 unless a person has set it; a greater one was set later.
  int rank = 0;
};

// How much may be changed.
struct Budget {
  int changes = 0;
  int hardware = 0;    // Of the changes, at most so many of hardware
  int personal = 0;    // and so many of what a person has set,
  int latestRank = 0;  // none of them later than this one.
};

class Search {
 public:
  enum class Outcome : unsigned char {
    kFound,    // moves() has the changes.
    kNone,     // There is no way, or none within the budget.
    kTooLong,  // The steps are used up.
  };

  explicit Search(State& state);

  // By feature. Stays as it is from run to run.
  std::vector<Freedom>& freedom() { return freedom_; }

  // Looks for a way, and leaves the state as it was. A step is a condition that
  // is looked at or changed.
  Outcome run(const Budget& budget);
  void startSteps(long limit);
  long steps() const { return state_->work() + work_ - stepsBefore_; }

  const std::vector<Move>& moves() const { return solution_; }

  // After kNone: by how much `changes` must grow to get further; 0 when no
  // number of changes helps.
  int missingChanges() const { return missing_; }

  // After kNone: whether more changes of hardware could help.
  bool lacksHardware() const { return lacksHardware_; }

  // After kNone, when no number of changes helps: rules that forbid every way.
  const std::vector<int>& reasons() const { return reasons_; }

 private:
  static std::size_t at(int index) { return static_cast<std::size_t>(index); }
  bool isOver() const { return steps() > stepLimit_; }
  bool descend();
  int pickRule();
  int countFree(int rule);
  bool claim(int rule);
  bool mayChange(int feature);
  bool tryFeature(int rule, int feature);
  bool tryValues(int feature, std::size_t firstCandidate);
  void addCandidates(int rule, int feature);
  void addNumbers(int rule, int feature);
  bool falsifies(int rule, int feature, int value);
  void spend(int feature, int amount);
  void noteReason(int rule);

  State* state_;
  const Tables* tables_;
  std::vector<Freedom> freedom_;
  Budget left_;
  std::vector<char> isChanged_;  // By feature: on the present way.
  std::vector<Move> moves_;      // The present way.
  std::vector<Move> solution_;
  std::vector<int> candidates_;  // Of all features on the present way.
  // Marks with a number that is new for each use, so that none is ever cleared.
  std::vector<long> claimed_;  // By feature.
  std::vector<long> tried_;    // By slot.
  long mark_ = 0;
  std::vector<char> isReason_;  // By rule.
  std::vector<int> reasons_;
  int missing_ = 0;
  bool lacksHardware_ = false;
  long work_ = 0;
  long stepsBefore_ = 0;
  long stepLimit_ = 0;
};

}  // namespace driver_feature::rules

#endif  // HOST_RULES_SEARCH_H_
