#include "bench/rules_figures/report.h"

#include <algorithm>
#include <cstdio>
#include <iostream>
#include <string>

namespace driver_feature::figures {

namespace {

// 1234567 as 1,234,567.
std::string grouped(long number) {
  std::string text = std::to_string(number);
  for (auto place = static_cast<long>(text.size()) - 3; place > 0; place -= 3) {
    text.insert(static_cast<std::size_t>(place), ",");
  }
  return text;
}

void row(const std::string& what, const std::string& engine, const std::string& peer = "") {
  std::cout << "| " << what << " | " << engine << " | " << peer << " |\n";
}

void row(const std::string& what, long engine, const std::string& peer = "") {
  row(what, grouped(engine), peer);
}

std::string times(std::vector<float>& microseconds) {
  if (microseconds.empty()) return "-";
  std::sort(microseconds.begin(), microseconds.end());
  const auto at = [&](double share) {
    return static_cast<double>(microseconds[static_cast<std::size_t>(
        share * static_cast<double>(microseconds.size() - 1))]);
  };
  char text[100];
  std::snprintf(text, sizeof text, "%.1f / %.1f / %.0f us", at(0.5), at(0.99), at(1));
  return text;
}

std::string changesOf(const Counts& counts) {
  std::string text;
  for (std::size_t changes = 1; changes < counts.byChanges.size(); ++changes) {
    if (counts.byChanges[changes] == 0) continue;
    text += (text.empty() ? "" : ", ") + std::to_string(changes) + ": " +
            grouped(counts.byChanges[changes]);
  }
  return text;
}

void printJudged(const Judging& judging) {
  row("judged by z3: resolutions", judging.samples());
  row("of these resolved, with the least number of changes", judging.mended());
  row("of these impossible, explained by rules none of which can be spared", judging.impossible());
  row("of these possible with other hardware, the least of it", judging.withHardware());
  row("z3 disagrees", static_cast<long>(judging.wrong().size()));
  for (const std::string& line : judging.wrong()) std::cerr << line << '\n';
}

}  // namespace

void printReport(Counts& counts, const Judging* judging) {
  std::cout << "| | engine | libcups |\n|---|---|---|\n";
  row("PPDs", counts.ppds);
  row("PPDs with rules; rules in all; most in a file", grouped(counts.ppdsWithRules) + "; " +
                                                           grouped(counts.rules) + "; " +
                                                           grouped(counts.mostRules));
  row("PPDs that are in conflict with their defaults", counts.ppdsInConflict);
  row("choices from the defaults", counts.choices);
  row("other verdict than the other side", counts.verdictsDiffer);
  row("choices of PageRegion, PickMany options, and Custom", counts.specialChoices);
  row("other verdict than the other side", counts.specialDiffer);
  row("verdicts at random choices", counts.vectorVerdicts);
  row("other verdict than the other side", counts.vectorsDiffer);
  row("choices in conflict", counts.conflicts);
  row("resolved", counts.mended, grouped(counts.peerMended));
  row("missed although there is a way", counts.peerOnly, grouped(counts.peerMissed));
  row("resolved, but still in conflict", counts.stillInConflict,
      grouped(counts.peerStillInConflict));
  row("more changes than needed", 0, grouped(counts.peerChangesMore));
  row("number of changes", changesOf(counts));
  row("impossible with this hardware", counts.impossible);
  row("of these possible with other hardware, which is named", counts.withHardware);
  row("possible as it is: the conflict is one of the defaults", counts.conflictOfDefaults);
  row("given up", counts.notFound);
  row("time p50 / p99 / max", times(counts.microseconds), times(counts.peerMicroseconds));
  row("tables and state of a PPD p50 / p99 / max", times(counts.tableMicroseconds));
  if (judging != nullptr) printJudged(*judging);
}

}  // namespace driver_feature::figures
