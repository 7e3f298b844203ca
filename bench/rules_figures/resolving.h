// What both sides make of choices that are in conflict.
#ifndef BENCH_RULES_FIGURES_RESOLVING_H_
#define BENCH_RULES_FIGURES_RESOLVING_H_

#include <array>
#include <vector>

#include "bench/rules_figures/subject.h"

namespace driver_feature::figures {

constexpr long kSteps = 10'000'000;

struct Counts {
  long ppds = 0;
  long ppdsWithRules = 0;
  long rules = 0;
  long mostRules = 0;
  long ppdsInConflict = 0;  // With their defaults.

  long choices = 0;
  long conflicts = 0;
  long verdictsDiffer = 0;
  long specialChoices = 0;
  long specialDiffer = 0;
  long vectorVerdicts = 0;
  long vectorsDiffer = 0;

  long mended = 0;
  std::array<long, 8> byChanges{};
  long impossible = 0;
  long withHardware = 0;
  long conflictOfDefaults = 0;  // No rule of the choice holds, and no other is refused.
  long notFound = 0;
  long stillInConflict = 0;

  long peerMended = 0;
  long peerStillInConflict = 0;
  long peerMissed = 0;
  long peerChangesMore = 0;
  long peerOnly = 0;  // Mended by the peer only.

  std::vector<float> microseconds;
  std::vector<float> peerMicroseconds;
  std::vector<float> tableMicroseconds;
};

// Resolves a choice from the defaults on both sides, and counts.
rules::Resolution resolveBoth(Subject& subject, const PpdChoice& choice, Counts& counts);

}  // namespace driver_feature::figures

#endif  // BENCH_RULES_FIGURES_RESOLVING_H_
