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

bool names(const rules::BrokenRule& broken, const std::string& feature) {
  return std::any_of(broken.values.begin(), broken.values.end(),
                     [&](const rules::Assignment& value) { return value.feature == feature; });
}

}  // namespace

RuleKeeper::RuleKeeper(const Session& session, std::string mending)
    : session_(session), mending_(std::move(mending)) {
  const Additions& additions = session.additions(kRulesPart);
  for (const Problem& problem : additions.problems) {
    session.note("warning: " + describe(problem) + "; it is left out");
  }
  const Rules& rules = additions.rules;
  if (!rules.rules.empty()) book_ = std::make_unique<rules::Rulebook>(session.model(), rules);
}

void RuleKeeper::useLanguage(const std::string& language) {
  texts_.emplace(session_.additions(kTextsPart).texts, language);
}

void RuleKeeper::noteSet(const std::string& feature) {
  if (!book_) return;
  std::erase(set_, feature);
  set_.push_back(feature);
  book_->noteSet(feature);
}

void RuleKeeper::noteAllChanged() {
  if (!book_) return;
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
  if (!book_) return {};
  std::vector<rules::Assignment> wishes;
  for (const std::string& name : set_) {
    const auto feature = session_.model().features.find(name);
    if (feature == session_.model().features.end()) continue;
    if (auto value = settingText(feature->second)) wishes.push_back({name, std::move(*value)});
  }
  return book_->plan(wishes, rules::Keep::kNewest);
}

rules::Plan RuleKeeper::planFor(const Setting& setting) {
  if (!book_) return {};
  return book_->plan({{setting.name, setting.value}}, rules::Keep::kNewest);
}

Result<std::vector<std::string>> RuleKeeper::keep(RuleConduct conduct) {
  std::vector<std::string> lines;
  if (!book_ || conduct == RuleConduct::kIgnore) return lines;
  // Routines of the description may change features after a change.
  constexpr int kPasses = 3;
  for (int pass = 0;; ++pass) {
    const std::vector<rules::BrokenRule> refusing = book_->refusing();
    const bool isForbidden =
        std::any_of(refusing.begin(), refusing.end(),
                    [this](const rules::BrokenRule& broken) { return concernsPerson(broken); });
    if (!isForbidden) return lines;
    const rules::Plan plan = this->plan();
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

Problem RuleKeeper::refusalOf(const rules::Plan& plan) const {
  Problem problem{Problem::Kind::kRefused, "", ""};
  problem.text = join(reasonsOf(plan), "; and ");
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
  return book_ ? book_->takeOut() : std::vector<rules::TakenOut>();
}

std::vector<std::string> RuleKeeper::reasonsOf(const rules::TakenOut& choice) const {
  std::vector<std::string> reasons;
  for (const int number : choice.rules) {
    rules::Plan plan;
    plan.wishes = {{choice.feature, choice.choice}};
    reasons.push_back(ruleText({number, valuesOf(number, plan.wishes.front())}, plan));
  }
  return reasons;
}

std::vector<std::string> RuleKeeper::reasonsOf(const rules::Plan& plan) const {
  std::vector<std::string> reasons;
  for (const rules::BrokenRule& broken : plan.rules) reasons.push_back(ruleText(broken, plan));
  return reasons;
}

// The values with which a rule forbids a choice, when it names nothing else but
// hardware; otherwise none: its conditions say more.
std::vector<rules::Assignment> RuleKeeper::valuesOf(int rule,
                                                    const rules::Assignment& choice) const {
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

bool RuleKeeper::concernsPerson(const rules::BrokenRule& broken) const {
  return std::any_of(set_.begin(), set_.end(),
                     [&](const std::string& feature) { return names(broken, feature); });
}

// The rule in words, and its place in the file.
std::string RuleKeeper::ruleText(const rules::BrokenRule& broken, const rules::Plan& plan) const {
  const Rule& rule = rules().rules[static_cast<std::size_t>(broken.rule)];
  std::string text = explainRule(rule, broken.values, plan.wishes, texts_ ? &*texts_ : nullptr);
  while (text.ends_with('.')) text.pop_back();
  return text + " (" + rule.place.file + ":" + std::to_string(rule.place.position.line) + ")";
}

std::string RuleKeeper::changeText(const rules::Change& change, const rules::Plan& plan) const {
  const std::string text =
      change.feature + " is changed from " + inQuotes(change.from) + " to " + inQuotes(change.to);
  const auto reason =
      std::find_if(plan.rules.begin(), plan.rules.end(),
                   [&](const rules::BrokenRule& broken) { return names(broken, change.feature); });
  return reason == plan.rules.end() ? text : text + ": " + ruleText(*reason, plan);
}

}  // namespace driver_feature::host
