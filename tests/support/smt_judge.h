// Questions about rules for the solver z3, which judges what the rule engine
// says. What it is asked comes from the rules as written and from nothing that
// the engine has made of them.
#ifndef SUPPORT_SMT_JUDGE_H_
#define SUPPORT_SMT_JUDGE_H_

#include <map>
#include <string>
#include <vector>

#include "host/description/rules.h"
#include "host/rules/domain.h"

namespace driver_feature::rules {

// Values by feature; of a feature with choices the choice, else a number.
using Values = std::map<std::string, std::string>;

class SmtJudge {
 public:
  // What the next questions are about: the values now, and which of the
  // features must keep them (`fixed`).
  void begin(const Domains& domains, const Values& now, const std::vector<std::string>& fixed);

  // From now on the rule must not hold, and a feature must have a value: until
  // the next begin(), or the pop() of the last push().
  void forbid(const host::Rule& rule);
  void demand(const std::string& feature, const std::string& value);
  void push() { script_ += "(push)\n"; }
  void pop() { script_ += "(pop)\n"; }

  // At most so many of the features change; none named means all of them.
  void limit(int changes, const std::vector<std::string>& features = {});

  // Asks whether there are such values; `about` comes back if z3 says something
  // else.
  void expect(bool possible, const std::string& about);

  // The same under one more limit.
  void expectWithin(int changes, const std::vector<std::string>& features, bool possible,
                    const std::string& about);

  // Runs z3 on all questions, and forgets them. What z3 does not agree with;
  // one line about z3 itself if it does not run.
  std::vector<std::string> disagreements(const std::string& z3, const std::string& scriptFile);

  std::size_t questions() const { return expected_.size(); }

 private:
  struct Question {
    bool possible = false;
    std::string about;
  };

  std::string nameOf(const std::string& feature) const;
  std::string valueOf(const std::string& feature, const std::string& value) const;
  std::string conditionOf(const host::Condition& condition) const;
  void declare(const Domain& domain, const std::string& now);

  const Domains* domains_ = nullptr;
  std::map<std::string, const Domain*> byName_;
  std::map<std::string, std::string> names_;
  std::string script_;
  std::vector<Question> expected_;
};

}  // namespace driver_feature::rules

#endif  // SUPPORT_SMT_JUDGE_H_
