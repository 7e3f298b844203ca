#include "support/smt_judge.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <fstream>
#include <sstream>

#include "host/base/decimal.h"

namespace driver_feature::rules {

namespace {

using ConditionKind = host::Condition::Kind;

// A number as SMT-LIB writes it.
std::string numeral(double number, bool isWhole) {
  std::ostringstream text;
  text.precision(17);
  text << std::fixed << (number < 0 ? -number : number);
  std::string digits = text.str();
  if (isWhole) digits = digits.substr(0, digits.find('.'));
  return number < 0 ? "(- " + digits + ")" : digits;
}

std::string joined(const std::string& word, const std::vector<std::string>& parts,
                   const std::string& ifNone) {
  if (parts.empty()) return ifNone;
  std::string text = "(" + word;
  for (const std::string& part : parts) text += " " + part;
  return text + ")";
}

std::vector<std::string> linesOf(const std::string& command) {
  std::vector<std::string> lines;
  FILE* pipe = popen(command.c_str(), "r");
  if (pipe == nullptr) return lines;
  std::array<char, 4096> line{};
  while (fgets(line.data(), static_cast<int>(line.size()), pipe) != nullptr) {
    std::string text = line.data();
    if (!text.empty() && text.back() == '\n') text.pop_back();
    lines.push_back(text);
  }
  pclose(pipe);
  return lines;
}

}  // namespace

void SmtJudge::begin(const Domains& domains, const Values& now,
                     const std::vector<std::string>& fixed) {
  domains_ = &domains;
  byName_.clear();
  names_.clear();
  script_ += "(reset)\n";
  for (const Domain& domain : domains) {
    byName_[domain.feature] = &domain;
    names_.emplace(domain.feature, "x" + std::to_string(names_.size()));
    declare(domain, now.at(domain.feature));
  }
  for (const std::string& feature : fixed) {
    script_ += "(assert (not " + nameOf(feature) + "c))\n";
  }
}

// The variable, its limits, and "changed".
void SmtJudge::declare(const Domain& domain, const std::string& now) {
  const std::string name = nameOf(domain.feature);
  const bool isReal = domain.kind == Domain::Kind::kDecimal;
  const std::string current = valueOf(domain.feature, now);
  std::vector<std::string> allowed = {"(= " + name + " " + current + ")"};
  if (!domain.isChangeable) {
    // Nothing but the present value.
  } else if (domain.kind == Domain::Kind::kChoices) {
    for (std::size_t choice = 0; choice < domain.choices.size(); ++choice) {
      if (domain.choices[choice].isTarget) {
        allowed.push_back("(= " + name + " " + std::to_string(choice) + ")");
      }
    }
  } else {
    allowed.push_back("(and (>= " + name + " " + numeral(domain.lowest, !isReal) + ") (<= " + name +
                      " " + numeral(domain.highest, !isReal) + "))");
  }
  script_ += "(declare-const " + name + (isReal ? " Real)\n" : " Int)\n");
  script_ += "(assert " + joined("or", allowed, "false") + ")\n";
  script_ += "(define-fun " + name + "c () Bool (not (= " + name + " " + current + ")))\n";
}

void SmtJudge::forbid(const host::Rule& rule) {
  std::vector<std::string> conditions;
  for (const host::Condition& condition : rule.conditions) {
    conditions.push_back(conditionOf(condition));
  }
  script_ += "(assert (not " + joined("and", conditions, "true") + "))\n";
}

void SmtJudge::demand(const std::string& feature, const std::string& value) {
  script_ += "(assert (= " + nameOf(feature) + " " + valueOf(feature, value) + "))\n";
}

void SmtJudge::expect(bool possible, const std::string& about) {
  script_ += "(check-sat)\n";
  expected_.push_back({possible, about});
}

void SmtJudge::limit(int changes, const std::vector<std::string>& features) {
  std::vector<std::string> counted = {"0"};
  for (const auto& [feature, name] : names_) {
    const bool isCounted =
        features.empty() || std::find(features.begin(), features.end(), feature) != features.end();
    if (isCounted) counted.push_back("(ite " + name + "c 1 0)");
  }
  script_ += "(assert (<= " + joined("+", counted, "0") + " " + numeral(changes, true) + "))\n";
}

void SmtJudge::expectWithin(int changes, const std::vector<std::string>& features, bool possible,
                            const std::string& about) {
  push();
  limit(changes, features);
  expect(possible, about);
  pop();
}

std::string SmtJudge::nameOf(const std::string& feature) const {
  return names_.at(feature);
}

// A choice that the feature does not have is one more than all.
std::string SmtJudge::valueOf(const std::string& feature, const std::string& value) const {
  const Domain& domain = *byName_.at(feature);
  if (domain.kind != Domain::Kind::kChoices) {
    return numeral(host::decimal(value), domain.kind == Domain::Kind::kWhole);
  }
  const auto found = std::find_if(domain.choices.begin(), domain.choices.end(),
                                  [&](const auto& choice) { return choice.name == value; });
  return std::to_string(found - domain.choices.begin());
}

std::string SmtJudge::conditionOf(const host::Condition& condition) const {
  const std::string name = nameOf(condition.feature);
  const bool isReal = byName_.at(condition.feature)->kind == Domain::Kind::kDecimal;
  if (condition.kind == ConditionKind::kAbove || condition.kind == ConditionKind::kBelow) {
    const std::string sign = condition.kind == ConditionKind::kAbove ? ">" : "<";
    const std::string variable = isReal ? name : "(to_real " + name + ")";
    return "(" + sign + " " + variable + " " + numeral(condition.number, false) + ")";
  }
  std::vector<std::string> choices;
  for (const std::string& choice : condition.choices) {
    choices.push_back("(= " + name + " " + valueOf(condition.feature, choice) + ")");
  }
  const std::string any = joined("or", choices, "false");
  return condition.kind == ConditionKind::kIs ? any : "(not " + any + ")";
}

std::vector<std::string> SmtJudge::disagreements(const std::string& z3,
                                                 const std::string& scriptFile) {
  std::ofstream(scriptFile) << script_;
  const std::vector<std::string> answers = linesOf("'" + z3 + "' '" + scriptFile + "' 2>&1");
  std::vector<std::string> wrong;
  if (answers.size() != expected_.size()) {
    wrong.push_back(z3 + ": " + std::to_string(answers.size()) + " answers to " +
                    std::to_string(expected_.size()) + " questions" +
                    (answers.empty() ? "" : ": " + answers.front()));
  }
  for (std::size_t place = 0; place < std::min(answers.size(), expected_.size()); ++place) {
    const Question& question = expected_[place];
    const std::string expected = question.possible ? "sat" : "unsat";
    if (answers[place] != expected) {
      wrong.push_back(question.about + ": z3 says " + answers[place] + ", not " + expected);
    }
  }
  script_.clear();
  expected_.clear();
  return wrong;
}

}  // namespace driver_feature::rules
