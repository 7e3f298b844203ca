// The rules of a loaded description, as programs use them.
//
//   rules::Rulebook book(session.model(), additions.rules);
//   book.takeOut();
//   const rules::Plan plan = book.plan({{"MediaType", "Transparency"}});
//   for (const std::string& line : explain(plan, book.rules())) report(line);
//
// Nothing but takeOut() and giveBack() changes the model. Each question is
// about the values and the availability that the model has at that moment.
#ifndef HOST_RULES_RULEBOOK_H_
#define HOST_RULES_RULEBOOK_H_

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "host/rules/availability.h"
#include "host/rules/plan.h"
#include "host/rules/resolver.h"

namespace driver_feature::rules {

// Which of several wishes are kept.
enum class Keep : unsigned char {
  kAll,
  kNewest,  // The last one; earlier ones may change, if nothing else helps as well.
};

class Rulebook {
 public:
  // A tenth of a second at most.
  static constexpr long kUsualSteps = 10'000'000;

  // The model must outlive the book, and have been loaded just now: what is
  // unavailable then is so by itself.
  Rulebook(const host::Model& model, const host::Rules& rules);

  // Without a model: the values are the default ones and those of set().
  Rulebook(Domains domains, host::Rules rules);

  Rulebook(const Rulebook&) = delete;
  Rulebook& operator=(const Rulebook&) = delete;

  const host::Rules& rules() const { return rules_; }

  // A person has set the feature, later than all others, or has taken that back.
  void noteSet(const std::string& feature);
  void forgetSet(const std::string& feature);

  // Stores a value, for a book without a model. Ignores what it does not know.
  void set(const Assignment& assignment);

  // Whether a rule would refuse the value if nothing else changed: whether
  // plan() has more to say than that it fits.
  bool wouldConflict(const Assignment& assignment);

  // The choices of the feature for which wouldConflict() is true, in their
  // order; none for a feature without choices.
  std::vector<std::string> conflictingChoices(const std::string& feature);

  // The same for every feature that has such choices, by its name.
  std::map<std::string, std::vector<std::string>> conflictingChoices();

  // What has to change for the wishes. A wish that no rule can speak of is
  // always fulfilled.
  Plan plan(const std::vector<Assignment>& wishes, Keep keep = Keep::kAll,
            long stepLimit = kUsualSteps);

  // The rules that hold now and refuse the present values: those that hold by
  // default and of which a person has set no feature are left out.
  std::vector<BrokenRule> refusing();

  // All rules that hold now.
  std::vector<BrokenRule> held();

  // The choices that nothing can allow with the present hardware. They are
  // taken out of the model, and what is possible again is given back. Examines
  // all choices the first time, and then only after a change of hardware.
  const std::vector<TakenOut>& takeOut();

  // The same choices, which stay in the model.
  const std::vector<TakenOut>& impossible();

  // Gives back all choices.
  void giveBack();

 private:
  static std::size_t at(int index) { return static_cast<std::size_t>(index); }
  void readModel();
  void readFeature(int feature, const host::FeatureView& view);
  std::optional<Wish> wishOf(const Assignment& assignment) const;
  std::string textOf(int feature, int value, double number) const;
  std::vector<Change> changesOf(const std::vector<Move>& moves, bool ofHardware) const;
  std::vector<BrokenRule> brokenRules(const std::vector<int>& rules) const;
  std::vector<int> hardwareValues() const;
  std::vector<std::string> choicesOf(int feature, const std::vector<bool>& which) const;

  host::Rules rules_;
  const host::Model* model_ = nullptr;
  Tables tables_;
  State state_;
  Resolver resolver_;
  std::optional<OptionConstraints> constraints_;
  std::optional<std::vector<int>> examinedHardware_;  // At the last examination.
  std::optional<std::vector<int>> takenOutWith_;      // As of the last takeOut().
  std::vector<ImpossibleChoice> impossible_;
  std::vector<TakenOut> takenOut_;
};

}  // namespace driver_feature::rules

#endif  // HOST_RULES_RULEBOOK_H_
