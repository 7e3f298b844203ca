// What else has to change so that no rule holds, found before anything is
// changed.
//
// The newest choice stays, hardware is never changed, and as few other features
// as possible change. Of several ways that need as many changes, the best one
// changes the least of what a person has set, and of that what was set first;
// then the order of the description decides: the default choice before the
// others, and of numbers the nearest one.
#ifndef HOST_RULES_RESOLVER_H_
#define HOST_RULES_RESOLVER_H_

#include <map>
#include <vector>

#include "host/rules/search.h"
#include "host/rules/trial.h"

namespace driver_feature::rules {

struct Question {
  std::vector<Wish> wishes;  // The newest one is the last.
  // Whether all wishes are kept; otherwise only the newest one is.
  bool keepsAll = true;
  long stepLimit = 0;
};

struct Resolution {
  enum class Kind : unsigned char {
    kFits,        // No rule holds.
    kMended,      // No rule holds after `moves`.
    kImpossible,  // The rules in `rules` forbid it together.
    kNotFound,    // The steps were used up.
  };

  Kind kind = Kind::kFits;
  std::vector<Move> moves = {};
  // The rules that hold with the wishes and nothing else changed; when
  // impossible, rules that forbid every way, none of which can be spared.
  std::vector<int> rules = {};
  // When impossible: the fewest changes of hardware that make it possible, and
  // what else changes then. Empty if there are none.
  std::vector<Move> withHardware = {};
  long steps = 0;  // Of the search; and the rules that had to be put aside for it.
};

class Resolver {
 public:
  // Notes the rules that hold by default: they do not refuse a person's wishes
  // until a feature of theirs is set, because every job arrives with them. The
  // state must have the default values now, and outlive the resolver.
  explicit Resolver(State& state);

  // Which features a person has set, and in which order: 0 for those that
  // nobody has set. By feature.
  std::vector<int>& ranks() { return ranks_; }

  // Leaves the state as it was.
  Resolution resolve(const Question& question);

  // Whether any values of the other features allow the choice with the present
  // hardware. kFits also means kMended here, and `moves` is empty.
  Resolution isAllowed(const Wish& wish, long stepLimit);

  // Whether a rule would refuse the wish, if nothing else changed.
  bool wouldRefuse(const Wish& wish);

  // The same for each choice of a feature that has choices.
  std::vector<bool> wouldRefuse(int feature);

  // The same of all features that have choices, in less time than one after the
  // other takes.
  std::map<int, std::vector<bool>> wouldRefuse();

  // The rules that are broken now and refuse the values: those broken by the
  // defaults are left out until a person sets one of their features. In ascending
  // order.
  std::vector<int> refusing();

 private:
  static std::size_t at(int index) { return static_cast<std::size_t>(index); }
  Resolution find(const Question& question, const std::vector<int>& ranks, bool namesHardware);
  Resolution solve(long stepLimit, bool namesHardware);
  std::vector<int> bearDefaults(const std::vector<int>& ranks);
  std::vector<int> bearDefaultsWith(int feature);
  void heed(const std::vector<int>& rules);
  Search::Outcome least(int hardware);
  void preferDefaults();
  bool improves(const Budget& budget);
  std::vector<int> explain();
  std::vector<int> withoutSpare(std::vector<int> rules);
  std::vector<Move> findHardware();

  State* state_;
  const Tables* tables_;
  Search search_;
  std::vector<int> ranks_;
  std::vector<int> heldByDefault_;
  long putAside_ = 0;  // Rules, for the present question.
  Budget budget_;
  std::vector<Move> best_;
};

}  // namespace driver_feature::rules

#endif  // HOST_RULES_RESOLVER_H_
