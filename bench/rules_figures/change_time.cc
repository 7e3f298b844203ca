#include "bench/rules_figures/change_time.h"

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "bench/rules_figures/watch.h"
#include "equivalence/random.h"
#include "host/rules/state.h"

namespace driver_feature::figures {

namespace {

constexpr int kFeatures = 40;
constexpr int kChoices = 8;
constexpr int kRules = 1000;
constexpr int kChanges = 20'000;

std::string featureName(std::uint64_t feature) {
  return "Feature" + std::to_string(feature);
}

std::string choiceName(std::uint64_t choice) {
  return "Choice" + std::to_string(choice);
}

rules::Domains makeDomains() {
  rules::Domains domains;
  for (int feature = 0; feature < kFeatures; ++feature) {
    rules::Domain domain{.feature = featureName(static_cast<std::uint64_t>(feature))};
    for (std::uint64_t choice = 0; choice < kChoices; ++choice) {
      domain.choices.push_back({choiceName(choice)});
    }
    domain.defaultChoice = choiceName(0);
    domains.push_back(std::move(domain));
  }
  return domains;
}

host::Condition randomCondition(equivalence::Random& random) {
  host::Condition condition{.feature = featureName(random.below(kFeatures)), .choices = {}};
  condition.choices.push_back(choiceName(1 + random.below(kChoices - 1)));
  return condition;
}

host::Rules makeRules(equivalence::Random& random) {
  host::Rules rules;
  for (int rule = 0; rule < kRules; ++rule) {
    rules.rules.push_back({.id = std::to_string(rule),
                           .text = "",
                           .conditions = {randomCondition(random), randomCondition(random)}});
  }
  return rules;
}

void print(const char* what, std::vector<float>& times) {
  std::sort(times.begin(), times.end());
  const auto at = [&](std::size_t percent) {
    return static_cast<double>(times[(times.size() - 1) * percent / 100]);
  };
  std::printf("%s: p50 %.2f us, p99 %.2f us, max %.1f us\n", what, at(50), at(99), at(100));
}

}  // namespace

void printChangeTimes() {
  equivalence::Random random(1);
  const rules::Tables tables(makeRules(random), makeDomains());
  rules::State state(tables);
  std::vector<float> changes;
  std::vector<float> withVerdicts;
  long conflicts = 0;
  for (int change = 0; change < kChanges; ++change) {
    // About one feature in eight is away from its default, as in a job.
    const int feature = static_cast<int>(random.below(kFeatures));
    const int value = random.oneIn(8) ? 1 + static_cast<int>(random.below(kChoices - 1)) : 0;
    const Watch watch;
    state.set(feature, value);
    changes.push_back(watch.microseconds());
    for (int each = 0; each < kFeatures; ++each) {
      for (const bool holds : state.wouldHold(each)) conflicts += holds ? 1 : 0;
    }
    withVerdicts.push_back(watch.microseconds());
  }
  std::printf("%d rules, %d features with %d choices; %ld of %d verdicts are conflicts\n", kRules,
              kFeatures, kChoices, conflicts, kChanges * kFeatures * kChoices);
  print("a change", changes);
  print("a change and the verdicts about all choices", withVerdicts);
}

}  // namespace driver_feature::figures
