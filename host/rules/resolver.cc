#include "host/rules/resolver.h"

#include <algorithm>
#include <limits>
#include <map>
#include <utility>

namespace driver_feature::rules {

namespace {

constexpr int kAny = std::numeric_limits<int>::max();

// A way with more changes is none that a person could follow, and the search
// goes one call deeper for each.
constexpr int kMostChanges = 1000;

std::vector<int> sorted(std::vector<int> numbers) {
  std::sort(numbers.begin(), numbers.end());
  return numbers;
}

}  // namespace

Resolver::Resolver(State& state)
    : state_(&state),
      tables_(&state.tables()),
      search_(state),
      ranks_(at(tables_->featureCount()), 0),
      heldByDefault_(sorted(state.held())) {}

Resolution Resolver::resolve(const Question& question) {
  std::vector<int> ranks = ranks_;
  int rank = ranks.empty() ? 0 : *std::max_element(ranks.begin(), ranks.end());
  for (const Wish& wish : question.wishes) ranks[at(wish.feature)] = ++rank;
  return find(question, ranks, true);
}

Resolution Resolver::isAllowed(const Wish& wish, long stepLimit) {
  std::vector<int> ranks(ranks_.size(), 0);
  ranks[at(wish.feature)] = 1;
  return find({.wishes = {wish}, .stepLimit = stepLimit}, ranks, false);
}

bool Resolver::wouldRefuse(const Wish& wish) {
  const std::vector<int> borne = bearDefaultsWith(wish.feature);
  Trial trial(*state_, wish);
  const bool refuses = !state_->held().empty();
  heed(borne);
  return refuses;
}

std::vector<bool> Resolver::wouldRefuse(int feature) {
  const std::vector<int> borne = bearDefaultsWith(feature);
  std::vector<bool> refuses = state_->wouldHold(feature);
  heed(borne);
  return refuses;
}

// A rule of the defaults counts for a feature of its own as soon as a person sets
// that.
std::map<int, std::vector<bool>> Resolver::wouldRefuse() {
  const std::vector<int> borne = bearDefaults(ranks_);
  std::vector<std::vector<int>> ofFeature(ranks_.size());
  for (const int rule : borne) {
    for (const int feature : tables_->featuresOf(rule)) ofFeature[at(feature)].push_back(rule);
  }
  std::map<int, std::vector<bool>> refuses;
  for (int feature = 0; feature < tables_->featureCount(); ++feature) {
    if (tables_->isNumber(feature)) continue;
    heed(ofFeature[at(feature)]);
    refuses.emplace(feature, state_->wouldHold(feature));
    for (const int rule : ofFeature[at(feature)]) state_->ignore(rule);
  }
  heed(borne);
  return refuses;
}

// As if a person had set the feature as well.
std::vector<int> Resolver::bearDefaultsWith(int feature) {
  int& rank = ranks_[at(feature)];
  const int before = std::exchange(rank, 1);
  std::vector<int> borne = bearDefaults(ranks_);
  rank = before;
  return borne;
}

std::vector<int> Resolver::refusing() {
  const std::vector<int> borne = bearDefaults(ranks_);
  std::vector<int> held = sorted(state_->held());
  heed(borne);
  return held;
}

Resolution Resolver::find(const Question& question, const std::vector<int>& ranks,
                          bool namesHardware) {
  Trial trial(*state_);
  for (const Wish& wish : question.wishes) trial.take(wish);
  for (std::size_t feature = 0; feature < ranks.size(); ++feature) {
    search_.freedom()[feature] = {false, ranks[feature]};
  }
  for (const Wish& wish : question.wishes) {
    const bool isKept = question.keepsAll || wish.feature == question.wishes.back().feature;
    search_.freedom()[at(wish.feature)].isFixed = isKept;
  }
  putAside_ = static_cast<long>(heldByDefault_.size());
  const std::vector<int> borne = bearDefaults(ranks);
  Resolution resolution = solve(question.stepLimit, namesHardware);
  heed(borne);
  resolution.steps += putAside_;
  return resolution;
}

Resolution Resolver::solve(long stepLimit, bool namesHardware) {
  if (state_->held().empty()) return {};
  Resolution resolution{.rules = sorted(state_->held())};
  search_.startSteps(stepLimit);
  const Search::Outcome outcome = least(0);
  if (outcome == Search::Outcome::kFound) {
    resolution.kind = Resolution::Kind::kMended;
    preferDefaults();
    resolution.moves = best_;
  } else if (outcome == Search::Outcome::kTooLong) {
    resolution.kind = Resolution::Kind::kNotFound;
  } else {
    resolution.kind = Resolution::Kind::kImpossible;
    const bool needsHardware = search_.lacksHardware();
    resolution.rules = explain();
    if (namesHardware && needsHardware) resolution.withHardware = findHardware();
  }
  resolution.steps = search_.steps();
  return resolution;
}

// The rules of the defaults of which a person has set no feature are ignored.
std::vector<int> Resolver::bearDefaults(const std::vector<int>& ranks) {
  std::vector<int> borne;
  for (const int rule : heldByDefault_) {
    const auto features = tables_->featuresOf(rule);
    const bool isPersonal = std::any_of(features.begin(), features.end(),
                                        [&](int feature) { return ranks[at(feature)] > 0; });
    if (isPersonal) continue;
    state_->ignore(rule);
    borne.push_back(rule);
  }
  return borne;
}

void Resolver::heed(const std::vector<int>& rules) {
  for (const int rule : rules) state_->heed(rule);
}

// Allows more and more changes, so that the first way that is found needs the
// fewest.
Search::Outcome Resolver::least(int hardware) {
  budget_ = {.changes = 1, .hardware = hardware, .personal = kAny, .latestRank = kAny};
  while (budget_.changes <= kMostChanges) {
    const Search::Outcome outcome = search_.run(budget_);
    if (outcome != Search::Outcome::kNone || search_.missingChanges() == 0) {
      best_ = search_.moves();
      return outcome;
    }
    budget_.changes += search_.missingChanges();
  }
  return Search::Outcome::kTooLong;
}

// Among ways with as many changes, looks for the one that changes the least of
// what a person has set, and of that what was set first. Keeps the best way so
// far when the steps are used up.
void Resolver::preferDefaults() {
  const auto rankOf = [&](const Move& move) { return search_.freedom()[at(move.feature)].rank; };
  const auto isPersonal = [&](const Move& move) { return rankOf(move) > 0; };
  const auto personal = std::count_if(best_.begin(), best_.end(), isPersonal);
  if (personal == 0) return;
  Budget budget = budget_;
  budget.personal = 0;
  while (budget.personal < personal && !improves(budget)) ++budget.personal;
  std::vector<int> ranks;
  for (const Freedom& freedom : search_.freedom()) {
    if (freedom.rank > 0) ranks.push_back(freedom.rank);
  }
  int latest = 0;
  for (const Move& move : best_) latest = std::max(latest, rankOf(move));
  for (const int rank : sorted(ranks)) {
    if (rank >= latest) return;
    budget.latestRank = rank;
    if (improves(budget)) return;
  }
}

bool Resolver::improves(const Budget& budget) {
  if (search_.run(budget) != Search::Outcome::kFound) return false;
  best_ = search_.moves();
  return true;
}

// The rules that the failed search has met forbid every way together. The
// smaller of two sets is taken: what can be spared depends on the order.
std::vector<int> Resolver::explain() {
  std::vector<int> rules = sorted(search_.reasons());
  if (rules.size() < 2) return rules;
  std::vector<int> others;
  for (int rule = 0; rule < tables_->ruleCount(); ++rule) {
    if (!std::binary_search(rules.begin(), rules.end(), rule)) others.push_back(rule);
  }
  putAside_ += tables_->ruleCount();
  for (const int rule : others) state_->ignore(rule);
  const std::vector<int> first = withoutSpare(rules);
  std::reverse(rules.begin(), rules.end());
  const std::vector<int> second = first.size() > 2 ? withoutSpare(rules) : first;
  heed(others);
  return sorted(second.size() < first.size() ? second : first);
}

// Leaves out one rule after the other, as long as the rest still forbids.
std::vector<int> Resolver::withoutSpare(std::vector<int> rules) {
  std::vector<int> left;
  std::vector<int> spare;
  while (!rules.empty()) {
    const int rule = rules.back();
    rules.pop_back();
    state_->ignore(rule);
    if (least(0) == Search::Outcome::kNone) {
      spare.push_back(rule);
    } else {
      state_->heed(rule);
      left.push_back(rule);
    }
  }
  heed(spare);
  return left;
}

std::vector<Move> Resolver::findHardware() {
  for (int hardware = 1; hardware <= tables_->featureCount(); ++hardware) {
    const Search::Outcome outcome = least(hardware);
    if (outcome == Search::Outcome::kFound) return best_;
    if (outcome == Search::Outcome::kTooLong || !search_.lacksHardware()) break;
  }
  return {};
}

}  // namespace driver_feature::rules
