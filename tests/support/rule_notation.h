// Rules and what they are about, in a short form for tests.
//
//   rulesOf({"film: Media=Film|Foil Duplex!=None Copies>10"}, {"Finisher"})
#ifndef SUPPORT_RULE_NOTATION_H_
#define SUPPORT_RULE_NOTATION_H_

#include <sstream>
#include <string>
#include <vector>

#include "host/base/decimal.h"
#include "host/description/rules.h"
#include "host/rules/domain.h"

namespace driver_feature::rules {

// "FEATURE=CHOICE|CHOICE", with "!=", or with ">" or "<" and a number.
inline host::Condition conditionOf(const std::string& text) {
  using Kind = host::Condition::Kind;
  host::Condition condition;
  const std::size_t sign = text.find_first_of("!=<>");
  condition.feature = text.substr(0, sign);
  if (text[sign] == '<' || text[sign] == '>') {
    condition.kind = text[sign] == '>' ? Kind::kAbove : Kind::kBelow;
    condition.number = host::decimal(text.substr(sign + 1));
    return condition;
  }
  if (text[sign] == '!') condition.kind = Kind::kIsNot;
  std::istringstream choices(text.substr(text.find('=') + 1));
  for (std::string choice; std::getline(choices, choice, '|');) condition.choices.push_back(choice);
  return condition;
}

// "ID: CONDITION CONDITION".
inline host::Rule ruleOf(const std::string& text) {
  std::istringstream words(text);
  host::Rule rule;
  words >> rule.id;
  rule.id.pop_back();
  for (std::string word; words >> word;) rule.conditions.push_back(conditionOf(word));
  return rule;
}

inline host::Rules rulesOf(const std::vector<std::string>& texts,
                           const std::vector<std::string>& hardware = {}) {
  host::Rules rules;
  for (const std::string& text : texts) rules.rules.push_back(ruleOf(text));
  for (const std::string& name : hardware) rules.hardware.push_back({name});
  return rules;
}

// The first choice is the default.
inline Domain choicesOf(const std::string& feature, const std::vector<std::string>& choices) {
  Domain domain{.feature = feature};
  for (const std::string& choice : choices) domain.choices.push_back({choice});
  domain.defaultChoice = choices.front();
  return domain;
}

// The lowest is the default.
inline Domain numbersOf(const std::string& feature, double lowest, double highest,
                        Domain::Kind kind = Domain::Kind::kWhole) {
  return {.feature = feature,
          .kind = kind,
          .lowest = lowest,
          .highest = highest,
          .defaultNumber = lowest};
}

}  // namespace driver_feature::rules

#endif  // SUPPORT_RULE_NOTATION_H_
