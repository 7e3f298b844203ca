#include "host/rules/rulebook.h"

#include <algorithm>
#include <charconv>

#include "host/description/description_index.h"

namespace driver_feature::rules {

namespace {

// All choices of a description are examined one after the other: half a second at
// most.
constexpr StepLimits kAvailabilitySteps = {.ofAChoice = 100'000, .ofAll = 100'000'000};

template <class Number>
std::optional<double> numberIn(const std::string& text) {
  Number number{};
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  if (result.ec != std::errc() || result.ptr != text.data() + text.size()) return std::nullopt;
  return static_cast<double>(number);
}

}  // namespace

Rulebook::Rulebook(const host::Model& model, const host::Rules& rules)
    : Rulebook(domainsOf(model, rules), rules) {
  model_ = &model;
  constraints_.emplace(model, tables_);
}

Rulebook::Rulebook(Domains domains, host::Rules rules)
    : rules_(std::move(rules)),
      tables_(rules_, std::move(domains)),
      state_(tables_),
      resolver_(state_) {}

void Rulebook::noteSet(const std::string& feature) {
  const auto found = tables_.find(feature);
  if (!found) return;
  std::vector<int>& ranks = resolver_.ranks();  // Not empty: the feature is in it.
  ranks[at(*found)] = *std::max_element(ranks.begin(), ranks.end()) + 1;
}

void Rulebook::forgetSet(const std::string& feature) {
  if (const auto found = tables_.find(feature)) resolver_.ranks()[at(*found)] = 0;
}

void Rulebook::set(const Assignment& assignment) {
  if (const auto wish = wishOf(assignment)) setTo(state_, *wish);
}

bool Rulebook::wouldConflict(const Assignment& assignment) {
  readModel();
  const std::optional<Wish> wish = wishOf(assignment);
  return wish && resolver_.wouldRefuse(*wish);
}

std::vector<std::string> Rulebook::conflictingChoices(const std::string& feature) {
  readModel();
  const std::optional<int> found = tables_.find(feature);
  if (!found || tables_.isNumber(*found)) return {};
  return choicesOf(*found, resolver_.wouldRefuse(*found));
}

std::map<std::string, std::vector<std::string>> Rulebook::conflictingChoices() {
  readModel();
  std::map<std::string, std::vector<std::string>> all;
  for (const auto& [feature, refused] : resolver_.wouldRefuse()) {
    std::vector<std::string> names = choicesOf(feature, refused);
    if (!names.empty()) all.emplace(tables_.domain(feature).feature, std::move(names));
  }
  return all;
}

std::vector<std::string> Rulebook::choicesOf(int feature, const std::vector<bool>& which) const {
  std::vector<std::string> names;
  for (std::size_t value = 0; value < which.size(); ++value) {
    if (which[value]) names.push_back(tables_.domain(feature).choices[value].name);
  }
  return names;
}

Plan Rulebook::plan(const std::vector<Assignment>& wishes, Keep keep, long stepLimit) {
  readModel();
  Question question{.wishes = {}, .keepsAll = keep == Keep::kAll, .stepLimit = stepLimit};
  // Changes are reported with the wished values as those that remain.
  Trial trial(state_);
  for (const Assignment& assignment : wishes) {
    const std::optional<Wish> wish = wishOf(assignment);
    if (!wish) continue;
    question.wishes.push_back(*wish);
    trial.take(*wish);
  }
  const Resolution found = resolver_.resolve(question);
  return {.kind = found.kind,
          .wishes = wishes,
          .changes = changesOf(found.moves, false),
          .rules = brokenRules(found.rules),
          .hardware = changesOf(found.withHardware, true),
          .withHardware = changesOf(found.withHardware, false),
          .steps = found.steps};
}

std::vector<BrokenRule> Rulebook::refusing() {
  readModel();
  return brokenRules(resolver_.refusing());
}

std::vector<BrokenRule> Rulebook::held() {
  readModel();
  std::vector<int> rules = state_.held();
  std::sort(rules.begin(), rules.end());
  return brokenRules(rules);
}

const std::vector<TakenOut>& Rulebook::takeOut() {
  impossible();
  if (constraints_ && takenOutWith_ != examinedHardware_) constraints_->apply(impossible_);
  takenOutWith_ = examinedHardware_;
  return takenOut_;
}

const std::vector<TakenOut>& Rulebook::impossible() {
  readModel();
  std::vector<int> hardware = hardwareValues();
  if (examinedHardware_ == hardware) return takenOut_;
  examinedHardware_ = std::move(hardware);
  impossible_ = findImpossible(resolver_, tables_, kAvailabilitySteps);
  takenOut_.clear();
  for (const ImpossibleChoice& choice : impossible_) {
    const Domain& domain = tables_.domain(choice.feature);
    takenOut_.push_back({domain.feature, domain.choices[at(choice.value)].name, choice.rules});
  }
  return takenOut_;
}

void Rulebook::giveBack() {
  if (constraints_) constraints_->apply({});
  examinedHardware_.reset();
  takenOutWith_.reset();
  takenOut_.clear();
}

void Rulebook::readModel() {
  if (model_ == nullptr) return;
  for (int feature = 0; feature < tables_.featureCount(); ++feature) {
    const auto found = model_->features.find(tables_.domain(feature).feature);
    if (found != model_->features.end()) readFeature(feature, found->second);
  }
}

void Rulebook::readFeature(int feature, const host::FeatureView& view) {
  tables_.setChangeable(feature, view.isAvailable());
  const Domain& domain = tables_.domain(feature);
  if (domain.kind == Domain::Kind::kWhole) return state_.setNumber(feature, view.currentInt());
  if (domain.kind == Domain::Kind::kDecimal) {
    return state_.setNumber(feature, static_cast<double>(view.currentFloat()));
  }
  state_.set(feature, tables_.valueOf(feature, view.currentChoice().value_or("")));
  std::vector<char> isTarget(domain.choices.size(), 0);
  for (std::size_t position = 0; position < isTarget.size(); ++position) {
    const bool is = constraints_->isAvailableOtherwise(feature, static_cast<int>(position));
    isTarget[position] = is ? 1 : 0;
  }
  tables_.setTargets(feature, isTarget);
}

// Nothing for a feature that no rule can speak of, and for a text that is not a
// number where one is needed.
std::optional<Wish> Rulebook::wishOf(const Assignment& assignment) const {
  const std::optional<int> feature = tables_.find(assignment.feature);
  if (!feature) return std::nullopt;
  if (!tables_.isNumber(*feature)) {
    return Wish{*feature, tables_.valueOf(*feature, assignment.value)};
  }
  const bool isWhole = tables_.domain(*feature).kind == Domain::Kind::kWhole;
  const std::optional<double> number =
      isWhole ? numberIn<int>(assignment.value) : numberIn<float>(assignment.value);
  if (!number) return std::nullopt;
  return Wish{*feature, tables_.cells(*feature).cellOf(*number), *number};
}

std::string Rulebook::textOf(int feature, int value, double number) const {
  const Domain& domain = tables_.domain(feature);
  if (domain.kind == Domain::Kind::kWhole) return std::to_string(static_cast<long long>(number));
  if (domain.kind == Domain::Kind::kDecimal) return host::numberText(static_cast<float>(number));
  return at(value) < domain.choices.size() ? domain.choices[at(value)].name : "";
}

std::vector<Change> Rulebook::changesOf(const std::vector<Move>& moves, bool ofHardware) const {
  std::vector<Change> changes;
  for (const auto& [feature, to] : moves) {
    if (tables_.isHardware(feature) != ofHardware) continue;
    const double number = state_.number(feature);
    const double nearest =
        tables_.isNumber(feature) ? tables_.cells(feature).nearest(to, number).value_or(0) : 0;
    changes.push_back({tables_.domain(feature).feature,
                       textOf(feature, state_.value(feature), number),
                       textOf(feature, to, nearest)});
  }
  return changes;
}

std::vector<BrokenRule> Rulebook::brokenRules(const std::vector<int>& rules) const {
  std::vector<BrokenRule> broken;
  for (const int rule : rules) {
    BrokenRule& entry = broken.emplace_back(BrokenRule{rule, {}});
    const auto rows = tables_.conditions(rule);
    const bool holds = std::ranges::all_of(rows, [&](const ConditionRow& row) {
      return tables_.isTrue(row, state_.value(row.feature));
    });
    for (const ConditionRow& row : rows) {
      Assignment value{tables_.domain(row.feature).feature,
                       textOf(row.feature, state_.value(row.feature), state_.number(row.feature))};
      const bool isNew = std::ranges::find(entry.values, value) == entry.values.end();
      if (holds && isNew) entry.values.push_back(std::move(value));
    }
  }
  return broken;
}

std::vector<int> Rulebook::hardwareValues() const {
  std::vector<int> values;
  for (int feature = 0; feature < tables_.featureCount(); ++feature) {
    if (tables_.isHardware(feature)) values.push_back(state_.value(feature));
  }
  return values;
}

}  // namespace driver_feature::rules
