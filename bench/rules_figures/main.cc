// Figures of the rule engine beside libcups: reads the names of PPDs from its
// standard input, and prints a table in Markdown.
//
//   find build/corpus/ppds -type f | sort | rules_figures [--judge N FOLDER]
//
// With --judge, about one of N resolutions is judged by z3, which reads its
// questions from a file in the folder. Ends with 1 for a difference. With
// --change alone, prints what a change takes at 1,000 rules.

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <optional>
#include <string>

#include "bench/rules_figures/change_time.h"
#include "bench/rules_figures/judging.h"
#include "bench/rules_figures/report.h"
#include "bench/rules_figures/resolving.h"
#include "equivalence/random.h"

namespace driver_feature::figures {

namespace {

constexpr int kVectors = 20;

struct Run {
  Counts counts;
  std::unique_ptr<Judging> judging;
  std::uint64_t oneIn = 0;
};

void reportDifference(const std::string& file, const PpdChoice& choice, bool peerFinds) {
  std::cerr << file << ": " << choice.option << "=" << choice.choice << ": libcups finds "
            << (peerFinds ? "a" : "no") << " conflict\n";
}

void examineChoices(Subject& subject, const std::string& file, equivalence::Random& random,
                    Run& run) {
  Counts& counts = run.counts;
  for (const PpdChoice& choice : subject.choices()) {
    const bool peerFinds = subject.peerFinds(choice);
    const bool differs = peerFinds != subject.engineFinds(choice);
    if (differs) reportDifference(file, choice, peerFinds);
    if (choice.isSpecial) {
      ++counts.specialChoices;
      if (differs) ++counts.specialDiffer;
      continue;
    }
    ++counts.choices;
    if (differs) ++counts.verdictsDiffer;
    if (!peerFinds || differs) continue;
    ++counts.conflicts;
    const rules::Resolution resolution = resolveBoth(subject, choice, counts);
    if (run.judging != nullptr && random.oneIn(run.oneIn)) {
      run.judging->ask(subject, file, choice, resolution);
    }
  }
}

void markRandomly(Subject& subject, equivalence::Random& random) {
  for (ppd_option_t* option : ppd::optionsOf(subject.ppd())) {
    const std::vector<ppd_choice_t*> choices = ppd::choicesOf(*option);
    if (choices.empty() || option->ui == PPD_UI_PICKMANY) continue;
    const ppd_choice_t* choice = choices[random.below(choices.size())];
    const bool isCustom = std::string(choice->choice) == "Custom";
    const bool isRegion = std::string(option->keyword) == "PageRegion";
    if (!isCustom && !isRegion) ppdMarkOption(&subject.ppd(), option->keyword, choice->choice);
  }
}

// Whether there is any conflict, and whether there would be one of some choice.
void examineVectors(Subject& subject, const std::string& file, equivalence::Random& random,
                    Counts& counts) {
  for (int vector = 0; vector < kVectors; ++vector) {
    ppdMarkDefaults(&subject.ppd());
    markRandomly(subject, random);
    subject.takeMarks();
    counts.vectorVerdicts += 2;
    const bool peerFinds = ppdConflicts(&subject.ppd()) != 0;
    if (peerFinds != !subject.state().held().empty()) {
      ++counts.vectorsDiffer;
      std::cerr << file << ": vector " << vector << ": libcups finds " << (peerFinds ? "a" : "no")
                << " conflict\n";
    }
    const PpdChoice& choice = subject.choices()[random.below(subject.choices().size())];
    const bool peerFindsChoice = subject.peerFinds(choice);
    if (!choice.isSpecial && peerFindsChoice != subject.engineFinds(choice)) {
      ++counts.vectorsDiffer;
      reportDifference(file, choice, peerFindsChoice);
    }
  }
  subject.markDefaults();
}

void examine(const std::string& file, Run& run) {
  host::Result<ppd::PpdPointer> ppd = ppd::readPpd(file);
  if (!ppd) return;
  ++run.counts.ppds;
  Subject subject(std::move(*ppd));
  if (subject.rules().rules.empty() || subject.choices().empty()) return;
  Counts& counts = run.counts;
  ++counts.ppdsWithRules;
  const auto rules = static_cast<long>(subject.rules().rules.size());
  counts.rules += rules;
  counts.mostRules = std::max(counts.mostRules, rules);
  counts.tableMicroseconds.push_back(subject.tableMicroseconds());
  if (!subject.state().held().empty()) ++counts.ppdsInConflict;
  // The same choices whatever the folder.
  equivalence::Random random(equivalence::digestOf(file.substr(file.rfind('/') + 1)));
  examineChoices(subject, file, random, run);
  examineVectors(subject, file, random, counts);
}

int runAll(Run& run) {
  for (std::string file; std::getline(std::cin, file);) examine(file, run);
  if (run.judging != nullptr) run.judging->finish();
  printReport(run.counts, run.judging.get());
  const Counts& counts = run.counts;
  const bool differs = counts.verdictsDiffer + counts.specialDiffer + counts.vectorsDiffer +
                           counts.stillInConflict + counts.notFound + counts.peerOnly !=
                       0;
  return differs || (run.judging != nullptr && !run.judging->wrong().empty()) ? 1 : 0;
}

}  // namespace

}  // namespace driver_feature::figures

int main(int argc, char** argv) {
  using namespace driver_feature::figures;  // NOLINT(google-build-using-namespace)
  if (argc == 2 && std::string(argv[1]) == "--change") {
    printChangeTimes();
    return 0;
  }
  Run run;
  if (argc == 4 && std::string(argv[1]) == "--judge") {
    run.oneIn = std::strtoull(argv[2], nullptr, 10);
    run.judging = std::make_unique<Judging>(Z3_PROGRAM, std::string(argv[3]) + "/rules.smt2");
  }
  if (argc != 1 && run.oneIn == 0) {
    std::cerr
        << "usage: rules_figures [--judge N FOLDER] <LIST-OF-PPDS, or rules_figures --change\n";
    return 2;
  }
  return runAll(run);
}
