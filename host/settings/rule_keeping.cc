#include "host/settings/rule_keeping.h"

#include <algorithm>
#include <set>
#include <utility>

#include "host/base/text.h"
#include "host/rules/explain.h"
#include "host/settings/settings_file.h"

namespace driver_feature::host {

namespace {

using Kind = rules::Plan::Kind;

std::string arrow(const rules::Change& change) {
  return change.feature + ": " + change.from + " -> " + change.to;
}

std::string arrows(const std::vector<rules::Change>& changes) {
  std::vector<std::string> parts;
  parts.reserve(changes.size());
  for (const rules::Change& change : changes) parts.push_back(arrow(change));
  return join(parts, ", ");
}

// With which hardware a plan would be possible.
std::string hardwareText(const rules::Plan& plan) {
  if (plan.hardware.empty()) return "no values of other features allow it";
  std::vector<std::string> parts;
  for (const rules::Change& change : plan.hardware) {
    parts.push_back(change.feature + "=" + change.to);
  }
  const std::string others =
      plan.withHardware.empty() ? "" : ", and then with " + arrows(plan.withHardware);
  return "possible with " + join(parts, " and ") + others;
}

// The first of many reasons say enough.
std::string reasonsText(std::vector<std::string> reasons) {
  constexpr std::size_t kMost = 10;
  const std::size_t count = reasons.size();
  if (count > kMost) reasons.resize(kMost);
  std::string text = join(reasons, "; and ");
  if (count > kMost) {
    text += "; and " + counted(static_cast<long>(count - kMost), "more rule") + " forbid" +
            (count == kMost + 1 ? "s" : "") + " it";
  }
  return text;
}

bool names(const rules::BrokenRule& broken, const std::string& feature) {
  return std::any_of(broken.values.begin(), broken.values.end(),
                     [&](const rules::Assignment& value) { return value.feature == feature; });
}

}  // namespace

RuleKeeper::RuleKeeper(const Session& session, std::string mending)
    : session_(session), mending_(std::move(mending)) {}

const Rules& RuleKeeper::rules() {
  if (rules_ != nullptr) return *rules_;
  const std::size_t before = session_.additions(0).problems.size();  // Of other parts.
  const Additions& additions = session_.additions(kRulesPart);
  for (std::size_t i = before; i < additions.problems.size(); ++i) {
    session_.note("warning: " + describe(additions.problems[i]) + "; it is left out");
  }
  rules_ = &additions.rules;
  return *rules_;
}

rules::Rulebook& RuleKeeper::book() {
  if (!book_) {
    book_ = std::make_unique<rules::Rulebook>(session_.model(), rules());
    for (const std::string& feature : set_) book_->noteSet(feature);
  }
  return *book_;
}

void RuleKeeper::useLanguage(const std::string& language) {
  texts_.emplace(session_.additions(kTextsPart).texts, language);
}

void RuleKeeper::noteSet(const std::string& feature) {
  std::erase(set_, feature);
  set_.push_back(feature);
  if (book_) book_->noteSet(feature);
}

void RuleKeeper::noteAllChanged() {
  std::set<std::string> named;
  for (const Rule& rule : rules().rules) {
    for (const Condition& condition : rule.conditions) named.insert(condition.feature);
  }
  for (const std::string& name : named) {
    const auto feature = session_.model().features.find(name);
    const bool isChanged =
        feature != session_.model().features.end() && !feature->second.isAtDefault();
    if (isChanged) noteSet(name);
  }
}

rules::Plan RuleKeeper::plan() {
  if (!hasRules()) return {};
  std::vector<rules::Assignment> wishes;
  for (const std::string& name : set_) {
    const auto feature = session_.model().features.find(name);
    if (feature == session_.model().features.end()) continue;
    if (auto value = settingText(feature->second)) wishes.push_back({name, std::move(*value)});
  }
  return book().plan(wishes, rules::Keep::kNewest);
}

rules::Plan RuleKeeper::planFor(const Setting& setting) {
  return planFor(std::vector<Setting>{setting});
}

rules::Plan RuleKeeper::planFor(const std::vector<Setting>& settings) {
  if (!hasRules()) return {};
  std::vector<rules::Assignment> wishes;
  wishes.reserve(settings.size());
  for (const Setting& setting : settings) wishes.push_back({setting.name, setting.value});
  return book().plan(wishes, rules::Keep::kNewest);
}

Result<std::vector<std::string>> RuleKeeper::keep(RuleConduct conduct) {
  std::vector<std::string> lines;
  if (conduct == RuleConduct::kIgnore) return lines;
  // Routines of the description may change features after a change.
  constexpr int kPasses = 3;
  for (int pass = 0;; ++pass) {
    if (!isForbidden()) return lines;
    const rules::Plan plan = this->plan();
    if (plan.kind == Kind::kFits) return lines;  // A rule with a fault forbids nothing.
    const bool mends = conduct == RuleConduct::kMend && plan.kind == Kind::kMended;
    if (!mends || pass == kPasses) return Failure(refusalOf(plan));
    auto made = carryOut(plan);
    if (!made) return made;
    lines.insert(lines.end(), made->begin(), made->end());
  }
}

Result<std::vector<std::string>> RuleKeeper::carryOut(const rules::Plan& plan) {
  std::vector<std::string> lines;
  for (const rules::Change& change : plan.changes) {
    Result<> made = applySetting(session_.model(), {change.feature, change.to});
    if (!made) return failureOf(made, "the change of " + arrow(change) + " is refused");
    lines.push_back(changeText(change, plan));
  }
  return lines;
}

Problem RuleKeeper::refusalOf(const rules::Plan& plan) {
  Problem problem{Problem::Kind::kRefused, "", ""};
  problem.text = reasonsText(reasonsOf(plan));
  switch (plan.kind) {
    case Kind::kFits:
      break;
    case Kind::kMended:
      problem.text += "; " + mending_ + arrows(plan.changes);
      break;
    case Kind::kImpossible:
      problem.text += "; " + hardwareText(plan);
      break;
    case Kind::kNotFound:
      problem.text += "; no way around it was found within " + std::to_string(plan.steps) +
                      " steps; choose other values";
      break;
  }
  return problem;
}

std::vector<rules::TakenOut> RuleKeeper::takeOut() {
  return hasRules() ? book().takeOut() : std::vector<rules::TakenOut>();
}

std::vector<rules::TakenOut> RuleKeeper::impossible() {
  return hasRules() ? book().impossible() : std::vector<rules::TakenOut>();
}

std::map<std::string, std::vector<std::string>> RuleKeeper::conflictingChoices() {
  if (!hasRules()) return {};
  return book().conflictingChoices();
}

void RuleKeeper::replaceSet(const std::vector<std::string>& features) {
  if (book_) {
    for (const std::string& feature : set_) book_->forgetSet(feature);
  }
  set_.clear();
  for (const std::string& feature : features) noteSet(feature);
}

std::vector<std::string> RuleKeeper::reasonsOf(const rules::TakenOut& choice) {
  std::vector<std::string> reasons;
  for (const int number : choice.rules) {
    rules::Plan plan;
    plan.wishes = {{choice.feature, choice.choice}};
    reasons.push_back(ruleText({number, valuesOf(number, plan.wishes.front())}, plan));
  }
  return reasons;
}

std::vector<std::string> RuleKeeper::reasonsOf(const rules::Plan& plan) {
  std::vector<std::string> reasons;
  for (const rules::BrokenRule& broken : plan.rules) reasons.push_back(ruleText(broken, plan));
  return reasons;
}

// The values with which a rule forbids a choice, when it names nothing else but
// hardware; otherwise none: its conditions say more.
std::vector<rules::Assignment> RuleKeeper::valuesOf(int rule, const rules::Assignment& choice) {
  std::vector<rules::Assignment> values;
  for (const Condition& condition : rules().rules[static_cast<std::size_t>(rule)].conditions) {
    const bool isChoice = condition.feature == choice.feature;
    const auto feature = session_.model().features.find(condition.feature);
    const bool isHardware = std::any_of(
        rules().hardware.begin(), rules().hardware.end(),
        [&](const HardwareFeature& hardware) { return hardware.name == condition.feature; });
    if (feature == session_.model().features.end() || (!isChoice && !isHardware)) return {};
    values.push_back(
        isChoice ? choice
                 : rules::Assignment{condition.feature, settingText(feature->second).value_or("")});
  }
  return values;
}

// Whether a rule holds of which a person has set a feature.
bool RuleKeeper::isForbidden() {
  if (set_.empty()) return false;
  const std::set<std::string> isSet(set_.begin(), set_.end());
  return std::any_of(rules().rules.begin(), rules().rules.end(), [&](const Rule& rule) {
    const auto& conditions = rule.conditions;
    return std::any_of(
               conditions.begin(), conditions.end(),
               [&](const Condition& condition) { return isSet.contains(condition.feature); }) &&
           std::all_of(conditions.begin(), conditions.end(),
                       [this](const Condition& condition) { return holds(condition); });
  });
}

bool RuleKeeper::holds(const Condition& condition) const {
  const auto feature = session_.model().features.find(condition.feature);
  return feature != session_.model().features.end() &&
         isTrueOf(condition, settingText(feature->second).value_or(""));
}

// The rule in words, and its place in the file.
std::string RuleKeeper::ruleText(const rules::BrokenRule& broken, const rules::Plan& plan) {
  const Rule& rule = rules().rules[static_cast<std::size_t>(broken.rule)];
  std::string text = explainRule(rule, broken.values, plan.wishes, texts_ ? &*texts_ : nullptr);
  while (text.ends_with('.')) text.pop_back();
  return text + " (" + rule.place.file + ":" + std::to_string(rule.place.position.line) + ")";
}

std::string RuleKeeper::changeText(const rules::Change& change, const rules::Plan& plan) {
  const std::string text =
      change.feature + " is changed from " + inQuotes(change.from) + " to " + inQuotes(change.to);
  const auto reason =
      std::find_if(plan.rules.begin(), plan.rules.end(),
                   [&](const rules::BrokenRule& broken) { return names(broken, change.feature); });
  return reason == plan.rules.end() ? text : text + ": " + ruleText(*reason, plan);
}

}  // namespace driver_feature::host
