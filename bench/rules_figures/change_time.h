// The time of a change, with the verdicts about all choices after it.
#ifndef BENCH_RULES_FIGURES_CHANGE_TIME_H_
#define BENCH_RULES_FIGURES_CHANGE_TIME_H_

namespace driver_feature::figures {

// Makes a printer of 40 features with 8 choices each and 1,000 rules about two
// of them, changes its features many times, and prints what a change takes.
void printChangeTimes();

}  // namespace driver_feature::figures

#endif  // BENCH_RULES_FIGURES_CHANGE_TIME_H_
