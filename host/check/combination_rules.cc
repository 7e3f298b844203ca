// The rules of a description: what they name, and what they forbid.

#include <algorithm>
#include <map>

#include "host/base/text.h"
#include "host/check/addition_rules.h"
#include "host/check/rules.h"
#include "host/check/value_space.h"

namespace driver_feature::check {

namespace {

using Kind = host::Condition::Kind;

bool isOnChoices(const host::Condition& condition) {
  return condition.kind == Kind::kIs || condition.kind == Kind::kIsNot;
}

bool fits(const host::Condition& condition, const host::Element& feature) {
  if (isOnChoices(condition)) return feature.isKind(host::FeatureKind::kMultiSelect);
  return feature.isKind(host::FeatureKind::kIntEntry) ||
         feature.isKind(host::FeatureKind::kFloatEntry);
}

std::string ruleWords(const host::Rule& rule) {
  return "rule " + host::inQuotes(rule.id);
}

const char* remedyForKind(const host::Element& feature) {
  if (feature.isKind(host::FeatureKind::kMultiSelect)) return "use Is or IsNot";
  const bool isNumber = feature.isKind(host::FeatureKind::kIntEntry) ||
                        feature.isKind(host::FeatureKind::kFloatEntry);
  return isNumber ? "use Above or Below" : "remove the condition";
}

void checkChoices(const AdditionSubject& subject, const host::Rule& rule,
                  const host::Condition& condition, const FeatureRow& feature, Findings& findings) {
  for (std::size_t i = 0; i < condition.choices.size(); ++i) {
    const std::string& choice = condition.choices[i];
    if (feature.optionSet.contains(choice)) continue;
    host::SourcePlace place = condition.place;
    if (i < condition.choicePositions.size()) place.position = condition.choicePositions[i];
    findings.push_back(findingAt(
        subject, Code::kUnknownRuleOption, place,
        ruleWords(rule) + " names an option " + host::inQuotes(choice) + " that feature " +
            host::inQuotes(condition.feature) + " does not have",
        didYouMean(choice, feature.options,
                   feature.options.empty() ? "give the feature options"
                                           : "give one of " + host::listed(feature.options))));
  }
}

void checkCondition(const AdditionSubject& subject, const host::Rule& rule,
                    const host::Condition& condition, Findings& findings) {
  const FeatureRow* feature = subject.features.find(condition.feature);
  if (feature == nullptr) {
    const bool isGroup = subject.features.groups().contains(condition.feature);
    findings.push_back(findingAt(subject, Code::kUnknownRuleFeature, condition.place,
                                 ruleWords(rule) + " names a feature " +
                                     host::inQuotes(condition.feature) + " that does not exist",
                                 isGroup ? "this is a group, name a feature"
                                         : didYouMean(condition.feature, subject.features.names(),
                                                      "give the name of a feature")));
  } else if (feature->element->inTemplate) {
    findings.push_back(findingAt(subject, Code::kRuleOnTemplate, condition.place,
                                 ruleWords(rule) + " names feature " +
                                     host::inQuotes(condition.feature) +
                                     ", which is a member of a template",
                                 "remove the rule; rules do not see the values of records"));
  } else if (!fits(condition, *feature->element)) {
    findings.push_back(findingAt(subject, Code::kUnfitCondition, condition.place,
                                 "the condition of " + ruleWords(rule) + " does not fit feature " +
                                     host::inQuotes(condition.feature) + ", whose type is " +
                                     host::inQuotes(feature->element->text("FeatureType")),
                                 remedyForKind(*feature->element)));
  } else if (isOnChoices(condition)) {
    checkChoices(subject, rule, condition, *feature, findings);
  }
}

using Spaces = std::map<std::string, ValueSpace>;

Spaces spacesOf(const AdditionSubject& subject, const host::Rule& rule) {
  Spaces spaces;
  for (const host::Condition& condition : rule.conditions) {
    const FeatureRow* feature = subject.features.find(condition.feature);
    spaces.try_emplace(condition.feature, *feature).first->second.narrow(condition);
  }
  return spaces;
}

// A rule on one feature forbids some of its options for ever.
void checkImpossibleChoices(const AdditionSubject& subject, const host::Rule& rule,
                            const Spaces& spaces, Findings& findings) {
  if (spaces.size() != 1) return;
  const auto& [feature, space] = *spaces.begin();
  const std::vector<std::string> options(space.options().begin(), space.options().end());
  if (options.empty()) return;
  findings.push_back(findingAt(subject, Code::kImpossibleChoice, rule.place,
                               ruleWords(rule) + " never allows " + host::listed(options) +
                                   " of feature " + host::inQuotes(feature),
                               "add a condition on another feature, or remove the options"));
}

// Nothing more is said of a rule that is wrong as a whole. False for one that forbids
// everything or nothing.
bool checkSense(const AdditionSubject& subject, const host::Rule& rule, Findings& findings) {
  const Spaces spaces = spacesOf(subject, rule);
  bool isAlways = true;
  for (const auto& [name, space] : spaces) {
    isAlways = isAlways && space.isWhole();
    if (!space.isEmpty()) continue;
    findings.push_back(findingAt(subject, Code::kRuleNever, rule.place,
                                 ruleWords(rule) + " forbids nothing: no value of feature " +
                                     host::inQuotes(name) + " fulfils its conditions",
                                 "correct the conditions, or remove the rule"));
    return false;
  }
  if (isAlways) {
    findings.push_back(findingAt(subject, Code::kRuleAlways, rule.place,
                                 ruleWords(rule) + " forbids everything: its conditions hold for "
                                                   "all values",
                                 "correct the conditions, or remove the rule"));
    return false;
  }
  checkImpossibleChoices(subject, rule, spaces, findings);
  if (!subject.trial || !holdsWith(rule, subject.trial->defaults)) return true;
  findings.push_back(findingAt(subject, Code::kDefaultsBreakRule, rule.place,
                               ruleWords(rule) + " forbids the default values of its features",
                               "change a default or the rule"));
  return true;
}

}  // namespace

bool holdsWith(const host::Rule& rule, const Values& values) {
  return std::ranges::all_of(rule.conditions, [&](const host::Condition& condition) {
    const auto value = values.find(condition.feature);
    return value != values.end() && isTrueOf(condition, value->second);
  });
}

bool isSound(const AdditionSubject& subject, const host::Rule& rule) {
  Findings findings;
  for (const host::Condition& condition : rule.conditions) {
    checkCondition(subject, rule, condition, findings);
  }
  return findings.empty();
}

void checkRules(const AdditionSubject& subject, Findings& findings) {
  std::map<std::string, host::SourcePlace> known;
  std::vector<host::Rule> sensible;
  for (const host::Rule& rule : subject.additions.rules.rules) {
    const auto [first, isNew] = known.emplace(rule.id, rule.place);
    if (!isNew) {
      findings.push_back(findingAt(subject, Code::kRepeatedRule, rule.place,
                                   ruleWords(rule) + " already exists, in line " +
                                       std::to_string(first->second.position.line),
                                   "give each rule an Id of its own"));
    }
    const std::size_t before = findings.size();
    for (const host::Condition& condition : rule.conditions) {
      checkCondition(subject, rule, condition, findings);
    }
    const bool isSound = findings.size() == before;
    if (isSound && checkSense(subject, rule, findings)) sensible.push_back(rule);
  }
  checkTogether(subject, std::move(sensible), findings);
}

void checkHardware(const AdditionSubject& subject, Findings& findings) {
  std::map<std::string, host::SourcePlace> known;
  for (const host::HardwareFeature& hardware : subject.additions.rules.hardware) {
    const std::string name = host::inQuotes(hardware.name);
    const FeatureRow* feature = subject.features.find(hardware.name);
    if (feature == nullptr) {
      findings.push_back(findingAt(
          subject, Code::kUnknownRuleFeature, hardware.place,
          "the list of hardware names a feature " + name + " that does not exist",
          didYouMean(hardware.name, subject.features.names(), "give the name of a feature")));
    } else if (feature->element->inTemplate) {
      findings.push_back(findingAt(
          subject, Code::kRuleOnTemplate, hardware.place,
          "the list of hardware names feature " + name + ", which is a member of a template",
          "remove it; rules do not see the values of records"));
    } else if (!known.emplace(hardware.name, hardware.place).second) {
      findings.push_back(findingAt(subject, Code::kRepeatedHardware, hardware.place,
                                   "feature " + name + " is listed twice as hardware",
                                   "remove one of the two"));
    }
  }
}

}  // namespace driver_feature::check
