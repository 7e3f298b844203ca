// What no single rule forbids, but several do together.

#include <algorithm>
#include <limits>
#include <map>
#include <set>
#include <utility>

#include "host/base/text.h"
#include "host/check/addition_rules.h"
#include "host/check/rules.h"
#include "host/check/value_space.h"
#include "host/rules/resolver.h"

namespace driver_feature::check {

namespace {

// Of one choice, and of all: some tenths of a second at most.
constexpr long kStepsOfAChoice = 1'000'000;
constexpr long kStepsOfAll = 30'000'000;

template <class Number>
void limit(const Span& span, rules::Domain& domain) {
  using Limits = std::numeric_limits<Number>;
  domain.lowest = std::max(span.low, static_cast<double>(Limits::lowest()));
  domain.highest = std::min(span.high, static_cast<double>(Limits::max()));
}

rules::Domain domainOf(const std::string& name, const FeatureRow& feature) {
  const host::Element& element = *feature.element;
  rules::Domain domain{.feature = name};
  if (element.isKind(host::FeatureKind::kMultiSelect)) {
    std::set<std::string> known;
    for (const std::string& option : feature.options) {
      if (known.insert(option).second) domain.choices.push_back({option});
    }
    domain.defaultChoice = element.text("DefaultValue");
  } else if (element.isKind(host::FeatureKind::kIntEntry)) {
    domain.kind = rules::Domain::Kind::kWhole;
    limit<int>(limitsOf(element), domain);
    domain.defaultNumber = intOf(element, "DefaultValue").value_or(0);
  } else {
    domain.kind = rules::Domain::Kind::kDecimal;
    limit<float>(limitsOf(element), domain);
    domain.defaultNumber = doubleOf(element, "DefaultValue").value_or(0);
  }
  return domain;
}

rules::Domains domainsOf(const AdditionSubject& subject, const std::vector<host::Rule>& rules) {
  std::set<std::string> names;
  rules::Domains domains;
  for (const host::Rule& rule : rules) {
    for (const host::Condition& condition : rule.conditions) {
      if (!names.insert(condition.feature).second) continue;
      domains.push_back(domainOf(condition.feature, *subject.features.find(condition.feature)));
    }
  }
  return domains;
}

// Whatever the printer has: no feature counts as hardware.
class Together {
 public:
  Together(const AdditionSubject& subject, std::vector<host::Rule> rules, Findings& findings)
      : subject_(subject),
        findings_(findings),
        rules_{std::move(rules), {}},
        tables_(rules_, domainsOf(subject, rules_.rules)),
        state_(tables_),
        resolver_(state_) {}

  void check() {
    for (int feature = 0; feature < tables_.featureCount(); ++feature) {
      if (!tables_.isNumber(feature) && !checkFeature(feature)) return;
    }
  }

 private:
  using Rules = std::vector<int>;

  // False when the rules leave no value, and then all others are impossible, too.
  bool checkFeature(int feature) {
    std::map<Rules, std::vector<std::string>> impossible;  // By the rules that forbid them.
    std::map<int, Rules> known;  // Of the choices that all rules treat alike.
    const std::vector<rules::Domain::Choice>& choices = tables_.domain(feature).choices;
    bool isAnyPossible = choices.empty();
    for (int value = 0; value < static_cast<int>(choices.size()); ++value) {
      const auto [found, isNew] = known.try_emplace(tables_.likeness(feature, value));
      if (isNew) found->second = rulesAgainst({feature, value});
      isAnyPossible = isAnyPossible || found->second.empty();
      if (!found->second.empty()) {
        impossible[found->second].push_back(choices[static_cast<std::size_t>(value)].name);
      }
    }
    if (!isAnyPossible) {
      reportContradiction(feature, impossible);
      return false;
    }
    for (const auto& [rules, options] : impossible) report(feature, rules, options);
    return true;
  }

  // Rules that forbid the choice, none of which can be spared; none when it is
  // possible, or when nobody knows.
  Rules rulesAgainst(const rules::Wish& wish) {
    if (steps_ > kStepsOfAll) return {};
    const rules::Resolution resolution = resolver_.isAllowed(wish, kStepsOfAChoice);
    steps_ += resolution.steps;
    const bool isImpossible = resolution.kind == rules::Resolution::Kind::kImpossible;
    return isImpossible ? resolution.rules : Rules();
  }

  const host::Rule& ruleAt(int rule) const { return rules_.rules[static_cast<std::size_t>(rule)]; }

  bool isOnOneFeature(int rule) const { return tables_.featuresOf(rule).size() == 1; }

  // "rules "a", "b" together".
  std::string wordsFor(const Rules& rules) const {
    std::vector<std::string> names;
    for (const int rule : rules) names.push_back(host::inQuotes(ruleAt(rule).id));
    return names.size() == 1 ? "rule " + names.front()
                             : "rules " + host::listed(names) + " together";
  }

  void report(int feature, const Rules& rules, const std::vector<std::string>& options) {
    // It has been reported of the rule itself.
    if (rules.size() == 1 && isOnOneFeature(rules.front())) return;
    findings_.push_back(
        findingAt(subject_, Code::kImpossibleChoice, ruleAt(rules.front()).place,
                  wordsFor(rules) + (rules.size() == 1 ? " never allows " : " never allow ") +
                      host::listed(options) + " of feature " +
                      host::inQuotes(tables_.domain(feature).feature),
                  rules.size() == 1 ? "add a condition on another feature, or remove the options"
                                    : "correct one of the rules, or remove the options"));
  }

  void reportContradiction(int feature,
                           const std::map<Rules, std::vector<std::string>>& impossible) {
    std::set<int> all;
    for (const auto& [rules, options] : impossible) all.insert(rules.begin(), rules.end());
    const Rules rules(all.begin(), all.end());
    findings_.push_back(findingAt(subject_, Code::kRuleAlways, ruleAt(rules.front()).place,
                                  wordsFor(rules) + (rules.size() == 1 ? " forbids" : " forbid") +
                                      " everything: no value of feature " +
                                      host::inQuotes(tables_.domain(feature).feature) + " is left",
                                  "correct the rules, or remove one"));
  }

  const AdditionSubject& subject_;
  Findings& findings_;
  host::Rules rules_;
  rules::Tables tables_;
  rules::State state_;
  rules::Resolver resolver_;
  long steps_ = 0;
};

}  // namespace

void checkTogether(const AdditionSubject& subject, std::vector<host::Rule> rules,
                   Findings& findings) {
  Together(subject, std::move(rules), findings).check();
}

}  // namespace driver_feature::check
