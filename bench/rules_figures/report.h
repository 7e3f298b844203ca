// The figures as a table in Markdown.
#ifndef BENCH_RULES_FIGURES_REPORT_H_
#define BENCH_RULES_FIGURES_REPORT_H_

#include "bench/rules_figures/judging.h"
#include "bench/rules_figures/resolving.h"

namespace driver_feature::figures {

// `judging` is null when nothing was judged. Sorts the times.
void printReport(Counts& counts, const Judging* judging);

}  // namespace driver_feature::figures

#endif  // BENCH_RULES_FIGURES_REPORT_H_
