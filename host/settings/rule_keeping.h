// Keeps the settings of a person within the rules of the description.
#ifndef HOST_SETTINGS_RULE_KEEPING_H_
#define HOST_SETTINGS_RULE_KEEPING_H_

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/base/result.h"
#include "host/description/texts.h"
#include "host/rules/rulebook.h"
#include "host/session/session.h"
#include "host/settings/setting.h"

namespace driver_feature::host {

// What becomes of settings that the rules forbid together.
enum class RuleConduct : unsigned char {
  kRefuse,  // They are refused.
  kMend,    // Other features change, as few as possible.
  kIgnore,  // They stay.
};

class RuleKeeper {
 public:
  // The session must outlive this object. A refusal that other changes would avoid
  // says how to make them: `mending` and the changes, as in "--resolve changes
  // Duplex: On -> Off". The rules are read when they are needed first.
  explicit RuleKeeper(const Session& session, std::string mending = "--resolve changes ");

  // False when the description has no rules; then nothing is ever refused.
  bool hasRules() { return !rules().rules.empty(); }

  // From now on messages about rules are in this language, where the description has it.
  void useLanguage(const std::string& language);

  // A person has set the feature, later than all others.
  void noteSet(const std::string& feature);

  // The same for every feature that a rule names and whose value is not the
  // default one.
  void noteAllChanged();

  // What has to change besides the present values of what a person has set. The
  // newest of these stays.
  rules::Plan plan();

  // What has to change besides a choice that is not made yet.
  rules::Plan planFor(const Setting& setting);

  // The same for several, of which the last one stays.
  rules::Plan planFor(const std::vector<Setting>& settings);

  // Checks the present values. Refuses them when a rule holds of which a person has
  // set a feature; or changes other features, and returns a line for each
  // change. With kMend, refused are values for which there is no way.
  Result<std::vector<std::string>> keep(RuleConduct conduct);

  // Makes the changes of a plan; returns a line for each. Refused when the model
  // does not take one of them; the others have been made then.
  Result<std::vector<std::string>> carryOut(const rules::Plan& plan);

  // A plan that does not fit, as the refusal of its wishes.
  Problem refusalOf(const rules::Plan& plan);

  // Takes out the choices that nothing can allow with the present hardware, and
  // gives back the others. Returns those that are taken out.
  std::vector<rules::TakenOut> takeOut();

  // Those choices, which stay in the model.
  std::vector<rules::TakenOut> impossible();

  // By feature, the choices that a rule would refuse if nothing else changed.
  std::map<std::string, std::vector<std::string>> conflictingChoices();

  // What a person has set, in its order; and these features in place of them.
  const std::vector<std::string>& set() const { return set_; }
  void replaceSet(const std::vector<std::string>& features);

  // Why a choice is taken out, or a plan needs changes: a line for each rule.
  std::vector<std::string> reasonsOf(const rules::TakenOut& choice);
  std::vector<std::string> reasonsOf(const rules::Plan& plan);

  const Rules& rules();

 private:
  rules::Rulebook& book();
  bool isForbidden();
  bool holds(const Condition& condition) const;
  std::vector<rules::Assignment> valuesOf(int rule, const rules::Assignment& choice);
  std::string ruleText(const rules::BrokenRule& broken, const rules::Plan& plan);
  std::string changeText(const rules::Change& change, const rules::Plan& plan);

  const Session& session_;
  std::string mending_;
  const Rules* rules_ = nullptr;           // Once they are read.
  std::unique_ptr<rules::Rulebook> book_;  // Made for a plan: it costs more than to see
                                           // that values fit.
  std::optional<TextLookUp> texts_;
  std::vector<std::string> set_;  // By a person, the newest last, each once.
};

}  // namespace driver_feature::host

#endif  // HOST_SETTINGS_RULE_KEEPING_H_
